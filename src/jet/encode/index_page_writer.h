#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/encode/page_size.h"
#include "jet/format.h"

namespace jet::encode {

// Entries of one index page on their way to the page.
class IndexPageWriter {
 public:
  static constexpr std::size_t capacity = pageSize - 480;  // bytes of entries, see Format::indexEntries
  static constexpr std::size_t levelOffset = 26;
  // What stands behind the key of an entry: its row, and in nodes the page below.
  static constexpr std::size_t rowSize = 4, childSize = 4;

  // Two entries of a node, each with row and child, must fit on a page.
  static constexpr std::size_t longestKey = capacity / 2 - 8;

  bool empty() const { return ends_.empty(); }
  bool fits(std::size_t length) const { return bytes_.size() + length <= capacity; }
  void append(std::string_view entry);

  struct Links {
    std::uint32_t previous = 0, next = 0;
    std::uint32_t tail = 0;  // nodes: the last child, which has no entry
    std::uint8_t level = 0;  // 0: leaf
    // Bytes that all entries start with: the first entry has them, the others were appended without.
    std::uint16_t shared = 0;
  };
  // Fills `target`, a page of the index of `table`, and forgets the entries.
  void write(std::span<std::uint8_t> target, std::uint32_t table, const Links& links);

 private:
  std::string bytes_;
  std::vector<std::uint16_t> ends_;
};

}  // namespace jet::encode
