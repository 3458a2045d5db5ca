#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <span>

#include "jet/encode/data_page_writer.h"
#include "jet/row_id.h"
#include "jet/transaction.h"
#include "jet/write/page_allocator.h"
#include "jet/write/usage_map_editor.h"

namespace jet::write {

// Whose pages these are.
struct PageSet {
  std::uint32_t owner = 0;     // what the pages name as their owner
  std::uint32_t ownedMap = 0;  // pointers to the usage maps
  std::uint32_t freeMap = 0;   // 0: nobody notes where there is space
  std::uint32_t table = 0;     // definition page, for errors
};

// Puts rows on the pages of one set: those of a table, or of the long values of one column. Keeps the page of
// the last insert at hand, so that many inserts do not search again and again.
class RowStore {
 public:
  RowStore(Transaction& transaction, PageAllocator& allocator, const PageSet& set);

  // A new slot on a page with space, on a new page where there is none.
  RowId append(std::span<const std::uint8_t> row, std::uint16_t flags = 0);
  // False, and nothing changed: the page has no room for the longer row.
  bool replace(RowId place, std::span<const std::uint8_t> row, std::uint16_t flags);
  void erase(RowId place);

  // The row's bytes, to be changed in place. Error(Damaged) where there is no such slot.
  std::span<std::uint8_t> row(RowId place);
  // Flags of a slot; Error(Damaged) where there is none.
  std::uint16_t flags(RowId place);

 private:
  encode::DataPageWriter page(RowId place);
  std::uint32_t pageFor(std::size_t length);
  bool isUsable(std::uint32_t number, std::size_t length);
  // A row did not fit there: a nearly full page is taken out of the free map.
  void leave(std::uint32_t number);
  std::uint32_t addPage();
  void readCandidates();
  // Notes that there is space on a page again.
  void offer(std::uint32_t number);

  Transaction& transaction_;
  PageAllocator& allocator_;
  PageSet set_;
  UsageMapEditor owned_;
  std::optional<UsageMapEditor> free_;
  std::uint32_t current_ = 0;           // where the last row went; 0: none yet
  std::set<std::uint32_t> candidates_;  // pages with space that were not tried yet
  bool candidatesRead_ = false;
};

}  // namespace jet::write
