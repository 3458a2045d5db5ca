#pragma once

#include <QString>

#include <string>

namespace pelvanto {

// A sentence of the engine (English, UTF-8) as the log and the message boxes say it. A sentence that is not
// known comes back as it is.
QString aufDeutsch(const std::string& satz);

}  // namespace pelvanto
