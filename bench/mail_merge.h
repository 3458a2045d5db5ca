#pragma once

#include <filesystem>

#include "bench/report.h"

namespace bench {

// The mail merge of 300 persons, boxes and log included, beside 300 durable transactions of SQLite.
void measureMailMerge(Report& report, const std::filesystem::path& folder);

}  // namespace bench
