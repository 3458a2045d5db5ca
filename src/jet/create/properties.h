#pragma once

#include <vector>

#include "jet/create/table_layout.h"
#include "jet/value.h"

namespace jet::create {

// The property block of an object as the catalog keeps it: what the table definition has no place for.
// For a table: Required, AllowZeroLength and DefaultValue of its columns; empty if there are none.
Bytes tableProperties(const TableLayout& layout);

// For the database itself: which Access made it, e.g. u"08.50" for Access 2000.
Bytes databaseProperties(const Text& accessVersion);

}  // namespace jet::create
