#include "support/blanks.h"

namespace pelvanto {

QString ohneAeussereBlanks(const QString& text) {
  qsizetype anfang = 0;
  qsizetype ende = text.size();
  while (anfang < ende && text.at(anfang) == u' ') {
    ++anfang;
  }
  while (ende > anfang && text.at(ende - 1) == u' ') {
    --ende;
  }
  return text.mid(anfang, ende - anfang);
}

QString blanksReduziert(const QString& text) {
  QString ergebnis;
  ergebnis.reserve(text.size());
  for (const QChar zeichen : text) {
    if (zeichen != u' ' || !ergebnis.endsWith(u' ')) {
      ergebnis += zeichen;
    }
  }
  return ergebnis;
}

}  // namespace pelvanto
