#include "jet/encode/data_page_writer.h"
#include "jet/usage_map.h"
#include "jet/write_fixture.h"

namespace jet {
namespace {

using create::DatabaseBuilder;
using encode::DataPageWriter;

create::TableSpec wideTable(const char16_t* name) {
  return {.name = name,
          .columns = {column(u"Nr", ColumnType::Long),
                      {.name = u"A", .type = ColumnType::Text, .compressed = false},
                      {.name = u"B", .type = ColumnType::Text, .compressed = false},
                      column(u"M", ColumnType::Memo)},
          .indexes = {{.name = u"Nr", .columns = {u"Nr"}, .unique = true}}};
}

// About 1,050 bytes: three of them fill a page.
write::RowValues wideRow(std::int32_t number) {
  return given({number, Text(255, u'a'), Text(255, u'b'), Null{}});
}

void insertWide(Writable& file, const Text& table, std::int32_t from, std::int32_t to) {
  file.change(table, [&](auto& writer) {
    for (std::int32_t i = from; i < to; ++i) writer.insert(wideRow(i));
  });
}

void eraseAll(Writable& file, const Text& table) {
  std::vector<RowId> rows;
  TableScan scan = file.database->table(table).scan();
  for (Row row; scan.next(row);) rows.push_back(row.id());
  file.change(table, [&](auto& writer) {
    for (const RowId row : rows) writer.erase(row);
  });
}

// What stands in a usage map's row.
std::span<const std::uint8_t> mapAt(Writable& file, std::uint32_t pointer) {
  return slotAt(file.page(pointer >> 8), pointer & 0xFF);
}

TEST(WriteMaps, GrowMoveAndTurnIntoReferences) {
  DatabaseBuilder builder;
  builder.addTable(wideTable(u"A"));
  builder.addTable(wideTable(u"B"));
  Writable file(builder);
  insertWide(file, u"A", 0, 1200);
  const TableDefinition first = file.database->table(u"A").definition();
  EXPECT_EQ(mapAt(file, first.ownedMap)[0], 0);
  EXPECT_EQ(slotAt(file.page(1), 0).size(), 69u);
  insertWide(file, u"A", 1200, 2100);  // beyond page 512
  EXPECT_EQ(mapAt(file, first.ownedMap)[0], 1);
  EXPECT_EQ(readUsageMap(file.database->pages(), first.ownedMap, first.page).size(), 700u);
  EXPECT_GT(slotAt(file.page(1), 0).size(), 69u);  // the map of free pages has grown
  // The other table begins where the first one ends.
  insertWide(file, u"B", 0, 300);
  const TableDefinition second = file.database->table(u"B").definition();
  EXPECT_EQ(mapAt(file, second.ownedMap)[0], 0);
  EXPECT_GT(u32At(mapAt(file, second.ownedMap), 1), 512u);
  EXPECT_EQ(file.rows(u"A").size(), 2100u);
  EXPECT_EQ(file.rows(u"B").size(), 300u);
}

TEST(WriteMaps, TheMapOfFreePagesTurnsIntoReferencesWhereItsPageIsFull) {
  DatabaseBuilder builder;
  builder.addTable(wideTable(u"A"));
  Writable file(builder);
  file.patch(1, [](std::span<std::uint8_t> page) {
    DataPageWriter writer(page);
    writer.append(Bytes(writer.freeBytes() - 2u - 8u));
  });
  insertWide(file, u"A", 0, 1800);
  EXPECT_EQ(slotAt(file.page(1), 0)[0], 1);
  EXPECT_EQ(slotAt(file.page(1), 0).size(), 69u);
  // Pages go back to it and come out of it again.
  const std::size_t size = file.content().size();
  eraseAll(file, u"A");
  insertWide(file, u"A", 0, 1700);
  EXPECT_EQ(file.content().size(), size);
}

TEST(WriteMaps, SpaceOfDeletedRowsAndFreedPagesIsUsedAgain) {
  DatabaseBuilder builder;
  auto& table = builder.addTable(wideTable(u"A"));
  builder.addTable(wideTable(u"B"));
  std::vector<RowId> rows;
  for (int i = 0; i < 2000; ++i) rows.push_back(table.insert({i, Text(20, u'x'), Null{}, Text(1500, u'Ω')}));
  Writable file(builder);
  const std::size_t size = file.content().size();
  const auto untouched = [&](std::uint32_t page) { return hexOf(file.page(page)); };
  const std::string otherDefinition = untouched(file.definitionPage(u"B"));
  file.change(u"A", [&](auto& writer) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (i % 2 == 0) writer.erase(rows[i]);
    }
  });
  file.change(u"A", [&](auto& writer) {
    for (int i = 0; i < 1000; ++i) writer.insert(given({2 * i, Text(20, u'y'), Null{}, Text(1400, u'Ж')}));
  });
  // The slots of deleted rows stay, so a little is lost on every page.
  const std::size_t reused = file.content().size();
  EXPECT_LE(reused, size + 4096);
  EXPECT_EQ(untouched(file.definitionPage(u"B")), otherDefinition);
  // The leaves of the emptied index go to the other table.
  eraseAll(file, u"A");
  insertWide(file, u"B", 0, 6);
  EXPECT_EQ(file.content().size(), reused);
}

TEST(WriteMaps, APageThatLooksUsedIsNeverGivenOut) {
  DatabaseBuilder builder;
  auto& table = builder.addTable(wideTable(u"A"));
  builder.addTable(wideTable(u"B"));
  for (int i = 0; i < 20; ++i) table.insert({i, Text(200, u'x'), Null{}, Null{}});
  Writable file(builder);
  const TableDefinition definition = file.database->table(u"A").definition();
  const std::uint32_t used =
      readUsageMap(file.database->pages(), definition.ownedMap, definition.page).front();
  file.patch(1, [&](std::span<std::uint8_t> page) {
    auto map = DataPageWriter(page).row(0).subspan(5);
    map[used / 8] = static_cast<std::uint8_t>(map[used / 8] | 1u << used % 8);
  });
  const std::string before = hexOf(file.page(used));
  {
    Transaction transaction(file.database->pages());
    write::TableWriter writer(transaction, *file.database, u"B");
    for (int i = 0; i < 20; ++i) writer.insert(wideRow(i));
    transaction.commit();
  }
  EXPECT_EQ(hexOf(file.page(used)), before);
}

TEST(WriteMaps, ContradictionsAreDamageAndChangeNothing) {
  const auto refusalAfter = [](const std::function<void(Writable&, const TableDefinition&)>& plant) {
    DatabaseBuilder builder;
    auto& table = builder.addTable(wideTable(u"A"));
    for (int i = 0; i < 4; ++i) table.insert({i, Text(200, u'x'), Null{}, Null{}});
    Writable file(builder);
    const TableDefinition definition = file.database->table(u"A").definition();
    plant(file, definition);
    return file
        .refusal(u"A",
                 [](auto& writer) {
                   for (int i = 10; i < 30; ++i) writer.insert(wideRow(i));
                 })
        .first;
  };
  // A wrong number of free bytes on the page for the next row.
  EXPECT_EQ(refusalAfter([](Writable& file, const TableDefinition& definition) {
              const auto pages = readUsageMap(file.database->pages(), definition.ownedMap, definition.page);
              file.patch(pages.front(), [](auto page) { page[2] = static_cast<std::uint8_t>(page[2] + 4); });
            }),
            ErrorKind::Damaged);
  // The map of free pages of an unknown kind, and one that is gone.
  EXPECT_EQ(refusalAfter([](Writable& file, const TableDefinition&) {
              file.patch(1, [](auto page) { DataPageWriter(page).row(0)[0] = 7; });
            }),
            ErrorKind::Damaged);
  EXPECT_EQ(refusalAfter([](Writable& file, const TableDefinition&) {
              file.patch(1, [](auto page) { DataPageWriter(page).erase(0); });
            }),
            ErrorKind::Damaged);
  // A usage map of an unknown kind is found by the check of the table.
  EXPECT_EQ(refusalAfter([](Writable& file, const TableDefinition& definition) {
              file.patch(definition.ownedMap >> 8,
                         [&](auto page) { DataPageWriter(page).row(definition.ownedMap & 0xFF)[0] = 9; });
            }),
            ErrorKind::NotWritable);
}

}  // namespace
}  // namespace jet
