#pragma once

#include <QString>

namespace pelvanto {

// The first `zeichen` UTF-16 units; a pair of surrogates at the cut is left out as a whole.
QString gekuerzt(const QString& text, int zeichen);

}  // namespace pelvanto
