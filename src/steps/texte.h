#pragma once

#include <QString>

#include "support/blanks.h"

namespace pelvanto {

// Only the blank (32) counts; tabs, line breaks and non-breaking spaces belong to the text.
QString ohneBlanks(QString text);

}  // namespace pelvanto
