#pragma once

#include <QString>

namespace pelvanto {

// Why CUPS refused what this thread last asked of it; empty when it did not, or where there is no CUPS.
QString letzterCUPSFehler();

}  // namespace pelvanto
