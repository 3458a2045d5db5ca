#include "jet/create/table_writer.h"

#include <algorithm>

#include "jet/encode/bytes.h"
#include "jet/encode/data_page_writer.h"
#include "jet/encode/row_encoder.h"
#include "jet/error.h"

namespace jet::create {

namespace {

constexpr std::uint16_t worthwhileSpace = 256;  // bytes; a page with less is not offered for new rows

constexpr std::size_t pointerLength = 4;

void eraseColumn(TableDefinition& definition, std::size_t position) {
  for (IndexDefinition& index : definition.indexes) {
    for (IndexColumn& column : index.columns) {
      if (column.column == position) throw Error(ErrorKind::Constraint, "an index needs the column");
      if (column.column > position) --column.column;
    }
  }
  definition.columns.erase(definition.columns.begin() + static_cast<std::ptrdiff_t>(position));
}

}  // namespace

TableWriter::TableWriter(PageArray& pages, UsageMapRows& maps, std::uint32_t definitionPage,
                         TableLayout layout, TableKind kind)
    : pages_(pages), maps_(maps), layout_(std::move(layout)), kind_(kind) {
  layout_.definition.page = definitionPage;
  fixedBytes_ = fixedBytesOf(layout_.definition);
  addMaps();
}

// The order of the maps is that of Access: the system tables have theirs for long values before those of the
// indexes, user tables behind them.
void TableWriter::addMaps() {
  TableDefinition& definition = layout_.definition;
  definition.ownedMap = maps_.add();
  definition.freeMap = maps_.add();
  const auto addAllLongValueMaps = [&] {
    for (ColumnDefinition& column : definition.columns) addLongValueMaps(column);
  };
  if (kind_ == TableKind::System) addAllLongValueMaps();
  for (IndexDefinition& index : definition.indexes) {
    index.ownedMap = maps_.add();
    index.root = pages_.allocate();
    indexes_.emplace_back(index.isUnique());
  }
  if (kind_ == TableKind::User) addAllLongValueMaps();
}

void TableWriter::addLongValueMaps(ColumnDefinition& column) {
  if (!column.isLongValue()) return;
  column.longValueOwnedMap = maps_.add();
  column.longValueFreeMap = maps_.add();
  longValues_.emplace(column.number, LongValueStore(pages_));
}

void TableWriter::addDataPage() {
  dataPages_.push_back(pages_.allocate());
  DataPageWriter::format(pages_.page(dataPages_.back()), layout_.definition.page);
}

RowId TableWriter::insert(std::vector<Value> values) {
  prepare(values);
  checkKeys(values);
  const Bytes row = encode(values);
  const RowId id = place(row, 0);
  addKeys(id);
  ++layout_.definition.rowCount;
  return id;
}

void TableWriter::prepare(std::vector<Value>& values) {
  TableDefinition& definition = layout_.definition;
  if (values.size() != definition.columns.size()) {
    throw Error(ErrorKind::TypeMismatch, "a row needs one value per column");
  }
  for (std::size_t i = 0; i < values.size(); ++i) {
    const ColumnDefinition& column = definition.columns[i];
    if (column.isAutoNumber() && isNull(values[i])) {
      values[i] = static_cast<std::int32_t>(definition.lastAutoNumber + 1);
    }
    values[i] = storableValue(std::move(values[i]), column);
    checkRules(values[i], i);
    if (column.isAutoNumber()) {
      const std::int32_t number = std::get<std::int32_t>(values[i]);
      if (number > static_cast<std::int32_t>(definition.lastAutoNumber)) {
        definition.lastAutoNumber = static_cast<std::uint32_t>(number);
      }
    }
  }
}

void TableWriter::checkRules(const Value& value, std::size_t column) const {
  const ColumnRules& rules = layout_.rules[column];
  if (rules.required && isNull(value)) throw Error(ErrorKind::Constraint, "a required value is missing");
  const Text* text = std::get_if<Text>(&value);
  if (!rules.allowZeroLength && text != nullptr && text->empty()) {
    throw Error(ErrorKind::Constraint, "an empty text where none is allowed");
  }
}

void TableWriter::checkKeys(const std::vector<Value>& values) {
  const TableDefinition& definition = layout_.definition;
  keys_.resize(definition.indexes.size());
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    makeRowKey(definition, definition.indexes[i], values, keys_[i]);
    requireKeyValues(definition.indexes[i], keys_[i]);
  }
}

void TableWriter::addKeys(RowId row) {
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    if (keys_[i].stored) indexes_[i].add(keys_[i].bytes, row, keys_[i].exempt);
  }
}

void TableWriter::encodeContents(const std::vector<Value>& values) {
  const auto& columns = layout_.definition.columns;
  contents_.resize(columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) contents_[i].set(values[i], columns[i]);
}

Bytes TableWriter::encode(const std::vector<Value>& values) {
  const TableDefinition& definition = layout_.definition;
  encodeContents(values);
  const bool inlineAllowed = allowsInline(definition, fixedBytes_, contents_);
  return assembleRow(
      definition, fixedBytes_, variableOrder(definition), contents_, inlineAllowed,
      [&](Bytes& target, const ColumnDefinition& column, std::span<const std::uint8_t> content) {
        longValues_.at(column.number).append(target, content, inlineAllowed);
      });
}

RowId TableWriter::place(std::span<const std::uint8_t> row, std::uint16_t flags) {
  if (dataPages_.empty() || !DataPageWriter(pages_.page(dataPages_.back())).fits(row.size())) addDataPage();
  const std::uint32_t page = dataPages_.back();
  return {page, DataPageWriter(pages_.page(page)).append(row, flags)};
}

// Where a row's content stands: the head slot itself, or the one that it points to.
RowId TableWriter::bodyOf(RowId row) {
  if (!std::ranges::binary_search(dataPages_, row.page)) throw Error(ErrorKind::Limit, "no such row");
  DataPageWriter page(pages_.page(row.page));
  if (row.slot >= page.slotCount() || (page.flags(row.slot) & slot_flag::body) != 0) {
    throw Error(ErrorKind::Limit, "no such row");
  }
  if ((page.flags(row.slot) & slot_flag::pointer) == 0) return row;
  return RowId::fromPointer(get32(page.row(row.slot), 0));
}

void TableWriter::releaseLongValues(std::span<const std::uint8_t> row) {
  for (const ColumnDefinition& column : layout_.definition.columns) {
    if (column.isLongValue()) longValues_.at(column.number).release(storedVariable(row, column));
  }
}

void TableWriter::erase(RowId row) {
  const RowId body = bodyOf(row);
  releaseLongValues(DataPageWriter(pages_.page(body.page)).row(body.slot));
  if (body != row) DataPageWriter(pages_.page(body.page)).erase(body.slot);
  DataPageWriter(pages_.page(row.page)).erase(row.slot);
  removed_.push_back(row);
  --layout_.definition.rowCount;
}

void TableWriter::move(RowId row) {
  const RowId body = bodyOf(row);
  const auto stored = DataPageWriter(pages_.page(body.page)).row(body.slot);
  const Bytes content(stored.begin(), stored.end());
  if (content.size() < pointerLength) throw Error(ErrorKind::Limit, "a row too short to become a pointer");
  if (dataPages_.back() == body.page || dataPages_.back() == row.page) addDataPage();
  const RowId target = place(content, slot_flag::body);
  Bytes pointer;
  append32(pointer, target.pointer());
  if (body != row) DataPageWriter(pages_.page(body.page)).erase(body.slot);
  DataPageWriter(pages_.page(row.page)).replace(row.slot, pointer, slot_flag::pointer);
}

void TableWriter::addColumn(const ColumnSpec& spec) {
  appendColumn(layout_, spec);
  ColumnDefinition& column = layout_.definition.columns.back();
  // Deleted columns keep their place in the rows.
  if (column.isFixed() && column.type != ColumnType::Boolean) {
    column.fixedOffset = static_cast<std::uint16_t>(fixedBytes_);
    fixedBytes_ += column.length;
  }
  addLongValueMaps(column);
}

void TableWriter::deleteColumn(const Text& name) {
  const std::size_t position = findColumn(layout_.definition, name);
  const std::uint16_t number = layout_.definition.columns[position].number;
  eraseColumn(layout_.definition, position);
  layout_.rules.erase(layout_.rules.begin() + static_cast<std::ptrdiff_t>(position));
  if (const auto values = longValues_.find(number); values != longValues_.end()) {
    for (const std::uint32_t page : values->second.ownedPages()) pages_.release(page);
    longValues_.erase(values);
  }
}

std::vector<std::uint32_t> TableWriter::withSpace(const std::vector<std::uint32_t>& owned) {
  std::vector<std::uint32_t> found;
  for (const std::uint32_t page : owned) {
    if (page == owned.back() || DataPageWriter(pages_.page(page)).freeBytes() >= worthwhileSpace) {
      found.push_back(page);
    }
  }
  return found;
}

void TableWriter::finish() {
  TableDefinition& definition = layout_.definition;
  std::ranges::sort(removed_);
  std::vector<std::uint32_t> distinctKeys;
  for (std::size_t i = 0; i < indexes_.size(); ++i) {
    const IndexDefinition& index = definition.indexes[i];
    const auto tree = indexes_[i].build(pages_, definition.page, index.root, removed_);
    distinctKeys.push_back(tree.distinctKeys);
    writeUsageMap(pages_, index.ownedMap, tree.pages);
  }
  writeUsageMap(pages_, definition.ownedMap, dataPages_);
  writeUsageMap(pages_, definition.freeMap, withSpace(dataPages_));
  for (const ColumnDefinition& column : definition.columns) {
    if (!column.isLongValue()) continue;
    const auto& owned = longValues_.at(column.number).ownedPages();
    writeUsageMap(pages_, column.longValueOwnedMap, owned);
    writeUsageMap(pages_, column.longValueFreeMap, withSpace(owned));
  }
  indexes_.clear();
  writeDefinition(pages_, definition.page, encodeDefinition(definition, distinctKeys, kind_));
}

}  // namespace jet::create
