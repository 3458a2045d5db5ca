#include "support/dateien_finden.h"

namespace pelvanto {

namespace {

// Where the last separator stands; -1 if there is none.
qsizetype letzterTrenner(const QString& pfad) {
  return std::max({pfad.lastIndexOf(u':'), pfad.lastIndexOf(u'/'), pfad.lastIndexOf(u'\\')});
}

}  // namespace

QString DateinameAusPfad(const QString& pfad) {
  const qsizetype stelle = letzterTrenner(pfad);
  return stelle < 0 ? QString() : pfad.mid(stelle + 1);
}

QString OrdnerAusPfad(const QString& pfad) {
  const qsizetype stelle = letzterTrenner(pfad);
  return stelle < 0 ? QString() : pfad.left(stelle);
}

QString DateinameBereinigen(const QString& pfad) {
  const QString name = DateinameAusPfad(pfad);
  const qsizetype punkt = name.lastIndexOf(u'.');
  QString ergebnis = punkt < 0 ? name : name.left(punkt).remove(u'.') + name.mid(punkt);
  for (const QChar zeichen : {u':', u'\'', u'&', u'"'}) {
    ergebnis.remove(zeichen);
  }
  return ergebnis;
}

}  // namespace pelvanto
