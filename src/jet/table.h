#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "jet/table_definition.h"
#include "jet/warning.h"

namespace jet {

class Index;
class Table;

// One row as it stands on its page; values are decoded when asked for. Cheap to move, keeps its page alive.
// The table must outlive it.
class Row {
 public:
  Row() = default;

  RowId id() const { return id_; }
  // `position` is that of the column in TableDefinition::columns. Long values are followed to their pages.
  Value value(std::size_t position) const;
  bool isNull(std::size_t position) const;
  // Fast ways for hot loops; both answer "not null". `asLong` is for byte, integer and long columns,
  // `asText` for text and memo columns (the target's old content is replaced).
  bool asLong(std::size_t position, std::int32_t& target) const;
  bool asText(std::size_t position, Text& target) const;
  // The bytes of a value as they stand in the row (long values: their reference); nullopt for Null and for
  // booleans, which have none.
  std::optional<std::span<const std::uint8_t>> stored(std::size_t position) const;

 private:
  friend class Table;

  // Takes the row's outer parts from `bytes`; checks that they lie inside it.
  void parse();
  void parseJet3(bool hasVariablePart);
  bool maskBit(const ColumnDefinition& column) const;
  // False: null.
  bool find(const ColumnDefinition& column, std::span<const std::uint8_t>& bytes) const;
  std::span<const std::uint8_t> variable(std::uint32_t index) const;
  // Where value `index` of the variable part begins; that of the last one plus 1 is the end of the part.
  std::uint32_t variableStart(std::uint32_t index) const;
  ByteReader reader() const { return {bytes_, page_->number}; }

  const Table* table_ = nullptr;
  PageRef page_;  // the page with the row's bytes (not the head's, when the row has moved)
  RowId id_;
  std::span<const std::uint8_t> bytes_;
  std::uint16_t columnCount_ = 0, variableCount_ = 0;
  std::uint32_t variableTable_ = 0;  // where the offset of the first variable value stands
  std::uint32_t valuesEnd_ = 0;      // no value reaches beyond
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
  explicit TableScan(const Table& table);
  bool nextPage();

  const Table* table_;
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
  // Whether there is a live row of this table at `id` now.
  bool hasRow(RowId id) const;
  // The row whose head slot is `id` (from an index or an earlier scan). Error(Damaged) if there is no live
  // row of this table.
  Row fetch(RowId id) const;
  // The same into a row that may hold another one already: spares some work in hot loops.
  void fetch(RowId id, Row& row) const;
  // One per IndexDefinition, in that order.
  const Index& index(std::size_t i) const;

 private:
  friend class TableScan;
  friend class Row;
  // Fills `row` from the live slot `id` of `page`, its head; follows it where it has moved to.
  void open(const PageRef& page, RowId id, std::uint16_t slotEntry, Row& row) const;
  void checkRowCount(std::uint64_t rows) const;
  void warn(const std::string& sentence) const;

  const PageFile& file_;
  Text name_;
  TableDefinition definition_;
  WarningSink warn_;
  // Rows with fewer columns than this were written before the table had its first variable column, and have
  // no variable part.
  std::uint32_t columnsWithVariablePart_ = 0;
  mutable std::optional<std::uint64_t> staleCountProven_;  // rows that an index has confirmed
  std::vector<std::unique_ptr<Index>> indexes_;
};

}  // namespace jet
