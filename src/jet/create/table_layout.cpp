#include "jet/create/table_layout.h"

#include <algorithm>

#include "jet/collation.h"
#include "jet/encode/row_contents.h"
#include "jet/error.h"

namespace jet::create {

namespace {

constexpr std::size_t longestName = 64, mostColumns = 255, mostIndexes = 32, mostIndexColumns = 10;
constexpr std::uint16_t mostCharacters = 255;

std::uint16_t storedLength(const ColumnSpec& spec) {
  if (const auto size = sizeOf(spec.type)) return *size;
  const std::uint16_t characters = spec.characters == 0 ? mostCharacters : spec.characters;
  switch (spec.type) {
    case ColumnType::Binary:
      return characters;
    case ColumnType::Text:
      return static_cast<std::uint16_t>(2 * characters);
    case ColumnType::Ole:
    case ColumnType::Memo:
      return 0;
    default:
      throw Error(ErrorKind::Limit, "a column has an unknown type");
  }
}

bool isText(ColumnType type) { return type == ColumnType::Text || type == ColumnType::Memo; }

bool isAlwaysVariable(ColumnType type) {
  return isText(type) || type == ColumnType::Binary || type == ColumnType::Ole;
}

std::uint16_t nextFixedOffset(const TableLayout& layout) {
  return static_cast<std::uint16_t>(encode::fixedBytesOf(layout.definition));
}

void checkColumn(const TableLayout& layout, const ColumnSpec& spec) {
  checkName(spec.name);
  for (const ColumnDefinition& other : layout.definition.columns) {
    if (collation::equal(other.name, spec.name)) throw Error(ErrorKind::Constraint, "a column name twice");
  }
  if (layout.definition.maxColumns >= mostColumns) throw Error(ErrorKind::Limit, "more than 255 columns");
  if (spec.characters > mostCharacters) throw Error(ErrorKind::Limit, "a column longer than 255 characters");
  if (spec.autoNumber && spec.type != ColumnType::Long) {
    throw Error(ErrorKind::TypeMismatch, "automatic numbers are long integers");
  }
}

void appendIndex(TableLayout& layout, const IndexSpec& spec) {
  checkName(spec.name);
  if (spec.columns.empty() || spec.columns.size() > mostIndexColumns) {
    throw Error(ErrorKind::Limit, "an index has 1 to 10 columns");
  }
  TableDefinition& definition = layout.definition;
  for (const IndexName& other : definition.indexNames) {
    if (collation::equal(other.name, spec.name)) throw Error(ErrorKind::Constraint, "an index name twice");
  }
  IndexDefinition index;
  for (const Text& column : spec.columns) {
    const bool descending = column.starts_with(u'-');
    index.columns.push_back({findColumn(definition, column.substr(descending ? 1 : 0)), descending});
  }
  index.primaryKey = spec.primaryKey;
  if (spec.primaryKey) index.flags = index_flag::unique | index_flag::required;
  if (spec.unique) index.flags |= index_flag::unique;
  if (spec.ignoreNulls) index.flags |= index_flag::ignoreNulls;
  definition.indexNames.push_back(
      {spec.name, definition.indexes.size(), spec.primaryKey ? IndexKind::PrimaryKey : IndexKind::Normal});
  definition.indexes.push_back(std::move(index));
}

}  // namespace

void checkName(const Text& name) {
  const bool bad = name.empty() || name.size() > longestName || name.front() == u' ' ||
                   std::ranges::any_of(name, [](char16_t unit) {
                     return unit < u' ' || Text(u".![]`").find(unit) != Text::npos;
                   });
  if (bad) throw Error(ErrorKind::Limit, "not a name that the format allows");
}

void appendColumn(TableLayout& layout, const ColumnSpec& spec) {
  checkColumn(layout, spec);
  TableDefinition& definition = layout.definition;
  ColumnDefinition column;
  column.name = spec.name;
  column.type = spec.type;
  column.number = column.ordinal = definition.maxColumns++;
  column.length = storedLength(spec);
  column.flags = column_flag::updatable;
  column.variableIndex = definition.variableColumns;
  if (isAlwaysVariable(spec.type) || (!spec.fixed && spec.type != ColumnType::Boolean)) {
    ++definition.variableColumns;
  } else {
    column.flags |= column_flag::fixed;
    column.fixedOffset = spec.type == ColumnType::Boolean ? std::uint16_t{0} : nextFixedOffset(layout);
  }
  if (spec.autoNumber) column.flags |= column_flag::autoNumber;
  column.compressed = spec.compressed && isText(spec.type);
  if (spec.type == ColumnType::Numeric) {
    column.precision = spec.precision;
    column.scale = spec.scale;
  }
  definition.columns.push_back(std::move(column));
  layout.rules.push_back({spec.defaultValue, spec.required, spec.allowZeroLength});
}

TableLayout layoutOf(const TableSpec& spec) {
  checkName(spec.name);
  TableLayout layout;
  layout.name = spec.name;
  for (const ColumnSpec& column : spec.columns) appendColumn(layout, column);
  if (spec.indexes.size() > mostIndexes) throw Error(ErrorKind::Limit, "more than 32 indexes");
  for (const IndexSpec& index : spec.indexes) appendIndex(layout, index);
  return layout;
}

std::size_t findColumn(const TableDefinition& definition, const Text& name) {
  for (std::size_t i = 0; i < definition.columns.size(); ++i) {
    if (collation::equal(definition.columns[i].name, name)) return i;
  }
  throw Error(ErrorKind::NoSuchColumn, "no such column");
}

}  // namespace jet::create
