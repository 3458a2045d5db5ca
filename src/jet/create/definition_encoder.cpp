#include "jet/create/definition_encoder.h"

#include <algorithm>
#include <numeric>

#include "jet/encode/bytes.h"

namespace jet::create {

namespace {

constexpr std::uint32_t columnMark = 1625, indexMark = 1923;
constexpr std::size_t pageHeader = 8;
constexpr std::size_t indexColumnSlots = 10;
constexpr std::uint8_t alwaysSetIndexFlag = 0x80;
constexpr std::uint8_t compressFlag = 0x01;
constexpr std::uint8_t noCascade = 4;  // what Access writes where there is no relation
constexpr std::uint16_t unusedColumn = 0xFFFF, endOfList = 0xFFFF;

Text lowered(Text name) {
  for (char16_t& unit : name) {
    if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit + (u'a' - u'A'));
  }
  return name;
}

template <typename Named>
std::vector<std::size_t> orderByName(const std::vector<Named>& items) {
  std::vector<std::size_t> order(items.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::sort(order, {}, [&](std::size_t i) { return lowered(items[i].name); });
  return order;
}

void appendHead(Bytes& target, const TableDefinition& definition, TableKind kind) {
  append16(target, static_cast<std::uint32_t>(PageType::TableDefinition) | 1 << 8);
  append16(target, 0);  // free bytes, next page, length: known later
  append32(target, 0);
  append32(target, 0);
  append32(target, columnMark);
  append32(target, definition.rowCount);
  append32(target, definition.lastAutoNumber);
  append32(target, 1);  // automatic numbers work
  target.resize(target.size() + 12);
  append8(target, static_cast<std::uint32_t>(kind));
  append16(target, definition.maxColumns);
  append16(target, definition.variableColumns);
  append16(target, static_cast<std::uint32_t>(definition.columns.size()));
  append32(target, static_cast<std::uint32_t>(definition.indexNames.size()));
  append32(target, static_cast<std::uint32_t>(definition.indexes.size()));
  append32(target, definition.ownedMap);
  append32(target, definition.freeMap);
}

void appendColumn(Bytes& target, const ColumnDefinition& column) {
  append8(target, static_cast<std::uint32_t>(column.type));
  append32(target, columnMark);
  append16(target, column.number);
  append16(target, column.variableIndex);
  append16(target, column.ordinal);
  if (column.type == ColumnType::Numeric) {
    append8(target, column.precision);
    append8(target, column.scale);
  } else {
    append16(target, column.sortOrder);
  }
  append8(target, 0);
  append8(target, column.sortOrderVersion);
  append8(target, column.flags);
  append8(target, column.compressed ? compressFlag : 0);
  append32(target, 0);
  append16(target, column.fixedOffset);
  append16(target, column.length);
}

void appendRealIndex(Bytes& target, const IndexDefinition& index,
                     const std::vector<ColumnDefinition>& columns) {
  append32(target, indexMark);
  for (std::size_t slot = 0; slot < indexColumnSlots; ++slot) {
    const bool used = slot < index.columns.size();
    append16(target, used ? columns[index.columns[slot].column].number : unusedColumn);
    append8(target, used && !index.columns[slot].descending ? 1 : 0);
  }
  append32(target, index.ownedMap);
  append32(target, index.root);
  append32(target, 0);
  append8(target, index.flags | alwaysSetIndexFlag);
  append8(target, 0);
  append32(target, 0);
}

void appendLogicalIndex(Bytes& target, std::size_t number, const IndexName& index) {
  append32(target, columnMark);
  append32(target, static_cast<std::uint32_t>(number));
  append32(target, static_cast<std::uint32_t>(index.realIndex));
  append8(target, 0);            // no relation
  append32(target, 0xFFFFFFFF);  // no partner index
  append32(target, 0);
  append8(target, noCascade);
  append8(target, noCascade);
  append8(target, static_cast<std::uint32_t>(index.kind));
  append32(target, 0);
}

void appendIndexes(Bytes& target, const TableDefinition& definition) {
  for (const IndexDefinition& index : definition.indexes) appendRealIndex(target, index, definition.columns);
  const auto order = orderByName(definition.indexNames);
  for (const std::size_t i : order) appendLogicalIndex(target, i, definition.indexNames[i]);
  for (const std::size_t i : order) appendName(target, definition.indexNames[i].name);
}

}  // namespace

Bytes encodeDefinition(const TableDefinition& definition, const std::vector<std::uint32_t>& distinctKeys,
                       TableKind kind) {
  std::vector<std::size_t> columns(definition.columns.size());
  std::iota(columns.begin(), columns.end(), std::size_t{0});
  if (kind == TableKind::System) columns = orderByName(definition.columns);

  Bytes target;
  appendHead(target, definition, kind);
  for (std::size_t i = 0; i < definition.indexes.size(); ++i) {
    append32(target, 0);
    append32(target, i < distinctKeys.size() ? distinctKeys[i] : 0);
    append32(target, 0);
  }
  for (const std::size_t i : columns) appendColumn(target, definition.columns[i]);
  for (const std::size_t i : columns) appendName(target, definition.columns[i].name);
  appendIndexes(target, definition);
  for (const std::size_t i : columns) {
    const ColumnDefinition& column = definition.columns[i];
    if (!column.isLongValue()) continue;
    append16(target, column.number);
    append32(target, column.longValueOwnedMap);
    append32(target, column.longValueFreeMap);
  }
  append16(target, endOfList);
  put32(target, jet4.tdefLength, static_cast<std::uint32_t>(target.size()));
  return target;
}

void writeDefinition(PageArray& pages, std::uint32_t page, const Bytes& definition) {
  std::size_t offset = 0;
  while (true) {
    const std::size_t header = offset == 0 ? 0 : pageHeader;
    const std::size_t part = std::min<std::size_t>(definition.size() - offset, pageSize - header);
    std::copy_n(definition.begin() + static_cast<std::ptrdiff_t>(offset), part,
                pages.page(page).begin() + static_cast<std::ptrdiff_t>(header));
    offset += part;
    const std::uint32_t next = offset < definition.size() ? pages.allocate() : 0;
    const std::span<std::uint8_t> bytes = pages.page(page);
    const std::size_t used = header + part;
    bytes[0] = static_cast<std::uint8_t>(PageType::TableDefinition);
    bytes[1] = 1;
    put16(bytes, 2,
          static_cast<std::uint32_t>(used + pageHeader < pageSize ? pageSize - used - pageHeader : 0));
    put32(bytes, 4, next);
    if (next == 0) return;
    page = next;
  }
}

}  // namespace jet::create
