#pragma once

#include <QtGlobal>

#include <optional>

#include "support/waehrung.h"

// The arithmetic of the payout. The order of the operations is part of the result: exact arithmetic gives
// other cents where a share ends in half a cent.
namespace pelvanto {

// A member's share: total x basis as an exact product, its nearest double divided once by the sum of all
// bases, times 100, rounded to whole cents, ties to the even cent. nullopt where it does not fit, or where
// `summe` is not positive.
std::optional<Waehrung> anteilGerundetAufGeradeCent(Waehrung gesamt, qint64 basis, qint64 summe);

// VAT in percent of a net amount: amount x rate in double precision, rounded to whole cents, ties to the even
// cent. nullopt where it does not fit.
std::optional<Waehrung> steuerGerundetAufGeradeCent(Waehrung netto, int satz);

}  // namespace pelvanto
