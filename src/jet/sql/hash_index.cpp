#include "jet/sql/hash_index.h"

#include <algorithm>
#include <bit>

namespace jet::sql {
namespace {

constexpr std::size_t rowsPerBucket = 2;

// Reads a whole table and gives the hash of every row whose key columns are all present.
template <typename Take>
void hashRows(const Table& table, std::span<const HashColumn> columns, Take take) {
  std::string buffer;
  Scalar value;
  Row row;
  for (TableScan scan = table.scan(); scan.next(row);) {
    std::uint64_t rowHash = 0;
    const bool present = std::ranges::all_of(columns, [&](const HashColumn& key) {
      const ColumnType type = table.definition().columns[key.column].type;
      if (!read(row, key.column, type, key.comparison, value)) return false;
      rowHash = hash(value, key.comparison, rowHash, buffer);
      return true;
    });
    if (present) take(rowHash, row.id());
  }
}

// The table's own count may be stale or damaged: never more than its file can hold.
std::size_t plausibleRowCount(const Table& table) {
  constexpr std::size_t mostRowsPerPage = 255;
  return std::min<std::size_t>(table.definition().rowCount, table.file().pageCount() * mostRowsPerPage);
}

}  // namespace

HashIndex::HashIndex(const Table& table, std::vector<HashColumn> columns)
    : table_(table), columns_(std::move(columns)) {
  entries_.reserve(plausibleRowCount(table));
  hashRows(table, columns_, [this](std::uint64_t hash, RowId id) {
    entries_.push_back({static_cast<std::uint32_t>(hash), id.pointer()});
  });
  const unsigned bits = std::bit_width(std::max<std::size_t>(entries_.size() / rowsPerBucket, 1));
  shift_ = 32 - bits;
  starts_.assign((std::size_t{1} << bits) + 1, 0);
  for (const Entry& entry : entries_) ++starts_[(entry.hash >> shift_) + 1];
  for (std::size_t bucket = 1; bucket < starts_.size(); ++bucket) starts_[bucket] += starts_[bucket - 1];
  sortIntoBuckets();
}

// In place: a second copy of the entries would be the largest piece of memory of many a session.
void HashIndex::sortIntoBuckets() {
  std::vector<std::uint32_t> next = starts_;
  for (std::size_t bucket = 0; bucket + 1 < starts_.size(); ++bucket) {
    for (std::uint32_t& position = next[bucket]; position < starts_[bucket + 1];) {
      const std::size_t home = entries_[position].hash >> shift_;
      if (home == bucket) {
        ++position;
      } else {
        std::swap(entries_[position], entries_[next[home]++]);
      }
    }
    std::sort(entries_.begin() + starts_[bucket], entries_.begin() + starts_[bucket + 1],
              [](const Entry& left, const Entry& right) { return left.row < right.row; });
  }
}

bool HashIndex::serves(const Table& table, std::span<const HashColumn> columns) const {
  return &table == &table_ && std::ranges::equal(columns, columns_);
}

std::span<const HashIndex::Entry> HashIndex::candidates(std::uint32_t hash) const {
  const std::size_t bucket = hash >> shift_;
  return std::span(entries_).subspan(starts_[bucket], starts_[bucket + 1] - starts_[bucket]);
}

}  // namespace jet::sql
