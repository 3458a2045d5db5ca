#include "jet/table.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string_view>

#include "common/memory_files.h"
#include "jet/database.h"
#include "jet/error.h"
#include "jet/worn_database.h"

namespace jet {
namespace {

using namespace std::string_view_literals;

class WornTable : public testing::Test {
 protected:
  test::WornDatabase worn_ = test::makeWornDatabase();
  MemoryFiles files_;
  std::vector<std::string> warnings_;

  Database open(std::size_t cacheBytes = 32u << 20) {
    files_.put("worn.mdb", worn_.file);
    return {files_, "worn.mdb", {.cacheBytes = cacheBytes, .warn = [this](const auto& text) {
                                   warnings_.push_back(text);
                                 }}};
  }
};

std::vector<Value> valuesOf(const Row& row, const Table& table) {
  std::vector<Value> values;
  for (std::size_t i = 0; i < table.definition().columns.size(); ++i) values.push_back(row.value(i));
  return values;
}

TEST_F(WornTable, ScanFindsEveryLivingRowOnceInStoredOrder) {
  Database database = open();
  const Table& table = database.table(u"Personen");
  TableScan scan = table.scan();
  auto expected = worn_.persons.begin();
  for (Row row; scan.next(row); ++expected) {
    ASSERT_NE(expected, worn_.persons.end());
    ASSERT_EQ(row.id(), expected->first);
    EXPECT_EQ(valuesOf(row, table), expected->second) << "slot " << int{row.id().slot};
  }
  EXPECT_EQ(expected, worn_.persons.end());
  EXPECT_FALSE(worn_.movedPersons.empty());
  EXPECT_EQ(warnings_, std::vector<std::string>());
}

TEST_F(WornTable, FetchFindsTheSameRowsAlsoWithoutACache) {
  for (const std::size_t cacheBytes : {std::size_t{1}, std::size_t{1} << 25}) {
    Database database = open(cacheBytes);
    const Table& table = database.table(u"Personen");
    Row row;
    for (const auto& [id, values] : worn_.persons) {
      table.fetch(id, row);
      EXPECT_EQ(row.id(), id);
      EXPECT_EQ(valuesOf(row, table), values);
    }
  }
}

TEST_F(WornTable, FastWaysAgreeWithValue) {
  Database database = open();
  const Table& table = database.table(u"Personen");
  TableScan scan = table.scan();
  std::size_t compared = 0;
  for (Row row; scan.next(row);) {
    for (std::size_t i = 0; i < table.definition().columns.size(); ++i) {
      const Value value = row.value(i);
      EXPECT_EQ(row.isNull(i), isNull(value));
      std::int32_t number = 0;
      Text text = u"old";
      if (const auto* expected = std::get_if<std::int32_t>(&value)) {
        EXPECT_TRUE(row.asLong(i, number));
        EXPECT_EQ(number, *expected);
        ++compared;
      } else if (const auto* words = std::get_if<Text>(&value)) {
        EXPECT_TRUE(row.asText(i, text));
        EXPECT_EQ(text, *words);
        ++compared;
      } else if (isNull(value)) {
        EXPECT_FALSE(row.asText(i, text));
        EXPECT_FALSE(row.asLong(i, number));
      }
    }
  }
  EXPECT_GT(compared, worn_.persons.size() * 5);
}

TEST_F(WornTable, FetchRefusesWhatIsNoRowOfTheTable) {
  Database database = open();
  const Table& table = database.table(u"Personen");
  const RowId first = worn_.persons.begin()->first;
  std::vector<RowId> wrong = worn_.erasedPersons;
  wrong.insert(wrong.end(), {{first.page, 255}, {0, 0}, {1, 0}, {2, 0}, {database.pages().pageCount(), 0}});
  const Row foreign = [&] {
    Row row;
    database.table(u"Zuordnung").scan().next(row);
    return row;
  }();
  wrong.push_back(foreign.id());
  for (const RowId id : wrong) {
    SCOPED_TRACE(std::to_string(id.page) + ":" + std::to_string(id.slot));
    try {
      table.fetch(id);
      ADD_FAILURE();
    } catch (const Error& error) {
      EXPECT_EQ(error.kind(), ErrorKind::Damaged);
      EXPECT_TRUE(error.page());
    }
  }
}

TEST(WideTable, HasADefinitionOfSeveralPages) {
  create::TableSpec spec{.name = u"Breit", .columns = {}, .indexes = {}};
  constexpr std::size_t columns = 200;
  for (std::size_t i = 0; i < columns; ++i) {
    Text name = u"Spalte mit einem recht langen Namen ";
    name += static_cast<char16_t>(u'A' + i / 20);
    name += static_cast<char16_t>(u'A' + i % 20);
    spec.columns.push_back(
        {.name = name, .type = i % 2 == 0 ? ColumnType::Integer : ColumnType::Text, .characters = 9});
  }
  create::DatabaseBuilder builder;
  std::vector<Value> values;
  for (std::size_t i = 0; i < columns; ++i) {
    values.push_back(i % 2 == 0 ? Value(static_cast<std::int32_t>(i)) : Value(Text(i % 9, u'w')));
  }
  builder.addTable(spec).insert(values);
  MemoryFiles files;
  files.put("wide.mdb", builder.finish());
  Database database(files, "wide.mdb");
  const Table& table = database.table(u"Breit");
  ASSERT_EQ(table.definition().columns.size(), columns);
  EXPECT_EQ(table.definition().columns.back().name, spec.columns.back().name);
  TableScan scan = table.scan();
  Row row;
  ASSERT_TRUE(scan.next(row));
  EXPECT_EQ(valuesOf(row, table), values);
  EXPECT_FALSE(scan.next(row));
}

// Changes to a sound file, byte by byte.
class HurtTable : public WornTable {
 protected:
  static constexpr std::uint32_t pageSize = 4096;

  // Where the bytes of a view into a page stand in the file.
  std::size_t placeOf(const Database& database, std::uint32_t page,
                      std::span<const std::uint8_t> view) const {
    return std::size_t{page} * pageSize +
           static_cast<std::size_t>(view.data() - database.pages().page(page, 0)->bytes.data());
  }
  void put32(std::size_t place, std::uint32_t value) {
    for (unsigned i = 0; i < 4; ++i) worn_.file[place + i] = static_cast<std::uint8_t>(value >> (8 * i));
  }
  void put16(std::size_t place, std::uint16_t value) {
    worn_.file[place] = static_cast<std::uint8_t>(value);
    worn_.file[place + 1] = static_cast<std::uint8_t>(value >> 8);
  }
  std::size_t definitionOf(std::u16string_view table) {
    Database database = open();
    return std::size_t{database.table(table).definition().page} * pageSize;
  }
  RowId firstRowOf(std::u16string_view table) {
    Database database = open();
    Row row;
    database.table(table).scan().next(row);
    return row.id();
  }
  std::size_t slotOf(RowId row) const {
    return std::size_t{row.page} * pageSize + jet4.dataSlots + 2u * row.slot;
  }

  std::size_t countRows(std::u16string_view name) {
    Database database = open();
    TableScan scan = database.table(name).scan();
    std::size_t rows = 0;
    for (Row row; scan.next(row);) {
      valuesOf(row, database.table(name));
      ++rows;
    }
    return rows;
  }
  // Reads the whole table, which must fail as damaged.
  std::string damageOf(std::u16string_view name) {
    try {
      countRows(name);
    } catch (const Error& error) {
      EXPECT_EQ(error.kind(), ErrorKind::Damaged);
      EXPECT_TRUE(error.page());
      return error.reason();
    }
    ADD_FAILURE() << "read without an error";
    return {};
  }
};

TEST_F(HurtTable, AStaleCountIsAWarningWhereAnIndexConfirmsTheRows) {
  put32(definitionOf(u"Zuordnung") + jet4.tdefRowCount, 7);
  EXPECT_EQ(countRows(u"Zuordnung"), worn_.assignments);
  ASSERT_EQ(warnings_.size(), 1u);
  EXPECT_NE(warnings_[0].find("1500 rows, its count says 7"), std::string::npos) << warnings_[0];
}

TEST_F(HurtTable, AStaleCountWithoutAnIndexIsDamage) {
  put32(definitionOf(u"Messwerte") + jet4.tdefRowCount, 399);
  EXPECT_NE(damageOf(u"Messwerte").find("400 rows, its count says 399"), std::string::npos);
}

TEST_F(HurtTable, RowsDoNotVanishSilently) {
  for (const auto* table : {u"Messwerte", u"Zuordnung"}) {
    const RowId row = firstRowOf(table);
    worn_.file[slotOf(row) + 1] |= 0xC0;
    damageOf(table);
    EXPECT_EQ(warnings_, std::vector<std::string>());
    worn_.file[slotOf(row) + 1] &= 0x3F;
    // A whole page that changes hands.
    put32(std::size_t{row.page} * pageSize + jet4.dataOwner, 4);
    damageOf(table);
    EXPECT_EQ(warnings_.size(), 1u) << "the page that was left out";
    warnings_.clear();
  }
}

TEST_F(HurtTable, RowsThatGoRoundInCircles) {
  ASSERT_FALSE(worn_.movedPersons.empty());
  const RowId moved = worn_.movedPersons[0];
  std::size_t pointer = 0;
  {
    Database database = open();
    const PageRef page = database.pages().page(moved.page, 0);
    pointer = std::size_t{moved.page} * pageSize +
              (page->reader().u16(jet4.dataSlots + 2u * moved.slot) & slot_flag::offsetMask);
  }
  const std::vector<std::uint8_t> sound = worn_.file;
  put32(pointer, moved.pointer());
  EXPECT_EQ(damageOf(u"Personen"), "a row has moved too often");
  worn_.file = sound;
  put32(pointer, firstRowOf(u"Personen").pointer());
  EXPECT_EQ(damageOf(u"Personen"), "a moved row is not where it should be");
  worn_.file = sound;
  put32(pointer, firstRowOf(u"Messwerte").pointer());
  EXPECT_EQ(damageOf(u"Personen"), "a moved row is not where it should be");
}

// The pieces of a long memo: the reference in the row, then pages with a link each.
TEST_F(HurtTable, LongValuesThatDoNotAddUp) {
  std::size_t reference = 0;
  std::uint32_t firstPiece = 0;
  {
    Database database = open();
    const Table& table = database.table(u"Personen");
    const std::size_t memo = *table.findColumn(u"Notiz");
    TableScan scan = table.scan();
    for (Row row; firstPiece == 0 && scan.next(row);) {
      const auto stored = row.stored(memo);
      if (!stored || stored->size() < 12 || (*stored)[3] >> 6 != 0) continue;
      std::uint32_t page = row.id().page;
      if (std::find(worn_.movedPersons.begin(), worn_.movedPersons.end(), row.id()) !=
          worn_.movedPersons.end())
        continue;
      reference = placeOf(database, page, *stored);
      firstPiece = ByteReader(*stored, page).u32(4);
    }
  }
  ASSERT_NE(firstPiece, 0u);
  std::size_t piece = 0;
  {
    Database database = open();
    const PageRef page = database.pages().page(firstPiece >> 8, 0);
    piece = std::size_t{firstPiece >> 8} * pageSize +
            (page->reader().u16(jet4.dataSlots + 2u * (firstPiece & 0xFF)) & slot_flag::offsetMask);
  }
  const std::vector<std::uint8_t> sound = worn_.file;
  struct Case {
    std::size_t place;
    std::uint32_t value;
    const char* reason;
  };
  const Case cases[] = {
      {piece, firstPiece, "the pieces of a long value run in a circle"},
      {piece, 0, "a long value ends early"},
      {piece, firstRowOf(u"Personen").pointer(), "a long value lies on a page of another kind"},
      {reference, 0x3FFFFFFF, "a long value is longer than the file"},
      {reference, 0x00030000, "a long value ends early"},
      {reference, 0xC0000010, "a long value is of an unknown kind"},
      {reference, 0x40003000, "a long value ends early"},
      {reference, 0x80000001 + 4000, "a structure reaches beyond its end"},
      {reference + 4, firstPiece | 0xFF, "a reference names a row that does not exist"},
  };
  for (const Case& each : cases) {
    put32(each.place, each.value);
    EXPECT_EQ(damageOf(u"Personen"), each.reason);
    worn_.file = sound;
  }
}

TEST_F(HurtTable, DefinitionsThatContradictThemselves) {
  const std::size_t definition = definitionOf(u"Personen");
  const auto page = static_cast<std::uint32_t>(definition / pageSize);
  const std::size_t columns = definition + jet4.tdefSections + 2u * jet4.entryCountSize;
  const std::vector<std::uint8_t> sound = worn_.file;
  struct Case {
    std::size_t place;
    std::uint32_t value;
  };
  const Case cases[] = {
      {definition + jet4.tdefLength, 0xFFFFFFFF},
      {definition + jet4.tdefLength, 60},
      {definition + jet4.tdefLength, 9000},
      {definition + jet4.tdefRealIndexCount, 0x10000000},
      {definition + jet4.tdefLogicalIndexCount, 1000},
      {definition + jet4.tdefOwnedPages, 0},
      {definition + jet4.tdefOwnedPages, page << 8},
      {definition + jet4.tdefOwnedPages, 0xFFFFFF00},
      {columns + jet4.columnSize + jet4.columnNumber, 250},
      {columns + jet4.columnSize + jet4.columnVariableIndex, 250},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.place - definition);
    put32(each.place, each.value);
    damageOf(u"Personen");
    worn_.file = sound;
  }
  // A chain that comes back to its own start.
  put32(definition + 4, page);
  put32(definition + jet4.tdefLength, 9000);
  EXPECT_EQ(damageOf(u"Personen"), "the pages of a table definition run in a circle");
}

TEST_F(HurtTable, TwoTablesOfOneNameOrOneDefinition) {
  Database sound = open();
  const Table& catalog = sound.table(u"MSysObjects");
  const std::size_t id = *catalog.findColumn(u"Id"), name = *catalog.findColumn(u"Name");
  TableScan scan = catalog.scan();
  std::size_t idPlace = 0, namePlace = 0;
  Text text;
  for (Row row; scan.next(row);) {
    if (!row.asText(name, text) || text != u"Messwerte") continue;
    idPlace = placeOf(sound, row.id().page, *row.stored(id));
    namePlace = placeOf(sound, row.id().page, *row.stored(name));
  }
  const std::vector<std::uint8_t> file = worn_.file;
  put32(idPlace, sound.table(u"Zuordnung").definition().page);
  EXPECT_EQ(damageOf(u"Messwerte"), "two tables share one definition");
  worn_.file = file;
  ASSERT_EQ(u"Zuordnung"sv.size(), u"Messwerte"sv.size());
  const bool compressed = worn_.file[namePlace] == 0xFF;
  std::size_t i = 0;
  for (const char16_t unit : u"Zuordnung"sv) {
    worn_.file[namePlace + (compressed ? 2 + i : 2 * i)] = static_cast<std::uint8_t>(unit);
    ++i;
  }
  EXPECT_EQ(damageOf(u"Zuordnung"), "two tables have the same name");
}

}  // namespace
}  // namespace jet
