#pragma once

#include <set>

#include "jet/check_findings.h"
#include "jet/table.h"

namespace jet {

// What all tables share while a file is checked.
struct CheckedPlaces {
  PageOwners& owners;
  PageOwners::Owner mapPages;      // pages that hold rows of usage maps
  std::set<std::uint32_t> maps;    // every usage map met so far (page and row); none may be used twice
  std::set<std::uint32_t> pieces;  // every row of a long value page met so far
};

// One table: its definition pages, usage maps, data pages, rows, values, long values and indexes.
void checkTable(const Table& table, CheckedPlaces& places, CheckFindings& findings);

}  // namespace jet
