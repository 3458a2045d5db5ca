#pragma once

#include <span>
#include <vector>

#include "jet/encode/row_key.h"
#include "jet/row_id.h"
#include "jet/table_definition.h"
#include "jet/transaction.h"
#include "jet/value.h"
#include "jet/write/definition_counters.h"
#include "jet/write/index_writer.h"
#include "jet/write/page_allocator.h"

namespace jet::write {

// All indexes of one table: first every key of a change is computed and checked, then all trees are changed.
// Values run beside TableDefinition::columns.
class RowIndexes {
 public:
  // `definition` must outlive this.
  RowIndexes(Transaction& transaction, PageAllocator& allocator, const TableDefinition& definition);

  // Only one of these, then `apply`. Errors, naming index or column: Constraint (a key twice, a Null where
  // the index takes none), Limit (a key too long), NotWritable.
  void planInsert(std::span<const Value> after);
  void planErase(std::span<const Value> before);
  // `changed`: the columns with another value; only the values of indexes that have one of them are looked
  // at.
  void planUpdate(std::span<const Value> before, std::span<const Value> after,
                  const std::vector<bool>& changed);
  // Whether an index has one of these columns.
  bool touches(std::size_t index, const std::vector<bool>& columns) const;

  void apply(RowId row, DefinitionCounters& counters);

 private:
  struct Tree {
    IndexWriter writer;
    encode::RowKey before, after;
    bool leaves = false, enters = false;  // what the planned change does to the row's entry
  };
  void checkNewKey(std::size_t index) const;

  const TableDefinition& definition_;
  std::vector<Tree> trees_;
};

}  // namespace jet::write
