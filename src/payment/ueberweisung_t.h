#pragma once

#include <QString>

#include <vector>

#include "support/waehrung.h"

namespace pelvanto {

// One credit transfer of the transfer table. Lengths are UTF-16 units.
struct Ueberweisung {
  QString KundeIBAN;             // 35, without blanks
  QString KundeBIC;              // 11
  Waehrung EinzelBetrag;         // gross
  QString KundenID;              // 35, not written to the file
  QString KundeName;             // 70
  QString KundeAdresse;          // 70
  QString Verwendungszweck;      // 70
  QString AuftraggeberReferenz;  // 35
  bool operator==(const Ueberweisung&) const = default;
};

using UeberweisungT = std::vector<Ueberweisung>;

}  // namespace pelvanto
