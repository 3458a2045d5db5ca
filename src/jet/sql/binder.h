#pragma once

#include "jet/database.h"
#include "jet/sql/ast.h"
#include "jet/sql/bound_select.h"

namespace jet::sql {

// Resolves all names and types of a parsed query. Errors: NoSuchTable, NoSuchColumn, TypeMismatch, and Sql
// for ambiguous names and joins that do not relate their two sides.
void bind(const Select& select, Database& database, BoundSelect& target);

}  // namespace jet::sql
