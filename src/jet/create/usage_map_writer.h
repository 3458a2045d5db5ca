#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "jet/create/page_array.h"

namespace jet::create {

// The pages that hold the usage maps of one table (of all system tables together): data pages without owner,
// filled with rows of 69 bytes.
class UsageMapRows {
 public:
  // Starts with the first map page, which the caller has allocated.
  UsageMapRows(PageArray& pages, std::uint32_t firstPage);
  // A new empty map. Returns the pointer to it; a further map page is begun when one is full.
  std::uint32_t add();

 private:
  PageArray& pages_;
  std::uint32_t page_;
};

// Writes `members` (ascending) as the content of the map at `pointer`: inline where 512 pages in a row hold
// them all, else by reference to bitmap pages, which are allocated.
void writeUsageMap(PageArray& pages, std::uint32_t pointer, std::span<const std::uint32_t> members);

// Formats page 1: the map of free pages for the whole file, still of its smallest size, and the second map
// that is always empty.
void formatGlobalMap(PageArray& pages);
// Marks every page of the file as in use and everything behind its end as free. The last allocation of all.
void writeGlobalMap(PageArray& pages);

}  // namespace jet::create
