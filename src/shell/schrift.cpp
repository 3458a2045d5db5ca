#include "shell/schrift.h"

#include <QFontDatabase>

namespace pelvanto {

QFont fensterschrift() {
  constexpr double kPunkt = 9.75;
  const QString verdana = QStringLiteral("Verdana");
  QFont schrift(QFontDatabase::hasFamily(verdana) ? verdana : QStringLiteral("DejaVu Sans"));
  schrift.setPointSizeF(kPunkt);
  return schrift;
}

}  // namespace pelvanto
