#include <gtest/gtest.h>

#include "jet/write_fixture.h"

namespace jet {
namespace {

using create::DatabaseBuilder;

// Every type, fixed and variable, in a table with an index of each interesting kind.
create::TableSpec allTypes() {
  create::TableSpec spec;
  spec.name = u"T";
  spec.columns = {{.name = u"ID", .type = ColumnType::Long, .autoNumber = true},
                  column(u"Namen", ColumnType::Text, 120),
                  column(u"Notiz", ColumnType::Memo),
                  column(u"Umsatz", ColumnType::Currency),
                  column(u"Kennzahl", ColumnType::Double),
                  column(u"Rabatt", ColumnType::Single),
                  column(u"Stufe", ColumnType::Byte),
                  column(u"Anzahl", ColumnType::Integer),
                  {.name = u"Verweis", .type = ColumnType::Long, .fixed = false},
                  column(u"Geboren", ColumnType::DateTime),
                  column(u"Kennung", ColumnType::Guid),
                  {.name = u"Gewicht", .type = ColumnType::Numeric, .precision = 12, .scale = 3},
                  column(u"Bild", ColumnType::Ole),
                  column(u"Roh", ColumnType::Binary, 20),
                  column(u"Aktiv", ColumnType::Boolean)};
  spec.indexes = {{.name = u"PrimaryKey", .columns = {u"ID"}, .primaryKey = true},
                  {.name = u"Namen", .columns = {u"Namen"}},
                  {.name = u"Verweis", .columns = {u"-Verweis", u"Namen"}, .ignoreNulls = true},
                  {.name = u"Notiz", .columns = {u"Notiz"}}};
  return spec;
}

std::vector<Value> fullRow(std::int32_t number) {
  Guid guid;
  guid.bytes.fill(static_cast<std::uint8_t>(number));
  return {number,
          Text(u"Größing ") + numbered(u'N', static_cast<std::size_t>(number % 1000)),
          Text(u"Notiz zu ") + numbered(u'N', static_cast<std::size_t>(number)),
          Currency{number * 1'000'003LL},
          number / 7.0,
          static_cast<float>(number) / 4,
          std::int32_t{number % 256},
          std::int32_t{number % 30'000 - 15'000},
          std::int32_t{number / 3},
          DateTime{40'000.0 + number / 1440.0},
          guid,
          Numeric{number % 2 == 1, {0, 0, 0, static_cast<std::uint32_t>(number)}, 3},
          Bytes(static_cast<std::size_t>(number % 200), 0xAB),
          Bytes{1, 2, static_cast<std::uint8_t>(number)},
          number % 3 == 0};
}

TEST(WriteRows, EveryTypeComesBackAsItWasGiven) {
  DatabaseBuilder builder;
  builder.addTable(allTypes());
  Writable file(builder);
  const std::vector<Value> nothing(15, Value(Null{}));
  std::vector<std::vector<Value>> expected;
  file.change(u"T", [&](auto& writer) {
    for (std::int32_t i = 1; i <= 2000; ++i) {
      expected.push_back(fullRow(i));
      writer.insert(given(expected.back()));
    }
    writer.insert(given(nothing));
    EXPECT_EQ(writer.lastAutoNumber(), 2001);
    writer.insert(write::RowValues(15));
  });
  for (const std::int32_t number : {2001, 2002}) {
    expected.push_back(nothing);
    expected.back()[0] = number;
    expected.back()[14] = false;
  }
  EXPECT_EQ(file.rows(u"T"), expected);
  EXPECT_EQ(file.database->table(u"T").definition().rowCount, 2002u);
}

}  // namespace
}  // namespace jet
