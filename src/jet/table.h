#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "jet/table_definition.h"

namespace jet {

class Index;

using WarningSink = std::function<void(const std::string&)>;

// One row as it stands on its page; values are decoded when asked for. Cheap to move, keeps its page alive.
// The table must outlive it.
class Row {
 public:
  Row() = default;

  RowId id() const { return id_; }
  // `column` is the position in TableDefinition::columns. Long values are followed to their pages.
  Value value(std::size_t column) const;
  bool isNull(std::size_t column) const;
  // Fast ways for hot loops; both answer "not null". `asLong` is for byte, integer and long columns,
  // `asText` for text and memo columns (the target's old content is replaced).
  bool asLong(std::size_t column, std::int32_t& target) const;
  bool asText(std::size_t column, Text& target) const;

 private:
  friend class Table;
  friend class TableScan;
  const class Table* table_ = nullptr;
  PageRef page_;  // the page with the row's bytes (not the head's, when the row has moved)
  RowId id_;
  std::span<const std::uint8_t> bytes_;
  std::uint16_t columnCount_ = 0, variableCount_ = 0;
  std::uint32_t variableTable_ = 0;  // where the variable offsets stand, see row.cpp
  std::uint32_t nullMask_ = 0;
};

// All rows in stored order (page, slot).
class TableScan {
 public:
  // False at the end. The end checks the number of rows: where it agrees neither with the table's own count
  // nor with a complete index of it, the scan fails with Error(Damaged); a count that is merely stale is a
  // warning.
  bool next(Row& row);

 private:
  friend class Table;
  explicit TableScan(const class Table& table);
  const class Table* table_;
  std::vector<std::uint32_t> pages_;
  std::size_t nextPage_ = 0;
  PageRef page_;
  std::uint32_t slot_ = 0, slotCount_ = 0;
  std::uint64_t rows_ = 0;
  bool finished_ = false;
};

// A table of an open database; lives as long as it.
class Table {
 public:
  Table(const PageFile& file, Text name, TableDefinition definition, WarningSink warn);
  ~Table();

  const Text& name() const { return name_; }
  const TableDefinition& definition() const { return definition_; }
  const PageFile& file() const { return file_; }
  // Position of a column by name without case; nullopt if there is none.
  std::optional<std::size_t> findColumn(std::u16string_view name) const;

  TableScan scan() const;
  // The row whose head slot is `id` (from an index or an earlier scan). Error(Damaged) if there is no live
  // row of this table.
  Row fetch(RowId id) const;
  // One per IndexDefinition, in that order.
  const Index& index(std::size_t i) const;

 private:
  friend class TableScan;
  friend class Row;
  // Reads the row whose content stands in `slot` of `page`; follows pointers.
  Row open(const PageRef& page, RowId id, std::uint16_t slotEntry) const;
  void checkRowCount(std::uint64_t rows) const;

  const PageFile& file_;
  Text name_;
  TableDefinition definition_;
  WarningSink warn_;
  mutable bool countChecked_ = false;
  std::vector<std::unique_ptr<Index>> indexes_;
};

}  // namespace jet
