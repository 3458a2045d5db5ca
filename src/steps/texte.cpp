#include "steps/texte.h"

namespace pelvanto {

QString getrimmt(const QString& text) {
  qsizetype anfang = 0;
  qsizetype ende = text.size();
  while (anfang < ende && text[anfang] == u' ') ++anfang;
  while (ende > anfang && text[ende - 1] == u' ') --ende;
  return text.mid(anfang, ende - anfang);
}

QString ohneBlanks(QString text) { return text.remove(u' '); }

QString gekuerzt(const QString& text, int zeichen) {
  const bool mittenImPaar =
      text.size() > zeichen && text[zeichen - 1].isHighSurrogate() && text[zeichen].isLowSurrogate();
  return text.left(mittenImPaar ? zeichen - 1 : zeichen);
}

}  // namespace pelvanto
