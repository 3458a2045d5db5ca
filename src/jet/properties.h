#pragma once

#include <vector>

#include "jet/table_definition.h"
#include "jet/value.h"

namespace jet {

// What the catalog knows about a column beside the table's definition.
struct ColumnProperties {
  bool required = false;
  bool allowZeroLength = true;
  Text defaultValue;  // an expression, empty if there is none
};

// From the property block of a table (Database::tableProperties; may be empty), one per column of the
// definition, in its order. What is not known is passed over. Errors: Damaged.
std::vector<ColumnProperties> readColumnProperties(const Bytes& block, const TableDefinition& definition);

}  // namespace jet
