#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/index_page.h"
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

// All entries in key order. Throws Error(Damaged) on broken links, disorder, cycles. The index must outlive
// it.
class IndexWalk {
 public:
  bool next(IndexEntry& entry);

 private:
  friend class Index;
  // A node above the leaf, and the child that was taken.
  struct Step {
    PageRef node;
    std::size_t child = 0;
  };

  explicit IndexWalk(const class Index& index) : index_(&index) {}
  // Moves to the next leaf, the first one at the start; false behind the last one. Goes by the nodes, so that
  // no leaf is missed, and checks the links on the way.
  bool nextLeaf();
  // The leaf below `number` that comes first; `from` names it.
  PageRef descend(std::uint32_t number, std::uint32_t from);
  // The first leaf behind the present one; null at the end.
  PageRef leafBehind();

  const class Index* index_;
  std::vector<Step> above_;
  PageRef leaf_;
  std::size_t position_ = 0;
  std::uint32_t leavesSeen_ = 0;
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
  // cannot be computed exactly (see collation::Key::exact), the index leaves such rows out, or the entries
  // beside the place do not have the keys of their rows: then only the rows themselves can tell.
  bool lookup(std::span<const Value> values, std::vector<RowId>& rows) const;
  IndexWalk walk() const;
  // Number of entries, by walking.
  std::uint64_t countEntries() const;

  // The key of a row, as it would be stored; nullopt if the row has no entry (nulls ignored) or the key
  // cannot be computed.
  std::optional<std::string> keyOf(const Row& row) const;

 private:
  friend class IndexWalk;

  // An entry of a leaf; that behind the last one of the last leaf stands for the end.
  struct Place {
    PageRef leaf;
    std::size_t entry = 0;
  };

  IndexPage view(const PageRef& page) const;
  PageRef load(std::uint32_t number, std::uint32_t from) const { return file_.page(number, from); }
  // The leaf where entries from `probe` on begin.
  PageRef leafFor(std::string_view probe) const;
  // The leaf that `leaf` links to.
  PageRef leafAfter(const PageRef& leaf) const;
  // That a leaf and the one behind it are linked and ordered rightly.
  void checkNeighbours(const PageRef& leaf, const PageRef& behind) const;
  // That all entries of the leaf before are less than `probe`.
  void checkLeafBefore(const IndexPage& leaf, std::string_view probe) const;
  // The first entry that is not less than `probe`.
  Place findFirst(std::string_view probe) const;
  // Appends the rows of all entries from `place` on that start with `probe`; moves `place` behind them.
  void collect(std::string_view probe, Place& place, std::vector<RowId>& rows) const;
  // Whether the entry has the key of the row that it leads to. True also where that cannot be told, and at
  // the end.
  bool hasKeyOfItsRow(const Place& place) const;
  bool beforeHasKeyOfItsRow(const Place& place) const;
  // The probe for `lookup`; false where `lookup` has to give up.
  bool probeFor(std::span<const Value> values, std::string& probe) const;

  const Table& table_;
  const PageFile& file_;
  std::size_t number_;
  bool computable_ = false;
};

}  // namespace jet
