#include "fuzz/jet3_file.h"

#include <string>
#include <string_view>

#include "jet/hand_made_file.h"

namespace jet::fuzz {
namespace {

using test::inlineMap;
using Row = std::vector<std::uint8_t>;

// The pages, and the rows of the page with the maps.
enum Pages : std::uint32_t {
  freePages = 1,
  catalogDefinition,
  definition,
  catalogRows,
  rows,
  indexLeaf,
  longValues,
  maps,
  count
};
enum Maps : std::uint32_t { catalogOwned, tableOwned, indexOwned, longValuesOwned, nothing };

struct Column {
  std::string_view name;
  ColumnType type;
};

std::string littleEndian(std::uint32_t number) {
  std::string bytes;
  for (unsigned i = 0; i < 4; ++i) bytes += static_cast<char>(number >> (8 * i));
  return bytes;
}

std::uint32_t map(Maps row) { return maps << 8 | row; }

// Writes a definition on one page: the first column is fixed, the others variable, as the rows have them.
class DefinitionPage {
 public:
  DefinitionPage(test::HandMade& file, std::uint32_t page)
      : file_(file), page_(page), at_(jet3.tdefSections) {
    file.setType(page, PageType::TableDefinition);
  }

  void head(std::uint32_t rowCount, Maps owned, std::uint32_t columns, std::uint32_t indexes) {
    file_.put(page_, jet3.tdefRowCount, rowCount, 4);
    file_.put(page_, jet3.tdefMaxColumns, columns, 2);
    file_.put(page_, jet3.tdefVariableColumns, columns - 1, 2);
    file_.put(page_, jet3.tdefColumnCount, columns, 2);
    file_.put(page_, jet3.tdefLogicalIndexCount, indexes, 4);
    file_.put(page_, jet3.tdefRealIndexCount, indexes, 4);
    file_.put(page_, jet3.tdefOwnedPages, map(owned), 4);
    file_.put(page_, jet3.tdefFreePages, map(nothing), 4);
    at_ += indexes * jet3.entryCountSize;
  }
  void columns(const std::vector<Column>& columns) {
    for (std::uint32_t number = 0; number < columns.size(); ++number) {
      file_.put(page_, at_, static_cast<std::uint8_t>(columns[number].type), 1);
      file_.put(page_, at_ + jet3.columnNumber, number, 2);
      file_.put(page_, at_ + jet3.columnVariableIndex, number == 0 ? 0 : number - 1, 2);
      file_.put(page_, at_ + jet3.columnOrdinal, number, 2);
      file_.put(page_, at_ + jet3.columnSortOrder, sortOrderGeneral, 2);
      file_.put(page_, at_ + jet3.columnFlags, number == 0 ? 3 : 2, 1);
      file_.put(page_, at_ + jet3.columnLength, number == 0 ? 4 : 255, 2);
      at_ += jet3.columnSize;
    }
    for (const Column& column : columns) name(column.name);
  }
  // Over the first column.
  void primaryKey() {
    for (unsigned slot = 0; slot < 10; ++slot)
      file_.put(page_, at_ + 3 * slot, slot == 0 ? 0x010000 : 0xFFFF, 3);
    file_.put(page_, at_ + jet3.realIndexOwnedPages, map(indexOwned), 4);
    file_.put(page_, at_ + jet3.realIndexRoot, indexLeaf, 4);
    file_.put(page_, at_ + jet3.realIndexFlags, index_flag::unique | index_flag::required, 1);
    at_ += jet3.realIndexSize;
    file_.put(page_, at_ + jet3.logicalIndexSize - 1, 1, 1);
    at_ += jet3.logicalIndexSize;
    name("PrimaryKey");
  }
  void longValueMaps(std::uint32_t column) {
    file_.put(page_, at_, column, 2);
    file_.put(page_, at_ + 2, map(longValuesOwned), 4);
    at_ += 10;
  }
  void end() {
    file_.put(page_, at_, 0xFFFF, 2);
    file_.put(page_, jet3.tdefLength, at_ + 2, 4);
  }

 private:
  void name(std::string_view text) {
    file_.put(page_, at_++, text.size(), 1);
    for (const char letter : text) file_.put(page_, at_++, static_cast<std::uint8_t>(letter), 1);
  }

  test::HandMade& file_;
  std::uint32_t page_;
  std::size_t at_;
};

// As a row of the page for long values, in a chain of two such rows; else in the table's row, or none.
std::string memo(int number) {
  const auto reference = [](std::uint32_t kindAndLength, std::uint32_t place) {
    return littleEndian(kindAndLength) + littleEndian(place) + littleEndian(0);
  };
  switch (number) {
    case 1:
      return reference(0x4000012C, longValues << 8);
    case 2:
      return reference(40, longValues << 8 | 1);
    default:
      return number % 2 == 0 ? reference(0x80000005, 0) + "Notiz" : std::string();
  }
}

void fillIndex(test::HandMade& file, int entries) {
  file.setType(indexLeaf, PageType::IndexLeaf);
  file.put(indexLeaf, 4, definition, 4);
  for (int i = 0; i < entries; ++i) {
    const std::size_t size = 9, at = jet3.indexEntries + size * static_cast<std::size_t>(i);
    const std::uint8_t entry[] = {
        0x7F, 0x80, 0, 0, static_cast<std::uint8_t>(i), 0, 0, rows, static_cast<std::uint8_t>(i)};
    for (std::size_t j = 0; j < size; ++j) file.put(indexLeaf, at + j, entry[j], 1);
    const std::size_t bit = size * static_cast<std::size_t>(i + 1);
    file.put(indexLeaf, jet3.indexBitmap + bit / 8, 1u << bit % 8, 1);
  }
}

}  // namespace

std::vector<std::uint8_t> makeJet3File() {
  constexpr int rowCount = 8;
  test::HandMade file(jet3, count);
  const auto onlyPage = [](std::uint32_t page) {
    return inlineMap(0, {static_cast<std::uint8_t>(1u << page)});
  };
  file.dataPage(freePages, freePages, {inlineMap(0, {0, 0})});
  file.dataPage(
      maps, 0,
      {onlyPage(catalogRows), onlyPage(rows), onlyPage(indexLeaf), onlyPage(longValues), inlineMap(0, {0})});

  DefinitionPage catalog(file, catalogDefinition);
  catalog.head(1, catalogOwned, 4, 0);
  catalog.columns({{"Id", ColumnType::Long},
                   {"Type", ColumnType::Integer},
                   {"Flags", ColumnType::Long},
                   {"Name", ColumnType::Text}});
  catalog.end();
  file.dataPage(catalogRows, catalogDefinition,
                {test::jet3Row(definition, {littleEndian(1).substr(0, 2), littleEndian(0), "Alt"})});

  DefinitionPage table(file, definition);
  table.head(rowCount, tableOwned, 5, 1);
  table.columns({{"ID", ColumnType::Long},
                 {"Name", ColumnType::Text},
                 {"Notiz", ColumnType::Memo},
                 {"Wert", ColumnType::Currency},
                 {"Ort", ColumnType::Text}});
  table.primaryKey();
  table.longValueMaps(2);
  table.end();
  std::vector<Row> content;
  for (int i = 0; i < rowCount; ++i) {
    content.push_back(test::jet3Row(
        i, {std::string(static_cast<std::size_t>(i * i * 4), 'n'), memo(i),
            littleEndian(12'500u) + littleEndian(0), std::string(static_cast<std::size_t>(i * 30), 'o')}));
  }
  file.dataPage(rows, definition, content);
  fillIndex(file, rowCount);
  const Row last{0, 0, 0, 0, 'e', 'n', 'd', 'e'}, piece(300, 'm');
  Row first(40, 'k');
  first[0] = 2, first[1] = longValues, first[2] = first[3] = 0;
  file.dataPage(longValues, 0x4C41564C, {piece, first, last});
  return file.content();
}

}  // namespace jet::fuzz
