#include "jet/hand_made_file.h"

#include <gtest/gtest.h>

#include "jet/error.h"
#include "jet/table.h"
#include "jet/usage_map.h"

namespace jet {
namespace {

using test::HandMade, test::inlineMap, test::referenceMap, test::jet3Row;

using Pages = std::vector<std::uint32_t>;

TEST(UsageMap, BothKindsOfAnyLength) {
  HandMade file(jet4, 40);
  file.dataPage(2, 0,
                {inlineMap(0, {0x80, 0x01}),   // pages 7 and 8
                 inlineMap(32, {0x81, 0x01}),  // 32, 39, and 40, which is not there
                 inlineMap(0, {0x01}),         // page 0 belongs to nobody
                 inlineMap(16, {}),            // no bit at all
                 referenceMap({3, 0, 900}),
                 referenceMap({3, 3}),
                 referenceMap({2}),
                 inlineMap(0xFFFFF8, {0xFF, 0x01}),
                 {0, 0, 0, 0},
                 {2, 0, 0, 0, 0}});
  file.setType(3, PageType::UsageBitmap);
  file.put(3, 4, 0x20, 1);
  file.put(3, 4 + 4, 0x02, 1);
  file.put(3, 4095, 0x80, 1);
  MemoryFiles files;
  const PageFile pages = file.open(files);
  struct Case {
    std::uint8_t row;
    Pages pages;
    int warnings;
  };
  const Case cases[] = {{0, {7, 8}, 0}, {1, {32, 39}, 1}, {2, {}, 1}, {3, {}, 0}, {4, {5, 33}, 1}};
  for (const Case& each : cases) {
    int warnings = 0;
    EXPECT_EQ(readUsageMap(pages, 2u << 8 | each.row, 1, [&](const auto&) { ++warnings; }), each.pages);
    EXPECT_EQ(warnings, each.warnings) << int{each.row};
  }
  for (const std::uint32_t pointer :
       {2u << 8 | 5, 2u << 8 | 6, 2u << 8 | 7, 2u << 8 | 8, 2u << 8 | 9, 2u << 8 | 10, 0u}) {
    EXPECT_THROW(readUsageMap(pages, pointer, 1), Error) << (pointer & 0xFF);
  }
}

TEST(UsageMap, LiesOnlyOnPagesForMaps) {
  HandMade file(jet4, 4);
  file.dataPage(1, 1, {inlineMap(0, {0x04})});
  file.dataPage(2, 1, {inlineMap(0, {0x04})});
  MemoryFiles files;
  const PageFile pages = file.open(files);
  EXPECT_EQ(readUsageMap(pages, 1u << 8, 0), Pages{2});
  EXPECT_THROW(readUsageMap(pages, 2u << 8, 0), Error) << "a data page of a table";
}

TableDefinition jet3Definition(std::size_t texts, std::uint32_t rows) {
  TableDefinition definition;
  definition.page = 2;
  definition.rowCount = rows;
  definition.maxColumns = static_cast<std::uint16_t>(texts + 1);
  definition.variableColumns = static_cast<std::uint16_t>(texts);
  definition.ownedMap = 1u << 8;
  ColumnDefinition number;
  number.type = ColumnType::Long;
  number.flags = column_flag::fixed;
  number.length = 4;
  definition.columns.push_back(number);
  for (std::size_t i = 0; i < texts; ++i) {
    ColumnDefinition column;
    column.type = ColumnType::Text;
    column.number = static_cast<std::uint16_t>(i + 1);
    column.variableIndex = static_cast<std::uint16_t>(i);
    column.length = 255;
    definition.columns.push_back(column);
  }
  return definition;
}

TEST(Jet3Row, JumpsOverBordersOf256Bytes) {
  const std::vector<std::vector<std::size_t>> lengths{
      {3, 0, 5, 1},     {255, 1, 0, 0},   {250, 0, 0, 0},       {251, 0, 0, 3},       {200, 47, 0, 0},
      {200, 46, 1, 0},  {255, 255, 2, 0}, {100, 255, 255, 255}, {255, 255, 255, 255}, {0, 0, 0, 255},
      {1, 250, 251, 9}, {241, 0, 0, 0},   {242, 0, 0, 0},       {243, 0, 0, 0},       {244, 0, 0, 0},
      {245, 0, 0, 0},   {246, 0, 0, 0},   {247, 0, 0, 0}};
  for (std::size_t i = 0; i < lengths.size(); ++i) {
    std::vector<std::string> texts;
    for (std::size_t j = 0; j < lengths[i].size(); ++j) {
      texts.emplace_back(lengths[i][j], static_cast<char>('a' + (i + j) % 26));
    }
    HandMade file(jet3, 4);
    file.dataPage(1, 1, {inlineMap(0, {0x08})});
    file.dataPage(3, 2, {jet3Row(static_cast<std::int32_t>(i) - 5, texts)});
    MemoryFiles files;
    const PageFile pages = file.open(files);
    const Table table(pages, u"Alt", jet3Definition(texts.size(), 1), {});
    TableScan scan = table.scan();
    Row row;
    ASSERT_TRUE(scan.next(row));
    EXPECT_EQ(row.value(0), Value(static_cast<std::int32_t>(i) - 5));
    for (std::size_t j = 0; j < texts.size(); ++j) {
      EXPECT_EQ(row.value(j + 1), Value(Text(texts[j].begin(), texts[j].end())))
          << "row " << i << ", text " << j;
    }
    EXPECT_FALSE(scan.next(row));
  }
}

// Rows that were written before the table got its first variable column have no variable part at all.
TEST(Jet4Row, OlderThanTheFirstVariableColumn) {
  TableDefinition definition = jet3Definition(1, 2);
  HandMade file(jet4, 4);
  file.dataPage(1, 1, {inlineMap(0, {0x08})});
  file.dataPage(3, 2, {{1, 0, 7, 0, 0, 0, 1}, {2, 0, 8, 0, 0, 0, 'x', 0, 8, 0, 6, 0, 1, 0, 3}});
  MemoryFiles files;
  const PageFile pages = file.open(files);
  const Table table(pages, u"Gewachsen", definition, {});
  TableScan scan = table.scan();
  Row row;
  ASSERT_TRUE(scan.next(row));
  EXPECT_EQ(row.value(0), Value(7));
  EXPECT_EQ(row.value(1), Value(Null{}));
  ASSERT_TRUE(scan.next(row));
  EXPECT_EQ(row.value(0), Value(8));
  EXPECT_EQ(row.value(1), Value(Text(u"x")));
  EXPECT_FALSE(scan.next(row));
}

}  // namespace
}  // namespace jet
