#pragma once

#include <QString>

namespace pelvanto {

// Only the blank (32) counts here; tabs, line breaks and non-breaking spaces belong to the text.
QString getrimmt(const QString& text);
QString ohneBlanks(QString text);
// The first `zeichen` UTF-16 units; a pair of surrogates at the cut is left out as a whole.
QString gekuerzt(const QString& text, int zeichen);

}  // namespace pelvanto
