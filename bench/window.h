#pragma once

#include <filesystem>

#include "bench/report.h"

namespace bench {

// What a list of 20,000 rows costs in the window. Needs a QApplication.
void measureWindow(Report& report, const std::filesystem::path& folder);

}  // namespace bench
