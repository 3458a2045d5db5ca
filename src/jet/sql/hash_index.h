#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "jet/sql/scalar.h"
#include "jet/table.h"

namespace jet::sql {

// One column of a key, and how it is compared.
struct HashColumn {
  std::uint16_t column = 0;  // position in TableDefinition::columns
  Comparison comparison = Comparison::None;
  bool operator==(const HashColumn&) const = default;
};

// Finds the rows of a table by the values of some columns where the file has no index for them. Made by one
// scan; 8 bytes per row and about 2 for the directory, whatever the values are. Rows with a Null in a key
// column are not in it. Candidates must be compared with the row itself.
class HashIndex {
 public:
  struct Entry {
    std::uint32_t hash = 0;
    std::uint32_t row = 0;  // RowId::pointer
  };

  // Errors: whatever the scan finds.
  HashIndex(const Table& table, std::vector<HashColumn> columns);

  bool serves(const Table& table, std::span<const HashColumn> columns) const;
  const std::vector<HashColumn>& columns() const { return columns_; }
  // All rows with this hash are among them (compare it), in stored order.
  std::span<const Entry> candidates(std::uint32_t hash) const;

 private:
  void sortIntoBuckets();

  const Table& table_;
  std::vector<HashColumn> columns_;
  unsigned shift_ = 31;                // a hash belongs to the bucket hash >> shift_
  std::vector<std::uint32_t> starts_;  // of each bucket in entries_, and the end of the last
  std::vector<Entry> entries_;
};

}  // namespace jet::sql
