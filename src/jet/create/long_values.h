#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "jet/create/page_array.h"
#include "jet/value.h"

namespace jet::create {

// The long values (memo, OLE) of one column: what stands in the row, and the pages with the rest.
class LongValueStore {
 public:
  explicit LongValueStore(PageArray& pages) : pages_(&pages) {}

  // Appends to `target` what the row holds for `content`: reference and value, or the reference alone after
  // the value went to pages of its own, in one row or in a chain of rows.
  void append(Bytes& target, std::span<const std::uint8_t> content, bool inlineAllowed);
  // Gives back the space behind what `append` produced earlier.
  void release(std::span<const std::uint8_t> stored);

  // All pages of the column, ascending.
  const std::vector<std::uint32_t>& ownedPages() const { return owned_; }

 private:
  std::uint32_t storeRow(std::span<const std::uint8_t> content);
  std::uint32_t storeChain(std::span<const std::uint8_t> content);
  std::uint32_t addPage();

  PageArray* pages_;
  std::vector<std::uint32_t> owned_;
};

}  // namespace jet::create
