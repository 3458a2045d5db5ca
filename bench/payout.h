#pragma once

#include <filesystem>

#include "bench/report.h"

namespace bench {

// The steps on their page models, and the payment file, on real files below `folder`.
void measurePayout(Report& report, const std::filesystem::path& folder);

}  // namespace bench
