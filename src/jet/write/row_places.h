#pragma once

#include <cstdint>
#include <span>

#include "jet/row_id.h"
#include "jet/table_definition.h"
#include "jet/write/row_store.h"

namespace jet::write {

// Where the rows of a table stand. A row keeps its head slot, its id, for life; its body moves to another
// page when it outgrows its own.
class RowPlaces {
 public:
  RowPlaces(Transaction& transaction, PageAllocator& allocator, const TableDefinition& definition);

  RowId insert(std::span<const std::uint8_t> row) { return rows_.append(row); }
  // Errors: Damaged (there is no such row), Limit (not even a pointer has room on the row's page).
  void update(RowId head, std::span<const std::uint8_t> row);
  void erase(RowId head);

 private:
  RowId bodyOf(RowId head);

  RowStore rows_;
};

}  // namespace jet::write
