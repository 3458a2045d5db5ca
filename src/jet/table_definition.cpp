#include "jet/table_definition.h"

#include <algorithm>

#include "jet/text_codec.h"

namespace jet {
namespace {

constexpr std::size_t chainHeader = 8;  // bytes of a continuation page before its content
constexpr std::size_t nextPageOffset = 4;
// 255 columns and 32 indexes with their names stay far below.
constexpr std::size_t largestDefinition = 1u << 20;
constexpr std::uint32_t largestColumnCount = 255;
constexpr std::uint32_t largestIndexCount = 1024;  // names may share a tree, so there can be more than 32
constexpr std::size_t indexColumnSlots = 10;
constexpr std::size_t columnPrecision = 11;                                   // both versions
constexpr std::size_t columnSortOrderVersion = 14, columnExtendedFlags = 16;  // Jet 4 only
constexpr std::uint8_t compressFlag = 0x01;
constexpr std::uint16_t unusedColumn = 0xFFFF;

// Access writes 4 where there is no relation at all.
bool isCascade(std::uint8_t option) { return option == 1 || option == 2; }

// The whole first page and what follows the headers of the others.
std::vector<std::uint8_t> joinChain(const PageFile& file, std::uint32_t first) {
  PageRef page = file.page(first, first, PageType::TableDefinition);
  std::vector<std::uint8_t> joined = page->bytes;
  const std::uint32_t length = page->reader().u32(file.format().tdefLength);
  page->reader().check(length <= largestDefinition, "a table definition is too long");
  std::vector<std::uint32_t> seen{first};
  while (joined.size() < length) {
    const std::uint32_t next = page->reader().u32(nextPageOffset);
    page->reader().check(next != 0, "a table definition ends early");
    page->reader().check(std::find(seen.begin(), seen.end(), next) == seen.end(),
                         "the pages of a table definition run in a circle");
    seen.push_back(next);
    page = file.page(next, page->number, PageType::TableDefinition);
    joined.insert(joined.end(), page->bytes.begin() + chainHeader, page->bytes.end());
  }
  joined.resize(length);
  return joined;
}

// Reads the sections one after another; `offset_` is the place reached.
class DefinitionReader {
 public:
  DefinitionReader(std::span<const std::uint8_t> joined, std::uint32_t page, const PageFile& file)
      : bytes_(joined, page), format_(file.format()), file_(file) {
    definition_.page = page;
  }

  TableDefinition read() {
    readHead();
    offset_ = format_.tdefSections + std::size_t{realIndexCount_} * format_.entryCountSize;
    for (std::uint32_t i = 0; i < columnCount_; ++i) readColumn();
    for (ColumnDefinition& column : definition_.columns) column.name = readName();
    checkColumns();
    sortColumns();
    for (std::uint32_t i = 0; i < realIndexCount_; ++i) readRealIndex();
    for (std::uint32_t i = 0; i < logicalIndexCount_; ++i) readLogicalIndex();
    for (IndexName& index : definition_.indexNames) index.name = readName();
    readLongValueMaps();
    return std::move(definition_);
  }

 private:
  void readHead() {
    definition_.rowCount = bytes_.u32(format_.tdefRowCount);
    definition_.lastAutoNumber = bytes_.u32(format_.tdefAutoNumber);
    definition_.maxColumns = bytes_.u16(format_.tdefMaxColumns);
    definition_.variableColumns = bytes_.u16(format_.tdefVariableColumns);
    definition_.ownedMap = bytes_.u32(format_.tdefOwnedPages);
    definition_.freeMap = bytes_.u32(format_.tdefFreePages);
    columnCount_ = bytes_.u16(format_.tdefColumnCount);
    logicalIndexCount_ = bytes_.u32(format_.tdefLogicalIndexCount);
    realIndexCount_ = bytes_.u32(format_.tdefRealIndexCount);
    bytes_.check(definition_.maxColumns <= largestColumnCount && columnCount_ <= definition_.maxColumns &&
                     definition_.variableColumns <= definition_.maxColumns,
                 "the numbers of columns of a table contradict each other");
    bytes_.check(realIndexCount_ <= largestIndexCount && logicalIndexCount_ <= largestIndexCount,
                 "a table has too many indexes");
  }

  std::size_t advance(std::size_t size) {
    const std::size_t start = offset_;
    offset_ += size;
    bytes_.check(offset_ <= bytes_.size(), "a table definition ends early");
    return start;
  }

  Text readName() {
    const std::size_t start = advance(format_.nameLengthSize);
    const std::size_t length = format_.nameLengthSize == 2 ? bytes_.u16(start) : bytes_.u8(start);
    const auto raw = bytes_.slice(advance(length), length);
    Text name;
    format_.version == 4 ? decodeText(raw, name) : decodeText1252(raw, name);
    return name;
  }

  void readColumn() {
    const ByteReader bytes = bytes_.sub(advance(format_.columnSize), format_.columnSize);
    ColumnDefinition column;
    column.type = static_cast<ColumnType>(bytes.u8(0));
    column.number = bytes.u16(format_.columnNumber);
    column.variableIndex = bytes.u16(format_.columnVariableIndex);
    column.ordinal = bytes.u16(format_.columnOrdinal);
    column.fixedOffset = bytes.u16(format_.columnFixedOffset);
    column.length = bytes.u16(format_.columnLength);
    column.flags = bytes.u8(format_.columnFlags);
    if (column.type == ColumnType::Numeric) {
      column.precision = bytes.u8(columnPrecision);
      column.scale = bytes.u8(columnPrecision + 1);
    } else {
      column.sortOrder = bytes.u16(format_.columnSortOrder);
    }
    if (format_.version == 4) {
      column.sortOrderVersion = bytes.u8(columnSortOrderVersion);
      column.compressed = (bytes.u8(columnExtendedFlags) & compressFlag) != 0;
    }
    definition_.columns.push_back(std::move(column));
  }

  void checkColumns() const {
    std::vector<bool> numbers(definition_.maxColumns), variables(definition_.variableColumns);
    for (const ColumnDefinition& column : definition_.columns) {
      bytes_.check(column.number < definition_.maxColumns && !numbers[column.number],
                   "a column's number is out of range or twice there");
      numbers[column.number] = true;
      if (column.type == ColumnType::Boolean) continue;
      if (!column.isFixed()) {
        bytes_.check(column.variableIndex < definition_.variableColumns && !variables[column.variableIndex],
                     "a variable column's place is out of range or twice there");
        variables[column.variableIndex] = true;
        continue;
      }
      bytes_.check(!column.isLongValue(), "a long value column is marked as fixed");
      const std::uint32_t size = sizeOf(column.type).value_or(column.length);
      bytes_.check(column.fixedOffset + size <= format_.pageSize, "a fixed column lies outside every row");
    }
  }

  // The engine's own tables have no display order: there the numbers count.
  void sortColumns() {
    std::stable_sort(definition_.columns.begin(), definition_.columns.end(),
                     [](const ColumnDefinition& left, const ColumnDefinition& right) {
                       return left.ordinal != right.ordinal ? left.ordinal < right.ordinal
                                                            : left.number < right.number;
                     });
  }

  std::size_t positionOf(std::uint16_t columnNumber) const {
    const auto found =
        std::find_if(definition_.columns.begin(), definition_.columns.end(),
                     [&](const ColumnDefinition& column) { return column.number == columnNumber; });
    bytes_.check(found != definition_.columns.end(), "an index is over a column that does not exist");
    return static_cast<std::size_t>(found - definition_.columns.begin());
  }

  void readRealIndex() {
    const ByteReader bytes = bytes_.sub(advance(format_.realIndexSize), format_.realIndexSize);
    IndexDefinition index;
    for (std::size_t i = 0; i < indexColumnSlots; ++i) {
      const std::size_t slot = format_.realIndexColumns + 3 * i;
      const std::uint16_t number = bytes.u16(slot);
      if (number == unusedColumn) continue;
      index.columns.push_back({positionOf(number), bytes.u8(slot + 2) == 0});
    }
    bytes.check(!index.columns.empty(), "an index is over no column");
    index.ownedMap = bytes.u32(format_.realIndexOwnedPages);
    index.root = bytes.u32(format_.realIndexRoot);
    index.flags = bytes.u8(format_.realIndexFlags);
    bytes.check(index.root >= 1 && index.root < file_.pageCount(), "an index begins outside the file");
    definition_.indexes.push_back(std::move(index));
  }

  void readLogicalIndex() {
    const ByteReader bytes = bytes_.sub(advance(format_.logicalIndexSize), format_.logicalIndexSize);
    IndexName name;
    const std::uint32_t realIndex = bytes.u32(format_.logicalIndexNumber + 4);
    bytes.check(realIndex < definition_.indexes.size(), "an index name belongs to no index");
    name.realIndex = realIndex;
    name.number = bytes.u32(format_.logicalIndexNumber);
    name.kind = static_cast<IndexKind>(bytes.u8(format_.logicalIndexNumber + 19));
    name.relation.role = static_cast<RelationEnd::Role>(bytes.u8(format_.logicalIndexNumber + 8));
    name.relation.otherIndex = bytes.u32(format_.logicalIndexNumber + 9);
    name.relation.otherDefinition = bytes.u32(format_.logicalIndexNumber + 13);
    name.relation.cascades = isCascade(bytes.u8(format_.logicalIndexNumber + 17)) ||
                             isCascade(bytes.u8(format_.logicalIndexNumber + 18));
    if (name.kind == IndexKind::PrimaryKey) definition_.indexes[realIndex].primaryKey = true;
    definition_.indexNames.push_back(std::move(name));
  }

  void readLongValueMaps() {
    for (;;) {
      const std::uint16_t number = bytes_.u16(advance(2));
      if (number == unusedColumn) return;
      const std::size_t maps = advance(8);
      for (ColumnDefinition& column : definition_.columns) {
        if (column.number != number) continue;
        column.longValueOwnedMap = bytes_.u32(maps);
        column.longValueFreeMap = bytes_.u32(maps + 4);
      }
    }
  }

  ByteReader bytes_;
  const Format& format_;
  const PageFile& file_;
  std::size_t offset_ = 0;
  std::uint32_t columnCount_ = 0, logicalIndexCount_ = 0, realIndexCount_ = 0;
  TableDefinition definition_;
};

}  // namespace

TableDefinition readTableDefinition(const PageFile& file, std::uint32_t page) {
  const std::vector<std::uint8_t> joined = joinChain(file, page);
  return DefinitionReader(joined, page, file).read();
}

}  // namespace jet
