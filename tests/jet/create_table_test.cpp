#include <algorithm>
#include <gtest/gtest.h>
#include <memory>

#include "jet/create_fixture.h"
#include "jet/error.h"

namespace {

using jet::Bytes;
using jet::ColumnType;
using jet::Null;
using jet::RowId;
using jet::Text;
using jet::Value;
using jet::create::BuildOptions;
using jet::create::DatabaseBuilder;
using jet::create::TableSpec;
using Rows = std::vector<std::vector<jet::Value>>;

TableSpec persons() {
  TableSpec spec{.name = u"Personen",
                 .columns = {column(u"ID", ColumnType::Long), column(u"Name", ColumnType::Text),
                             column(u"Notiz", ColumnType::Memo)},
                 .indexes = {{.name = u"PrimaryKey", .columns = {u"ID"}, .primaryKey = true},
                             {.name = u"Name", .columns = {u"Name"}},
                             {.name = u"Notiz", .columns = {u"Notiz"}}}};
  spec.columns[0].autoNumber = true;
  return spec;
}

std::vector<std::int32_t> numbers(const std::vector<std::vector<Value>>& rows) {
  std::vector<std::int32_t> result;
  for (const auto& row : rows) result.push_back(std::get<std::int32_t>(row[0]));
  return result;
}

TEST(TableStates, DeletedRowsLeaveNothingBehindButTheirSlots) {
  DatabaseBuilder builder;
  auto& table = builder.addTable(persons());
  std::vector<RowId> ids;
  for (int i = 1; i <= 200; ++i) ids.push_back(table.insert({Null{}, Text(u"Maier"), Text(i * 40, u'ж')}));
  for (std::size_t i = 0; i < ids.size(); ++i) {
    if (i % 3 != 0) table.erase(ids[i]);
  }
  EXPECT_THROW(table.erase(ids[1]), jet::Error);  // it is gone already
  table.insert({Null{}, Null{}, Null{}});
  Created file(builder);
  const auto rows = file.rows(u"Personen");
  ASSERT_EQ(rows.size(), 68u);
  EXPECT_EQ(numbers(rows).front(), 1);
  EXPECT_EQ(numbers(rows)[1], 4);
  EXPECT_EQ(numbers(rows).back(), 201);  // numbers of deleted rows are not given out again
  EXPECT_EQ(rows[1][2], Value(Text(160, u'ж')));
  EXPECT_EQ(file.errors(), "");
  EXPECT_EQ(file.database->table(u"Personen").definition().lastAutoNumber, 201u);
}

TEST(TableStates, MovedRowsKeepTheirPlaceInTheOrder) {
  DatabaseBuilder builder;
  auto& table = builder.addTable(persons());
  std::vector<RowId> ids;
  for (int i = 1; i <= 100; ++i) ids.push_back(table.insert({i, Text(200, u'a'), Text(u"n")}));
  for (const std::size_t i : {0u, 5u, 99u}) table.move(ids[i]);
  table.move(ids[5]);  // once more
  table.move(ids[7]);
  table.erase(ids[7]);
  table.insert({101, Null{}, Null{}});
  Created file(builder);
  const auto rows = file.rows(u"Personen");
  ASSERT_EQ(rows.size(), 100u);
  EXPECT_TRUE(std::ranges::is_sorted(numbers(rows)));
  EXPECT_EQ(file.errors(), "");
  EXPECT_EQ(file.database->table(u"Personen").fetch(ids[5]).value(0), Value(6));
  EXPECT_EQ(u16At(file.page(ids[0].page), 14) & 0xC000, 0x4000u);
}

TEST(TableStates, ColumnsComeAndGo) {
  DatabaseBuilder builder;
  auto& table = builder.addTable(persons());
  table.insert({Null{}, Text(u"vorher"), Text(u"n")});
  table.addColumn(column(u"Betrag", ColumnType::Currency));
  table.addColumn(column(u"Bild", ColumnType::Ole));
  table.insert({Null{}, Text(u"mit Bild"), Null{}, jet::Currency{70000}, Bytes(9000, 3)});
  table.deleteColumn(u"bild");
  table.addColumn(column(u"Ja", ColumnType::Boolean));
  table.addColumn(column(u"Ort", ColumnType::Text, 30));
  table.insert({Null{}, Text(u"nachher"), Null{}, Null{}, true, Text(u"Linz")});
  EXPECT_THROW(table.deleteColumn(u"Name"), jet::Error);  // an index needs it
  Created file(builder);
  EXPECT_EQ(file.rows(u"Personen"), (std::vector<std::vector<Value>>{
                                        {1, Text(u"vorher"), Text(u"n"), Null{}, false, Null{}},
                                        {2, Text(u"mit Bild"), Null{}, jet::Currency{70000}, false, Null{}},
                                        {3, Text(u"nachher"), Null{}, Null{}, true, Text(u"Linz")},
                                    }));
  EXPECT_EQ(file.errors(), "");
  EXPECT_EQ(file.database->table(u"Personen").definition().maxColumns, 7);
}

TEST(TableStates, DefinitionsSpreadOverSeveralPages) {
  TableSpec spec{.name = u"Breit"};
  std::vector<Value> row;
  for (char16_t i = 0; i < 255; ++i) {
    const Text name = Text(60, u'ß') + static_cast<char16_t>(u'0' + i / 100) +
                      static_cast<char16_t>(u'0' + i / 10 % 10) + static_cast<char16_t>(u'0' + i % 10);
    spec.columns.push_back(column(name.c_str(), i % 2 == 0 ? ColumnType::Long : ColumnType::Memo));
    row.push_back(i % 2 == 0 ? Value(static_cast<std::int32_t>(i)) : Value(Text(u"m")));
  }
  for (char16_t i = 0; i < 32; ++i) {
    spec.indexes.push_back({.name = Text(u"Index ") + static_cast<char16_t>(u'A' + i % 26) +
                                    static_cast<char16_t>(u'A' + i / 26),
                            .columns = {spec.columns[2u * i].name, spec.columns[2u * i + 2].name}});
  }
  DatabaseBuilder builder;
  builder.addTable(spec).insert(row);
  Created file(builder);
  EXPECT_EQ(file.rows(u"Breit"), Rows{row});
  EXPECT_EQ(file.database->table(u"Breit").definition().indexes.size(), 32u);
  EXPECT_EQ(file.errors(), "");
}

// 512 pages are the reach of a map in one row; two tables growing side by side make the ranges overlap.
TEST(UsageMaps, OfLargeTablesGoByReference) {
  DatabaseBuilder builder;
  TableSpec left{.name = u"Links",
                 .columns = {column(u"ID", ColumnType::Long), column(u"T", ColumnType::Text)}};
  TableSpec right = left;
  right.name = u"Rechts";
  auto& first = builder.addTable(left);
  auto& second = builder.addTable(right);
  const Text wide(255, u'я');
  for (int i = 0; i < 3000; ++i) {
    first.insert({i, wide});
    if (i % 2 == 0) second.insert({i, wide});
  }
  Created file(builder);
  EXPECT_EQ(file.rows(u"Links").size(), 3000u);
  EXPECT_EQ(file.rows(u"Rechts").size(), 1500u);
  EXPECT_EQ(file.errors(), "");
  const auto map = file.database->table(u"Links").definition().ownedMap;
  EXPECT_EQ(slotAt(file.page(map >> 8), map & 0xFF)[0], 1);
}

// Which form the map of free pages has, and that it says exactly which pages the file has.
TEST(UsageMaps, OfTheFileGrowsWithIt) {
  struct Case {
    std::size_t pages;
    std::uint8_t kind;
  };
  for (const Case& size : {Case{400, 0}, Case{2000, 0}, Case{33000, 1}}) {
    SCOPED_TRACE(size.pages);
    DatabaseBuilder builder;
    builder.addTable({.name = u"T", .columns = {column(u"O", ColumnType::Ole)}})
        .insert({Bytes(size.pages * 4072)});
    Created file(builder);
    EXPECT_EQ(file.errors(), "");
    const auto map = slotAt(file.page(1), 0);
    ASSERT_EQ(map[0], size.kind);
    const auto isFree = [&](std::uint32_t page) {
      if (map[0] == 0) return page / 8 >= map.size() - 5 || (map[5 + page / 8] >> page % 8 & 1) != 0;
      const auto bitmap = file.page(u32At(map, 1 + 4 * (page / 32736)));
      const std::uint32_t bit = page % 32736;
      return (bitmap[4 + bit / 8] >> bit % 8 & 1) != 0;
    };
    for (std::uint32_t page = 0; page < file.pageCount(); ++page) ASSERT_FALSE(isFree(page)) << page;
    EXPECT_TRUE(isFree(file.pageCount()));
  }
}

TEST(Protection, EncodedFilesReadAsOthersAndHideTheirContent) {
  const auto build = [](BuildOptions options) {
    auto builder = std::make_unique<DatabaseBuilder>(options);
    builder->addTable(persons()).insert({Null{}, Text(u"Geheimer Name"), Null{}});
    return builder;
  };
  Created plain(*build({})), encoded(*build({.databaseKey = 0xC0FFEE}));
  EXPECT_EQ(encoded.rows(u"Personen"), plain.rows(u"Personen"));
  EXPECT_EQ(encoded.errors(), "");
  const std::string secret = "Geheimer Name";
  const auto holds = [&](Created& file) {
    const auto& content = file.files.at("new.mdb").content;
    return std::ranges::search(content, secret).begin() != content.end();
  };
  EXPECT_TRUE(holds(plain));
  EXPECT_FALSE(holds(encoded));
}

TEST(Protection, APasswordIsAskedForUnlessItMayBeIgnored) {
  DatabaseBuilder builder({.password = u"Kühe1234567890123456"});
  builder.addTable(persons());
  MemoryFiles files;
  files.put("x.mdb", builder.finish());
  try {
    jet::Database database(files, "x.mdb");
    FAIL() << "opened without a password";
  } catch (const jet::Error& error) {
    EXPECT_EQ(error.kind(), jet::ErrorKind::PasswordRequired);
  }
  jet::OpenOptions options;
  options.ignorePassword = true;
  jet::Database database(files, "x.mdb", options);
  EXPECT_EQ(database.table(u"Personen").definition().columns.size(), 3u);
}

TEST(Properties, StandInTheCatalog) {
  TableSpec spec = persons();
  spec.columns[1].required = true;
  spec.columns[1].allowZeroLength = false;
  spec.columns[2].defaultValue = u"\"-\"";
  DatabaseBuilder builder;
  builder.addTable(spec);
  builder.addTable({.name = u"Ohne", .columns = {column(u"ID", ColumnType::Long)}});
  Created file(builder);
  EXPECT_TRUE(file.database->tableProperties(u"Ohne").empty());
  EXPECT_EQ(
      hexOf(file.database->tableProperties(u"Personen")),
      "4D 52 32 00 "
      "52 00 00 00 80 00 1E 00 41 00 6C 00 6C 00 6F 00 77 00 5A 00 65 00 72 00 6F 00 4C 00 65 00 6E 00 67 00 "
      "74 00 68 00 10 00 52 00 65 00 71 00 75 00 69 00 72 00 65 00 64 00 18 00 44 00 65 00 66 00 61 00 75 00 "
      "6C 00 74 00 56 00 61 00 6C 00 75 00 65 00 "
      "26 00 00 00 01 00 0E 00 00 00 08 00 4E 00 61 00 6D 00 65 00 09 00 01 01 00 00 01 00 00 "
      "09 00 01 01 01 00 01 00 FF "
      "2D 00 00 00 01 00 10 00 00 00 0A 00 4E 00 6F 00 74 00 69 00 7A 00 09 00 01 01 00 00 01 00 FF "
      "0E 00 01 0C 02 00 06 00 22 00 2D 00 22 00");
}

}  // namespace
