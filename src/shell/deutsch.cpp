#include "shell/deutsch.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace pelvanto {

bool qtTexteAufDeutsch(QObject* lebensdauer) {
  auto* deutsch = new QTranslator(lebensdauer);
  return deutsch->load(QStringLiteral("qtbase_de"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)) &&
         QCoreApplication::installTranslator(deutsch);
}

}  // namespace pelvanto
