#pragma once

#include <string>
#include <vector>

#include "jet/database.h"

namespace jet {

// What a check of a whole file found. Errors are contradictions in the file; remarks are harmless (pages
// that nobody owns, stale row counts). English sentences.
struct CheckReport {
  std::vector<std::string> errors;
  std::vector<std::string> remarks;
  std::uint64_t tables = 0, rows = 0, indexEntries = 0;
  std::uint64_t keysCompared = 0;  // stored keys that were computed anew and compared
};

// Every table, row, value, usage map and index: no page owned twice, row counts, every index in order,
// complete and equal to the rows. Never throws for a damaged file: damage is reported. Errors: Io, Busy and
// AccessDenied where the system does not let it read.
CheckReport check(Database& database);

}  // namespace jet
