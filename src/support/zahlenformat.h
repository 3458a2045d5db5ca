#pragma once

#include <QString>

#include "seams/gebietsschema.h"
#include "support/waehrung.h"

namespace pelvanto {

// Numbers and amounts as the user writes them.
namespace Zahlenformat {

// "###,###,##0": whole number with the user's grouping character every three digits.
QString ganzzahl(qint64 wert, const Zahlenzeichen& zeichen);
// The user's currency format: two decimals, grouped, "-" in front of everything.
QString waehrung(Waehrung wert, const Zahlenzeichen& zeichen);
// `wert` with this many decimals (at least one digit in front, no grouping), ties away from zero as
// format patterns do.
QString dezimal(double wert, int stellen, const Zahlenzeichen& zeichen);

}  // namespace Zahlenformat
}  // namespace pelvanto
