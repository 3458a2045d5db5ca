#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jet/format.h"
#include "jet/page_file.h"
#include "jet/row_id.h"
#include "jet/value.h"

namespace jet {

struct ColumnDefinition {
  Text name;
  ColumnType type{};
  std::uint16_t number = 0;         // the bit in the null mask
  std::uint16_t variableIndex = 0;  // variable columns only
  std::uint16_t ordinal = 0;        // place for display
  std::uint16_t fixedOffset = 0;    // fixed columns only, from the start of the fixed area
  std::uint16_t length = 0;         // bytes; 0 for memo and OLE
  std::uint8_t flags = 0;
  bool compressed = false;  // texts may be stored compressed
  std::uint16_t sortOrder = sortOrderGeneral;
  std::uint8_t sortOrderVersion = 0;
  std::uint8_t precision = 0, scale = 0;  // numeric only
  // Memo and OLE only: the maps of the pages with long values, 0 where there is none.
  std::uint32_t longValueOwnedMap = 0, longValueFreeMap = 0;

  bool isFixed() const { return (flags & column_flag::fixed) != 0; }
  bool isAutoNumber() const { return (flags & column_flag::autoNumber) != 0; }
  bool isLongValue() const { return type == ColumnType::Memo || type == ColumnType::Ole; }
};

struct IndexColumn {
  std::size_t column = 0;  // position in TableDefinition::columns
  bool descending = false;
};

// One B-tree. Several names may share it.
struct IndexDefinition {
  std::vector<IndexColumn> columns;
  std::uint32_t ownedMap = 0;  // pointer to its usage map
  std::uint32_t root = 0;
  std::uint8_t flags = 0;
  bool primaryKey = false;

  bool isUnique() const { return primaryKey || (flags & index_flag::unique) != 0; }
  bool ignoresNulls() const { return (flags & index_flag::ignoreNulls) != 0; }
};

enum class IndexKind : std::uint8_t { Normal = 0, PrimaryKey = 1, ForeignKey = 2 };

// An enforced relation, as the definition of one of its two tables tells it.
struct RelationEnd {
  enum class Role : std::uint8_t { None = 0, Referenced = 1, Referencing = 2 };

  Role role{};                        // of this table
  std::uint32_t otherIndex = 0;       // IndexName::number in the other table
  std::uint32_t otherDefinition = 0;  // definition page of the other table
  bool cascades = false;              // changes of keys, or deletions, are to be passed on
};

struct IndexName {
  Text name;
  std::size_t realIndex = 0;  // position in TableDefinition::indexes
  IndexKind kind{};
  std::uint32_t number = 0;
  RelationEnd relation = {};
};

struct TableDefinition {
  std::uint32_t page = 0;
  std::uint32_t rowCount = 0;  // a hint; see Table::scan
  std::uint32_t lastAutoNumber = 0;
  std::uint16_t maxColumns = 0;  // deleted ones included
  std::uint16_t variableColumns = 0;
  std::uint32_t ownedMap = 0, freeMap = 0;
  std::vector<ColumnDefinition> columns;  // in display order
  std::vector<IndexDefinition> indexes;
  std::vector<IndexName> indexNames;
};

// Reads the chain of definition pages that starts at `page`. Errors: Damaged.
TableDefinition readTableDefinition(const PageFile& file, std::uint32_t page);

}  // namespace jet
