#pragma once

#include <cstdint>
#include <span>

#include "jet/table_definition.h"
#include "jet/value.h"
#include "jet/write/row_store.h"

namespace jet::write {

// The long values (memo, OLE) of one column, on pages of its own.
class LongValueWriter {
 public:
  // `table`: the definition page.
  LongValueWriter(Transaction& transaction, PageAllocator& allocator, const ColumnDefinition& column,
                  std::uint32_t table);

  // Appends to `target` what the row holds for `content`, after the content went to its pages where it does
  // not stay in the row.
  void append(Bytes& target, std::span<const std::uint8_t> content, bool inlineAllowed);
  // Gives back the space behind what a row held. Error(Damaged) if it does not lead to rows of long values.
  void release(std::span<const std::uint8_t> stored, std::uint32_t from);

 private:
  std::uint32_t storeChain(std::span<const std::uint8_t> content);

  RowStore rows_;
};

}  // namespace jet::write
