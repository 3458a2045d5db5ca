#include "support/einzeilig.h"

namespace pelvanto {

QString einzeilig(QString text) {
  text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
  for (QChar& zeichen : text) {
    if (zeichen.unicode() < 0x20) zeichen = u' ';
  }
  return text;
}

}  // namespace pelvanto
