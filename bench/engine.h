#pragma once

#include <filesystem>

#include "bench/report.h"

namespace bench {

// Scans, lookups, membership tests, join and memory of the engine, beside SQLite and mdbtools. Files are made
// in `folder`; `memoryProgram` does the engine's work in a process of its own.
void measureEngine(Report& report, const std::filesystem::path& folder,
                   const std::filesystem::path& memoryProgram);

}  // namespace bench
