#pragma once

#include <QFont>

namespace pelvanto {

// The one font of the window: Verdana 9.75 pt, DejaVu Sans where there is no Verdana.
QFont fensterschrift();

}  // namespace pelvanto
