#pragma once

#include <QString>

#include "support/blanks.h"

namespace pelvanto {

// Only the blank (32) counts; tabs, line breaks and non-breaking spaces belong to the text.
QString ohneBlanks(QString text);
// The first `zeichen` UTF-16 units; a pair of surrogates at the cut is left out as a whole.
QString gekuerzt(const QString& text, int zeichen);

}  // namespace pelvanto
