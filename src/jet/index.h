#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/page_file.h"
#include "jet/row_id.h"
#include "jet/table_definition.h"
#include "jet/value.h"

namespace jet {

class Table;
class Row;

// One entry as the tree stores it: key bytes (all columns, without row) and row.
struct IndexEntry {
  std::string key;
  RowId row;
};

// All entries in key order. Throws Error(Damaged) on broken links, disorder, cycles.
class IndexWalk {
 public:
  bool next(IndexEntry& entry);

 private:
  friend class Index;
  explicit IndexWalk(const class Index& index);
  const class Index* index_;
  PageRef leaf_;
  std::size_t position_ = 0;
  std::uint32_t leavesSeen_ = 0;
  std::string last_;
  bool started_ = false;
};

// A B-tree of a table, for reading.
class Index {
 public:
  Index(const Table& table, const PageFile& file, std::size_t number);

  const IndexDefinition& definition() const;
  // False where keys cannot be computed as Access computes them (another sort order, an unknown type):
  // then only `walk` makes sense.
  bool isComputable() const { return computable_; }

  // The rows whose first values.size() index columns have these keys, appended to `rows` in key order.
  // Values must already have the columns' types (Null allowed). False, and nothing appended, if the key
  // cannot be computed exactly (see collation::Key::exact) or the index leaves such rows out.
  bool lookup(std::span<const Value> values, std::vector<RowId>& rows) const;
  IndexWalk walk() const;
  // Number of entries, by walking.
  std::uint64_t countEntries() const;

  // The key of a row, as it would be stored; nullopt if the row has no entry (nulls ignored) or the key
  // cannot be computed.
  std::optional<std::string> keyOf(const Row& row) const;

 private:
  friend class IndexWalk;
  const Table& table_;
  const PageFile& file_;
  std::size_t number_;
  bool computable_ = false;
};

}  // namespace jet
