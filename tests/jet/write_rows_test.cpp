#include <gtest/gtest.h>
#include <random>

#include "jet/check_findings.h"
#include "jet/long_value.h"
#include "jet/usage_map.h"
#include "jet/worn_database.h"
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
  // Distinct keys, a statistic in the definition: all numbers; a thousand names and Null.
  const auto definition = file.page(file.definitionPage(u"T"));
  EXPECT_EQ(u32At(definition, 63 + 4), 2002u);
  EXPECT_EQ(u32At(definition, 63 + 12 + 4), 1001u);
}

TEST(WriteRows, TablesOfUnusualShape) {
  DatabaseBuilder builder;
  builder.addTable(
      {.name = u"Fest", .columns = {column(u"Nr", ColumnType::Long), column(u"J", ColumnType::Boolean)}});
  create::TableSpec wide{.name = u"Breit"};  // its definition takes several pages
  for (std::size_t i = 0; i < 250; ++i) {
    wide.columns.push_back(
        column(numbered(u'C', i).c_str(), i % 2 == 0 ? ColumnType::Boolean : ColumnType::Text));
  }
  wide.indexes = {{.name = u"Letzte", .columns = {u"C249", u"C0"}}};
  builder.addTable(wide);
  Writable file(builder);
  const RowId first = file.insert(u"Fest", given({1, true}));
  file.insert(u"Fest", given({Null{}, Null{}}));
  file.update(u"Fest", first, given({2, false}));
  EXPECT_EQ(file.rows(u"Fest"), (std::vector<std::vector<Value>>{{2, false}, {Null{}, false}}));
  std::vector<Value> values;
  for (int i = 0; i < 250; ++i) values.push_back(i % 2 == 0 ? Value(i % 4 == 0) : Value(Text(u"abc")));
  const RowId row = file.insert(u"Breit", given(values));
  EXPECT_EQ(file.rows(u"Breit").front(), values);
  file.erase(u"Breit", row);
}

// Where the content of a memo or OLE value went.
LongValueReference referenceOf(Writable& file, RowId row, std::size_t column) {
  const Row found = file.database->table(u"T").fetch(row);
  return LongValueReference::read({*found.stored(column), row.page});
}

TEST(WriteRows, LongValuesOfEverySizeStandWhereTheyShould) {
  DatabaseBuilder builder;
  builder.addTable({.name = u"T",
                    .columns = {column(u"Nr", ColumnType::Long), column(u"Memo", ColumnType::Memo),
                                column(u"Bild", ColumnType::Ole)},
                    .indexes = {{.name = u"Memo", .columns = {u"Memo"}}}});
  Writable file(builder);
  const std::map<std::size_t, LongValueKind> kinds = {
      {0, LongValueKind::Inline},   {1, LongValueKind::Inline},    {64, LongValueKind::Inline},
      {65, LongValueKind::OneRow},  {4076, LongValueKind::OneRow}, {4077, LongValueKind::Chain},
      {8144, LongValueKind::Chain}, {8145, LongValueKind::Chain},  {20'000, LongValueKind::Chain}};
  std::map<std::size_t, RowId> rows;
  for (const auto& [size, kind] : kinds) {
    const Text text(size / 2, u'Ω');
    const RowId row = file.insert(u"T", given({std::int32_t(size), text, Bytes(size, 7)}));
    rows[size] = row;
    EXPECT_EQ(referenceOf(file, row, 2).kind, kind) << size;
    EXPECT_EQ(file.value(u"T", row, 1), Value(text)) << size;
    EXPECT_EQ(file.value(u"T", row, 2), Value(Bytes(size, 7))) << size;
  }
  // Compressed where that is shorter and possible: 2 bytes, then one for each of up to 1024 characters.
  for (const std::size_t characters : {2u, 3u, 62u, 63u, 1024u, 1025u}) {
    const Text text(characters, u'ä');
    const RowId row = file.insert(u"T", given({Null{}, text, Null{}}));
    const bool compressed = characters >= 3 && characters <= 1024;
    EXPECT_EQ(referenceOf(file, row, 1).length, compressed ? characters + 2 : 2 * characters);
    EXPECT_EQ(file.value(u"T", row, 1), Value(text));
  }
  // Every size becomes every other; the space of the old values is used again.
  for (const auto& [from, row] : rows) {
    for (const auto& [to, kind] : kinds) {
      file.update(u"T", row, {std::nullopt, Value(Text(to / 2, u'Ж')), Value(Bytes(to, 9))});
      EXPECT_EQ(file.value(u"T", row, 1), Value(Text(to / 2, u'Ж')));
      EXPECT_EQ(file.value(u"T", row, 2), Value(Bytes(to, 9)));
      file.update(u"T", row, {std::nullopt, std::nullopt, Value(Null{})});
      EXPECT_EQ(file.value(u"T", row, 1), Value(Text(to / 2, u'Ж'))) << "the other value stays";
    }
  }
  for (const auto& [size, row] : rows) file.erase(u"T", row);
  EXPECT_EQ(file.rows(u"T").size(), 6u);
}

TEST(WriteRows, LongValuesWithoutMaps) {
  DatabaseBuilder builder;
  builder.addTable({.name = u"T", .columns = {column(u"Memo", ColumnType::Memo)}});
  Writable file(builder);
  const std::uint32_t page = file.definitionPage(u"T");
  const auto removeMap = [&](std::size_t fromEnd) {
    file.patch(page, [&](std::span<std::uint8_t> bytes) {
      const std::size_t at = u32At(bytes, 8) - 2 - fromEnd;  // before the end of the list
      std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(at), 4, std::uint8_t{0});
    });
  };
  removeMap(4);  // nobody notes where there is space
  const RowId row = file.insert(u"T", given({Text(3000, u'a')}));
  file.update(u"T", row, given({Text(3001, u'b')}));
  EXPECT_EQ(file.value(u"T", row, 0), Value(Text(3001, u'b')));
  file.erase(u"T", row);
  removeMap(8);
  file.insert(u"T", given({Text(u"kurz")}));
  const auto refused = file.refusal(u"T", [](auto& writer) { writer.insert(given({Text(3000, u'c')})); });
  EXPECT_EQ(refused.first, ErrorKind::NotWritable);
  EXPECT_NE(refused.second.find("column Memo"), std::string::npos) << refused.second;
}

TEST(WriteRows, MemosLeaveARowThatHasNoRoomForThem) {
  create::TableSpec spec{.name = u"T"};
  for (std::size_t i = 0; i < 15; ++i) {
    spec.columns.push_back({.name = numbered(u'T', i), .type = ColumnType::Text, .compressed = false});
  }
  spec.columns.push_back({.name = u"M1", .type = ColumnType::Memo, .compressed = false});
  spec.columns.push_back({.name = u"M2", .type = ColumnType::Memo, .compressed = false});
  DatabaseBuilder builder;
  builder.addTable(spec);
  Writable file(builder);
  write::RowValues values(17);
  values[15] = values[16] = Value(Text(32, u'm'));
  const RowId row = file.insert(u"T", values);
  EXPECT_EQ(referenceOf(file, row, 15).kind, LongValueKind::Inline);
  const auto fill = [](std::size_t columns, std::size_t last) {
    write::RowValues texts(17);
    for (std::size_t i = 0; i < columns; ++i) texts[i] = Value(Text(255, u't'));
    texts[columns] = Value(Text(last, u't'));
    return texts;
  };
  file.update(u"T", row, fill(7, 170));  // 3910 bytes of text: the unchanged memos go
  EXPECT_EQ(referenceOf(file, row, 15).kind, LongValueKind::OneRow);
  EXPECT_EQ(file.value(u"T", row, 16), Value(Text(32, u'm')));
  EXPECT_EQ(file.value(u"T", row, 7), Value(Text(170, u't')));
  const auto [kind, reason] = file.refusal(u"T", [&](auto& writer) { writer.update(row, fill(7, 255)); });
  EXPECT_EQ(kind, ErrorKind::Limit);
}

// All pages of a table with one index, byte for byte.
std::vector<std::string> pagesOf(Writable& file, const Text& table) {
  const TableDefinition definition = file.database->table(table).definition();
  std::vector<std::string> pages = {hexOf(file.page(definition.page))};
  for (const std::uint32_t map : {definition.ownedMap, definition.freeMap, definition.indexes[0].ownedMap}) {
    pages.push_back(hexOf(slotAt(file.page(map >> 8), map & 0xFF)));
    for (const std::uint32_t page : readUsageMap(file.database->pages(), map, definition.page)) {
      pages.push_back(hexOf(file.page(page)));
    }
  }
  return pages;
}

// The first row and column that is not as expected; empty if there is none.
std::string firstDifference(Writable& file, const std::map<RowId, std::vector<Value>>& expected) {
  const Table& table = file.database->table(u"Personen");
  TableScan scan = table.scan();
  auto next = expected.begin();
  for (Row row; scan.next(row); ++next) {
    if (next == expected.end() || row.id() != next->first) return "another row " + checkName(row.id());
    for (std::size_t i = 0; i < next->second.size(); ++i) {
      if (row.value(i) != next->second[i]) return checkName(row.id()) + ", column " + std::to_string(i);
    }
  }
  return next == expected.end() ? "" : "missing row " + checkName(next->first);
}

// Random changes of a worn table: moved rows, deleted and added columns, long values of all kinds.
class ManyChanges : public testing::TestWithParam<unsigned> {};

TEST_P(ManyChanges, StaysRightThroughManyChanges) {
  jet::test::WornDatabase worn = jet::test::makeWornDatabase();
  DatabaseBuilder unused;
  Writable file(unused);
  file.replaceContent(worn.file);
  auto& model = worn.persons;
  const std::vector<std::string> others = pagesOf(file, u"Zuordnung");
  std::mt19937 random(GetParam());
  const auto below = [&](std::size_t limit) { return static_cast<std::size_t>(random() % limit); };
  const auto columns = file.database->table(u"Personen").definition().columns;
  const auto columnOf = [&](const char16_t* name) {
    return static_cast<std::size_t>(std::ranges::find(columns, Text(name), &ColumnDefinition::name) -
                                    columns.begin());
  };
  const std::size_t name = columnOf(u"Namen"), memo = columnOf(u"Notiz"), raw = columnOf(u"Roh"),
                    truth = columnOf(u"Geprüft"), late = columnOf(u"Nachtrag"), width = columns.size();
  const auto randomValues = [&] {
    write::RowValues values(width);
    if (below(2) == 0) values[name] = Value(Text(1 + below(119), static_cast<char16_t>(u'a' + below(26))));
    if (below(3) == 0) values[memo] = below(4) == 0 ? Value(Null{}) : Value(Text(below(6000), u'ß'));
    if (below(3) == 0) values[raw] = Value(Bytes(below(20), 3));
    if (below(2) == 0) values[truth] = Value(below(2) == 0);
    if (below(3) == 0) values[late] = Value(Text(below(50), u'n'));
    return values;
  };
  for (int round = 0; round < 12; ++round) {
    file.change(u"Personen", [&](auto& writer) {
      for (int step = 0; step < 25; ++step) {
        const std::size_t kind = below(4);
        const auto values = randomValues();
        if (kind == 0 || model.size() < 5) {
          std::vector<Value> expected(width, Value(Null{}));
          for (std::size_t i = 0; i < width; ++i) {
            if (columns[i].type == ColumnType::Boolean) expected[i] = false;
            if (values[i]) expected[i] = *values[i];
          }
          const RowId row = writer.insert(values);
          expected[0] = writer.lastAutoNumber();
          ASSERT_TRUE(model.emplace(row, expected).second);
          continue;
        }
        const auto row = std::next(model.begin(), static_cast<std::ptrdiff_t>(below(model.size())));
        if (kind == 1) {
          writer.erase(row->first);
          model.erase(row);
        } else {
          writer.update(row->first, values);
          for (std::size_t i = 0; i < width; ++i) {
            if (values[i]) row->second[i] = *values[i];
          }
        }
      }
    });
    ASSERT_EQ(firstDifference(file, model), "");
  }
  EXPECT_TRUE(pagesOf(file, u"Zuordnung") == others);
}

INSTANTIATE_TEST_SUITE_P(Seeds, ManyChanges, testing::Values(1u, 2u, 3u));

TEST(WriteRows, ARowMovesOnAndComesHome) {
  DatabaseBuilder builder;
  auto& table = builder.addTable({.name = u"T",
                                  .columns = {column(u"Nr", ColumnType::Long), column(u"A", ColumnType::Text),
                                              column(u"B", ColumnType::Text), column(u"C", ColumnType::Text)},
                                  .indexes = {{.name = u"Nr", .columns = {u"Nr"}, .unique = true}}});
  std::vector<RowId> ids;
  for (int i = 0; i < 40; ++i) ids.push_back(table.insert({std::int32_t{i}, Text(60, u'Ω'), Null{}, Null{}}));
  Writable file(builder);
  const Text wide(250, u'Ω');
  const RowId row = ids[3];
  const auto bodyPage = [&] {
    const auto slot = slotAt(file.page(row.page), row.slot);
    return slot.size() == 4 ? u32At(slot, 0) >> 8 : row.page;
  };
  file.update(u"T", row, {std::nullopt, std::nullopt, wide, std::nullopt});
  const std::uint32_t first = bodyPage();
  EXPECT_NE(first, row.page);
  // Its new page fills up, so it has to move again.
  for (int i = 0; i < 12; ++i)
    file.insert(u"T", given({std::int32_t{100 + i}, Text(150, u'Ω'), Null{}, Null{}}));
  file.update(u"T", row, {std::nullopt, std::nullopt, std::nullopt, wide});
  EXPECT_NE(bodyPage(), first);
  EXPECT_EQ(file.value(u"T", row, 3), Value(wide));
  // Room on its first page, and a growth that fits nowhere else.
  for (const std::size_t i : {4u, 5u, 6u, 7u, 8u, 9u, 10u, 11u, 12u, 13u, 14u}) file.erase(u"T", ids[i]);
  file.update(u"T", row, {std::nullopt, Value(wide), std::nullopt, std::nullopt});
  EXPECT_EQ(file.find(u"T", 0, {std::int32_t{3}}), std::vector<RowId>{row});
  EXPECT_EQ(file.value(u"T", row, 1), Value(wide));
  file.erase(u"T", row);
  EXPECT_EQ(file.rows(u"T").size(), 40u);
}

TEST(WriteRows, UnchangedColumnsKeepTheirStoredBytes) {
  DatabaseBuilder builder;
  const double odd = 39'000.123456789012345;
  auto& table =
      builder.addTable({.name = u"T",
                        .columns = {column(u"Datum", ColumnType::DateTime), column(u"Name", ColumnType::Text),
                                    column(u"M", ColumnType::Memo)},
                        .indexes = {{.name = u"Datum", .columns = {u"Datum", u"Name"}}}});
  const RowId row = table.insert({DateTime{odd}, Text(u"abc"), Text(500, u'm')});
  Writable file(builder);
  const auto stored = [&](std::size_t column) {
    const Row found = file.database->table(u"T").fetch(row);
    return hexOf(*found.stored(column));
  };
  const std::string date = stored(0), memo = stored(2);
  file.update(u"T", row, {std::nullopt, Value(Text(u"xyz")), Value(Text(500, u'm'))});
  EXPECT_EQ(stored(0), date);
  EXPECT_EQ(stored(2), memo);  // an equal value stays where it is
  const auto before = file.content();
  file.update(u"T", row, {Value(DateTime{odd}), Value(Text(u"xyz")), std::nullopt});
  EXPECT_EQ(file.content(), before);
}

}  // namespace
}  // namespace jet
