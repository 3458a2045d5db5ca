#pragma once

#include <filesystem>

#include "bench/report.h"

namespace bench {

// Durable inserts beside SQLite with a rollback journal and everything flushed, on the disk of `folder`.
void measureWriting(Report& report, const std::filesystem::path& folder);

}  // namespace bench
