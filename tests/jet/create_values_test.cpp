#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "jet/create_fixture.h"

namespace {

using jet::Bytes;
using jet::ColumnType;
using jet::Null;
using jet::Text;
using jet::Value;
using jet::create::DatabaseBuilder;
using jet::create::TableSpec;
using Rows = std::vector<std::vector<jet::Value>>;

TableSpec everyType(bool fixed) {
  using enum ColumnType;
  TableSpec spec{
      .name = u"Alles",
      .columns = {column(u"Ja", Boolean), column(u"B", Byte), column(u"I", Integer), column(u"L", Long),
                  column(u"C", Currency), column(u"S", Single), column(u"D", Double),
                  column(u"Wann", DateTime), column(u"Roh", Binary, 20), column(u"T", ColumnType::Text, 40),
                  column(u"Bild", Ole), column(u"M", Memo), column(u"G", Guid), column(u"N", Numeric)}};
  spec.columns.back().precision = 28;
  spec.columns.back().scale = 4;
  for (auto& column : spec.columns) column.fixed = fixed;
  return spec;
}

std::vector<std::vector<Value>> everyValue() {
  const jet::Guid guid{{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}};
  const jet::Numeric numeric{true, {0, 1, 0x80000000, 12345}, 4};
  const std::int32_t largest = std::numeric_limits<std::int32_t>::max();
  return {{true, 255, 32767, largest, jet::Currency{std::numeric_limits<std::int64_t>::max()}, 1.5f, -1e300,
           jet::DateTime{45000.75}, Bytes{0, 1, 255}, Text(u"Straße Köln"), Bytes(5000, 7), Text(u"Notiz"),
           guid, numeric},
          {false, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, Null{},
           Null{}, Null{}},
          {true, 0, -32768, -largest - 1, jet::Currency{-1}, -0.25f, 0.0, jet::DateTime{-1.25}, Bytes{},
           Text(u""), Bytes{1}, Text(u"x"), jet::Guid{}, jet::Numeric{false, {}, 4}},
          {false, 1, 1, 1, jet::Currency{0}, 1.0f, 1.0, jet::DateTime{1.0}, Bytes(20, 0xFE),
           Text(40, u'\x017F'), Bytes(4076, 1), Text(u"Кириллица\0!", 11), guid, numeric}};
}

class Values : public ::testing::TestWithParam<bool> {};
INSTANTIATE_TEST_SUITE_P(FixedAndVariable, Values, ::testing::Bool());

TEST_P(Values, ComeBackAsTheyWereGiven) {
  DatabaseBuilder builder;
  auto& table = builder.addTable(everyType(GetParam()));
  for (const auto& row : everyValue()) table.insert(row);
  Created file(builder);
  EXPECT_EQ(file.rows(u"alles"), everyValue());
  EXPECT_EQ(file.errors(), "");
  const auto& definition = file.database->table(u"Alles").definition();
  EXPECT_EQ(definition.rowCount, 4u);
  EXPECT_EQ(definition.variableColumns, GetParam() ? 4 : 13);
}

TEST(Values, LongValuesOfEveryLengthKeepTheirPlace) {
  DatabaseBuilder builder;
  auto& table = builder.addTable(
      {.name = u"Lang", .columns = {column(u"M", ColumnType::Memo), column(u"O", ColumnType::Ole)}});
  std::vector<std::vector<Value>> expected;
  // Around the borders of inline, one row, and chains of two and three rows; plain and compressed texts.
  for (const std::size_t length :
       {0u,    1u,    2u,    32u,   33u,   62u,   63u,   64u,   65u,   1022u, 1024u,
        1025u, 2038u, 2039u, 4072u, 4074u, 4076u, 4077u, 8144u, 8145u, 40000u}) {
    for (const char16_t unit : {u'ä', u'я'}) {
      table.insert({Text(length, unit), Bytes(length, static_cast<std::uint8_t>(length))});
      expected.push_back({Text(length, unit), Bytes(length, static_cast<std::uint8_t>(length))});
    }
  }
  Created file(builder);
  const auto rows = file.rows(u"Lang");
  ASSERT_EQ(rows.size(), expected.size());
  for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(rows[i], expected[i]) << i;
  EXPECT_EQ(file.errors(), "");
}

TEST(Values, ShortLongValuesLeaveTheRowWhenItIsFull) {
  TableSpec spec{.name = u"Voll"};
  std::vector<Value> row;
  for (char16_t i = 0; i < 50; ++i) {
    spec.columns.push_back(column(numbered(u'M', i).c_str(), ColumnType::Memo));
    row.emplace_back(Text(30, static_cast<char16_t>(0x400 + i)));
  }
  DatabaseBuilder builder;
  builder.addTable(spec).insert(row);
  Created file(builder);
  EXPECT_EQ(file.rows(u"Voll"), Rows{row});
  EXPECT_EQ(file.errors(), "");
}

TEST(Values, MinusZeroIsStoredAsZeroAndAByteOrderMarkIsDropped) {
  DatabaseBuilder builder;
  auto& table =
      builder.addTable({.name = u"T",
                        .columns = {column(u"D", ColumnType::Double), column(u"T", ColumnType::Text)},
                        .indexes = {{.name = u"D", .columns = {u"D"}}}});
  table.insert({-0.0, Text(u"\uFEFFabc")});
  Created file(builder);
  const auto rows = file.rows(u"T");
  EXPECT_FALSE(std::signbit(std::get<double>(rows[0][0])));
  EXPECT_EQ(rows[0][1], Value(Text(u"abc")));
  EXPECT_EQ(file.errors(), "");
}

}  // namespace
