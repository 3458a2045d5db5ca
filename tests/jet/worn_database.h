#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "jet/create/database_builder.h"
#include "jet/row_id.h"
#include "jet/value.h"

namespace jet::test {

// A database as years of use leave it, and what has to be read from it. Its tables:
// "Personen": every column type, two indexes, memos of all three kinds, deleted and moved rows, a column that
// was deleted and two that were added when most rows were there already.
// "Zuordnung": two longs, 1,500 rows, an index over both. "Messwerte": fixed columns alone and no index.
struct WornDatabase {
  std::vector<std::uint8_t> file;
  std::map<RowId, std::vector<Value>> persons;
  std::vector<RowId> movedPersons, erasedPersons;
  std::size_t assignments = 0, measurements = 0;
};

WornDatabase makeWornDatabase(create::BuildOptions options = {});

}  // namespace jet::test
