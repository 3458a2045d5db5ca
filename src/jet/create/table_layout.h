#pragma once

#include <vector>

#include "jet/create/database_builder.h"
#include "jet/table_definition.h"

namespace jet::create {

// What Access keeps about a column outside of the table definition.
struct ColumnRules {
  Text defaultValue;
  bool required = false;
  bool allowZeroLength = true;
};

// A table before it has pages: `definition` without page, maps and roots; `rules` run parallel to
// definition.columns.
struct TableLayout {
  Text name;
  TableDefinition definition;
  std::vector<ColumnRules> rules;
};

// Error(Limit) for a name that Access would not accept.
void checkName(const Text& name);

// Appends a column behind the others: numbers, offset behind the greatest used one, flags. Errors:
// Constraint (a name twice), Limit.
void appendColumn(TableLayout& layout, const ColumnSpec& spec);

// The definition of a new table. Errors: Constraint, Limit, NoSuchColumn (an index over an unknown one).
TableLayout layoutOf(const TableSpec& spec);

// Position of a column by name without case. Error(NoSuchColumn).
std::size_t findColumn(const TableDefinition& definition, const Text& name);

}  // namespace jet::create
