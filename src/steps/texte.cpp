#include "steps/texte.h"

namespace pelvanto {

QString ohneBlanks(QString text) { return text.remove(u' '); }

QString gekuerzt(const QString& text, int zeichen) {
  const bool mittenImPaar =
      text.size() > zeichen && text[zeichen - 1].isHighSurrogate() && text[zeichen].isLowSurrogate();
  return text.left(mittenImPaar ? zeichen - 1 : zeichen);
}

}  // namespace pelvanto
