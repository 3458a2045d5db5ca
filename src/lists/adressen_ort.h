#pragma once

#include <QString>

#include "payment/daten_typen.h"

namespace pelvanto {

// Postcode and town together, in characters.
inline constexpr int kLaengsterPLZOrt = 40;

// A stored address, split at its commas: "4320 Perg, Dorf 3, Moarhof". Without outer blanks.
struct Adressteile {
  QString plzOrt;  // one blank between its first word and the others
  QString strasse;
  QString zusatz;  // what stands behind the second comma; empty too where nothing readable does
};
Adressteile adresseTeilen(const QString& adresse);

// Empty where the address begins with "-". Not cut, but for the postcode.
struct Ortsteile {
  QString plz;  // with the country's prefix
  QString ort;
  QString strasse;         // without the house number
  bool plzZuLang = false;  // a postcode with a prefix lost characters
};
Ortsteile ortTeilen(const QString& plzOrt, const QString& strasse, const DatenTypen& typen);

// "A-" for 43; empty for a country that has none here.
QString laenderkennung(int vorwahl);

}  // namespace pelvanto
