#pragma once

#include <cstddef>
#include <map>
#include <vector>

#include "jet/encode/row_contents.h"
#include "jet/row_id.h"
#include "jet/table.h"
#include "jet/table_definition.h"
#include "jet/write/long_value_writer.h"

namespace jet::write {

// The bytes of the row at hand. New values are encoded, the others keep the bytes that they have; long values
// go to their pages when the row is built. Columns are positions in TableDefinition::columns.
class RowBuilder {
 public:
  // `definition` must outlive this.
  RowBuilder(Transaction& transaction, PageAllocator& allocator, const TableDefinition& definition);

  // Forgets the row before.
  void begin();
  // `value`: in the form of `storableValue`. Error(NotWritable): it does not fill a column of fixed length.
  void set(std::size_t position, const Value& value);
  void keep(std::size_t position, const Row& row);
  // The row's present long value will go.
  void abandon(std::size_t position, const Row& row);
  // The last check. Errors: Limit (the row is too long), NotWritable (a long value has no pages to go to).
  void requirePlace();

  // From here on pages change.
  void releaseAbandoned(RowId row);
  Bytes build();

 private:
  bool leavesRow(std::size_t position) const;

  const TableDefinition& definition_;
  std::size_t fixedBytes_;
  std::vector<std::size_t> variableOrder_;
  std::map<std::uint16_t, LongValueWriter> longValues_;  // by column number
  std::vector<encode::ColumnContent> contents_;
  std::vector<Bytes> abandoned_;  // what the row holds for long values that go
  bool inlineAllowed_ = true;
};

}  // namespace jet::write
