#pragma once

#include <cstdint>

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
  Transaction& transaction_;
  PageAllocator& allocator_;
  std::uint32_t map_;
  std::uint32_t owner_;
};

}  // namespace jet::write
