#pragma once

#include <cstdint>
#include <span>

#include "jet/transaction.h"
#include "jet/write/page_allocator.h"

namespace jet::write {

// Adds pages to and takes pages out of one usage map. `map` is the map's place (page << 8 | row); `owner` the
// definition page of the table, for the error.
class UsageMapEditor {
 public:
  UsageMapEditor(Transaction& transaction, PageAllocator& allocator, std::uint32_t map, std::uint32_t owner);

  bool contains(std::uint32_t page) const;
  // Adding what is there and removing what is not there change nothing. A map that no longer fits its row is
  // moved to another start or turned into a map by reference.
  void add(std::uint32_t page);
  void remove(std::uint32_t page);

 private:
  // The map's row; `page` keeps its bytes.
  struct Row {
    PageRef page;
    std::span<const std::uint8_t> bytes;
  };
  // A page's bit: on the page with the map, or on a bitmap page. `number` 0: the map has no place for it yet.
  struct Place {
    std::uint32_t number = 0;
    std::size_t offset = 0;  // of the bitmap on the page
    std::size_t bit = 0;
  };

  std::uint32_t mapPage() const { return map_ >> 8; }
  Row row() const;
  std::span<std::uint8_t> changeRow();
  Place find(std::uint32_t page) const;
  bool isSet(const Place& place) const;
  void makePlace(std::uint32_t page);
  bool moveStart(std::uint32_t page);
  void turnIntoReferences();
  void addBitmap(std::uint32_t page);

  Transaction& transaction_;
  PageAllocator& allocator_;
  std::uint32_t map_;
  std::uint32_t owner_;
};

}  // namespace jet::write
