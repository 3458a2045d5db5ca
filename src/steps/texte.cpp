#include "steps/texte.h"

namespace pelvanto {

QString ohneBlanks(QString text) { return text.remove(u' '); }

}  // namespace pelvanto
