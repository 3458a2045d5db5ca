#pragma once

#include <QChar>
#include <QString>

namespace pelvanto {

// How the user writes numbers and amounts. Two decimals and a "-" in front always.
struct Zahlenzeichen {
  QChar dezimal = u',';
  QChar gruppierung = u'.';
  QString waehrung = QStringLiteral("€");
  bool waehrungVorne = false;   // the sign stands before the amount
  bool waehrungAbstand = true;  // a blank between sign and amount
  bool operator==(const Zahlenzeichen&) const = default;
};

// The user's settings of the system, read anew at every call.
class Gebietsschema {
 public:
  virtual ~Gebietsschema() = default;
  virtual Zahlenzeichen zahlenzeichen() const = 0;
  // The international dialling code of the country, e.g. 43; 0 where no country is known.
  virtual int landesvorwahl() const = 0;
};

}  // namespace pelvanto
