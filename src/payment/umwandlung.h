#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

#include "database/feldwert.h"
#include "seams/gebietsschema.h"
#include "support/waehrung.h"

namespace pelvanto {

// A database value that does not fit the type it was asked for: 13 (wrong type) or 6 (too large).
struct Umwandlungsfehler {
  int nummer = 0;
  QString beschreibung;
};

// Conversions of a database value that is not Null; all throw Umwandlungsfehler. Texts are read, and numbers
// written, with the user's characters, which are asked for only where a conversion needs them.
namespace umwandlung {

QString alsText(const Feldwert& wert, const Gebietsschema& schema);
double alsZahl(const Feldwert& wert, const Gebietsschema& schema);
// Rounded to the nearest whole number, ties to even.
qint32 alsGanzzahl32(const Feldwert& wert, const Gebietsschema& schema);
qint16 alsGanzzahl16(const Feldwert& wert, const Gebietsschema& schema);
float alsEinfach(const Feldwert& wert, const Gebietsschema& schema);
Waehrung alsWaehrung(const Feldwert& wert, const Gebietsschema& schema);
QDateTime alsDatum(const Feldwert& wert, const Gebietsschema& schema);
QDateTime nulldatum();

}  // namespace umwandlung

// A number as a user writes it: sign, digits with or without grouping, decimals; nullopt for anything else.
std::optional<double> zahlAusText(const QString& text, const Zahlenzeichen& zeichen);

}  // namespace pelvanto
