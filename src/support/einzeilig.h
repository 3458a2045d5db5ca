#pragma once

#include <QString>

namespace pelvanto {

// A text as it stands on one line: line breaks and other control characters become blanks.
QString einzeilig(QString text);

}  // namespace pelvanto
