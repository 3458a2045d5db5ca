#include "support/kuerzen.h"

namespace pelvanto {

QString gekuerzt(const QString& text, int zeichen) {
  const bool mittenImPaar = zeichen > 0 && text.size() > zeichen && text[zeichen - 1].isHighSurrogate() &&
                            text[zeichen].isLowSurrogate();
  return text.left(mittenImPaar ? zeichen - 1 : zeichen);
}

}  // namespace pelvanto
