#include "shell/deutsch.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace pelvanto {

bool qtTexteAufDeutsch(QObject* lebensdauer) {
  auto* deutsch = new QTranslator(lebensdauer);
  // A program that carries all of Qt in it carries these texts as well.
  const bool geladen =
      deutsch->load(QStringLiteral(":/qtbase_de.qm")) ||
      deutsch->load(QStringLiteral("qtbase_de"), QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  return geladen && QCoreApplication::installTranslator(deutsch);
}

}  // namespace pelvanto
