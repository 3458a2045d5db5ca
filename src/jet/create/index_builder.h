#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/create/page_array.h"
#include "jet/row_id.h"

namespace jet::create {

// Builds a B-tree in one go: collects the keys of all rows, sorts them, and fills the leaves one after
// another and the nodes above them.
class IndexBuilder {
 public:
  explicit IndexBuilder(bool unique) : unique_(unique) {}

  // `exempt`: a key of nothing but nulls, which may occur many times in a unique index.
  void add(std::string_view key, RowId row, bool exempt);

  struct Tree {
    std::vector<std::uint32_t> pages;  // ascending, the root among them
    std::uint32_t distinctKeys = 0;
  };
  // Writes the tree; the root stays on the page `root`, whatever its height. `removed` (sorted): rows that
  // were deleted since. Errors: Constraint (a key twice in a unique index), Limit (a key too long).
  Tree build(PageArray& pages, std::uint32_t table, std::uint32_t root, std::span<const RowId> removed);

 private:
  struct Entry {
    std::uint64_t prefix;  // the first bytes of the key, big endian, so that most comparisons end here
    std::size_t offset;
    std::uint32_t length;
    bool exempt;
    RowId row;
  };
  std::string_view key(const Entry& entry) const {
    return std::string_view(keys_).substr(entry.offset, entry.length);
  }
  bool precedes(const Entry& left, const Entry& right) const;
  void sort(std::span<const RowId> removed);
  std::uint32_t countDistinct() const;

  bool unique_;
  std::string keys_;
  std::vector<Entry> entries_;
};

}  // namespace jet::create
