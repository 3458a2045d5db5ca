#pragma once

#include <string>

#include "jet/page_file.h"
#include "jet/table.h"

namespace jet::write {

// "index Namen" as errors name it; `number` is a position in TableDefinition::indexes.
std::string indexLabel(const TableDefinition& definition, std::size_t number);

// Error(NotWritable), naming the column or index, for a table whose rows or indexes could not be written as
// Access writes them.
void requireMaintainable(const Table& table);

// Checks rows, maps and indexes as a whole, unless that was done before. Error(NotWritable) with the first
// thing found.
void requireSound(PageFile& file, const Table& table);

}  // namespace jet::write
