#pragma once

#include <QString>

namespace pelvanto {

// Blanks (U+0020 only, not tabs or no-break blanks) taken off both ends.
QString ohneAeussereBlanks(const QString& text);
// Every run of blanks becomes one.
QString blanksReduziert(const QString& text);

}  // namespace pelvanto
