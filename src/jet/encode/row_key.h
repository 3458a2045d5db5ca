#pragma once

#include <span>
#include <string>

#include "jet/table_definition.h"
#include "jet/value.h"

namespace jet::encode {

// The key of one row in one index.
struct RowKey {
  std::string bytes;
  bool stored = true;   // false: the row has no entry (nothing but Nulls, which the index ignores)
  bool exempt = false;  // nothing but Nulls: may occur several times in a unique index
  const ColumnDefinition* firstNull = nullptr;
};

// `values` runs beside TableDefinition::columns; those that the index needs must be there, in the form of
// `storableValue`. Replaces `key`. Error(NotWritable), naming the column: a character without a known place
// in the order.
void makeRowKey(const TableDefinition& definition, const IndexDefinition& index,
                std::span<const Value> values, RowKey& key);

// Error(Constraint), naming the column: a Null where the index takes none.
void requireKeyValues(const IndexDefinition& index, const RowKey& key);

}  // namespace jet::encode
