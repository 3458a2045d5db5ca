#pragma once

#include <vector>

#include "jet/check_findings.h"
#include "jet/table.h"

namespace jet {

// Walks the whole tree of an index from its root: order, links, the entries of nodes, its usage map, and that
// the entries are just those of the table's rows. `rows` are all live rows, ascending.
void checkIndex(const Table& table, std::size_t number, const std::vector<RowId>& rows, PageOwners& owners,
                CheckFindings& findings);

}  // namespace jet
