#include <functional>
#include <gtest/gtest.h>
#include <optional>

#include "common/memory_files.h"
#include "jet/create/database_builder.h"
#include "jet/error.h"
#include "jet/file_patch.h"
#include "jet/index.h"
#include "jet/sql/session.h"

namespace jet {
namespace {

using test::FilePatch;

constexpr int numberCount = 2'000;

// One index over a long: a root and leaves under it.
std::vector<std::uint8_t> makeContent() {
  create::DatabaseBuilder builder;
  auto& table = builder.addTable({.name = u"Zahlen",
                                  .columns = {{.name = u"Zahl", .type = ColumnType::Long}},
                                  .indexes = {{.name = u"Zahl", .columns = {u"Zahl"}}}});
  for (int i = 0; i < numberCount; ++i) table.insert({std::int32_t{i}});
  return builder.finish();
}

// What a look at the whole index ends with: the reason of the Damaged error, or nothing.
std::string failure(const std::function<void()>& use) {
  try {
    use();
  } catch (const Error& error) {
    EXPECT_EQ(error.kind(), ErrorKind::Damaged) << error.what();
    EXPECT_TRUE(error.page().has_value()) << error.what();
    return error.reason();
  }
  return "";
}

void walkAll(const Index& index) {
  IndexWalk walk = index.walk();
  int entries = 0;
  for (IndexEntry entry; walk.next(entry);) ++entries;
  EXPECT_EQ(entries, numberCount);
}

void lookUpAll(const Index& index) {
  for (std::int32_t i = 0; i < numberCount; ++i) {
    std::vector<RowId> rows;
    EXPECT_TRUE(index.lookup(std::vector<Value>{i}, rows));
    EXPECT_EQ(rows.size(), 1u) << i;
  }
}

struct Damage {
  const char* name;
  std::function<void(FilePatch&)> plant;
  const char* walkFailure;
  const char* lookupFailure;  // "" where lookups need nothing of what is damaged, and find every row
};

std::uint32_t leaf(FilePatch& file, int child) { return file.treePage(u"Zahlen", 0, {child}); }

const Damage damages[] = {
    {"nothing", [](FilePatch&) {}, "", ""},
    {"a leaf that links to itself",
     [](FilePatch& file) { file.put32(leaf(file, 1), FilePatch::nextLink, leaf(file, 1)); },
     "the links between index leaves contradict each other",
     "the links between index leaves contradict each other"},
    {"a leaf that links to the first one",
     [](FilePatch& file) {
       file.put32(leaf(file, 2), FilePatch::nextLink, leaf(file, 0));
       file.put32(leaf(file, 0), FilePatch::previousLink, leaf(file, 2));
     },
     "the first index leaf has one before it", "an index node leads to the wrong leaf"},
    {"links that leave out a leaf",
     [](FilePatch& file) {
       file.put32(leaf(file, 1), FilePatch::nextLink, leaf(file, 3));
       file.put32(leaf(file, 3), FilePatch::previousLink, leaf(file, 1));
     },
     "the links between index leaves contradict each other",
     "the links between index leaves contradict each other"},
    {"links that end too early", [](FilePatch& file) { file.put32(leaf(file, 1), FilePatch::nextLink, 0); },
     "the links between index leaves contradict each other",
     "the links between index leaves contradict each other"},
    {"a link out of the file",
     [](FilePatch& file) { file.put32(leaf(file, 1), FilePatch::nextLink, 0xFFFFFF); },
     "the links between index leaves contradict each other",
     "a reference leads to page 16777215 outside the file"},
    {"a link to a page of another kind",
     [](FilePatch& file) { file.put32(leaf(file, 1), FilePatch::nextLink, 2); },
     "the links between index leaves contradict each other", "a page of an index was expected"},
    {"entries out of order",
     [](FilePatch& file) { file.put8(leaf(file, 2), file.entryStart(leaf(file, 2), 7) + 4, 0xFF); },
     "index entries are out of order", "index entries are out of order"},
    {"the same entry twice",
     [](FilePatch& file) {
       const std::uint32_t page = leaf(file, 2);
       file.copy(page, file.entryStart(page, 7), file.entryStart(page, 8), 9);
     },
     "index entries are out of order", "index entries are out of order"},
    {"an end beyond the page",
     [](FilePatch& file) { file.put8(leaf(file, 2), FilePatch::bitmapStart + 452, 0x80); },
     "an index entry ends beyond the page", "an index entry ends beyond the page"},
    {"ends too close to each other",
     [](FilePatch& file) { file.put8(leaf(file, 2), FilePatch::bitmapStart, 0x03); },
     "an index entry is too short", "an index entry is too short"},
    {"a prefix longer than the first entry",
     [](FilePatch& file) { file.put8(leaf(file, 2), FilePatch::prefixLength, 200); },
     "an index page shares more than its first entry", "an index page shares more than its first entry"},
    {"a prefix where entries are in full",
     [](FilePatch& file) { file.put8(file.root(u"Zahlen"), FilePatch::prefixLength, 8); }, "",
     "an index node leads to the wrong leaf"},
    {"a leaf of another table", [](FilePatch& file) { file.put8(leaf(file, 2), 4, 2); },
     "an index page belongs to another table", "an index page belongs to another table"},
    {"a child that is its own parent",
     [](FilePatch& file) {
       const std::uint32_t root = file.root(u"Zahlen");
       file.put8(root, file.entryStart(root, 1) - 1, static_cast<std::uint8_t>(root));
     },
     "an index tree is too deep", "an index tree is too deep"},
    {"a tail that is its own parent",
     [](FilePatch& file) { file.put32(file.root(u"Zahlen"), FilePatch::tailLink, file.root(u"Zahlen")); },
     "the links between index leaves contradict each other", "an index tree is too deep"},
    {"a node without children",
     [](FilePatch& file) {
       const std::uint32_t root = file.root(u"Zahlen");
       for (std::size_t i = 0; i < 453; ++i) file.put8(root, FilePatch::bitmapStart + i, 0);
       file.put32(root, FilePatch::tailLink, 0);
     },
     "an index node has no children", "an index node has no children"},
    {"a node whose entry is too small, so that rows seem to be absent",
     [](FilePatch& file) {
       const std::uint32_t root = file.root(u"Zahlen");
       const std::size_t key = file.entryStart(root, 2);
       file.put8(root, key + 4, static_cast<std::uint8_t>(file.u8(root, key + 4) - 5));
     },
     "", "an index node leads to the wrong leaf"},
    {"a node whose entry is too great, which the links make good",
     [](FilePatch& file) {
       const std::uint32_t root = file.root(u"Zahlen");
       const std::size_t key = file.entryStart(root, 2);
       file.put8(root, key + 4, static_cast<std::uint8_t>(file.u8(root, key + 4) + 5));
     },
     "", ""},
};

TEST(IndexDamage, IsReportedAndNeverHidesRows) {
  const std::vector<std::uint8_t> content = makeContent();
  for (const Damage& damage : damages) {
    FilePatch file(content);
    damage.plant(file);
    MemoryFiles files;
    files.put("damaged.mdb", file.content());
    Database database(files, "damaged.mdb");
    const Index& index = database.table(u"Zahlen").index(0);
    SCOPED_TRACE(damage.name);
    EXPECT_EQ(failure([&] { walkAll(index); }), damage.walkFailure);
    EXPECT_EQ(failure([&] { lookUpAll(index); }), damage.lookupFailure);
    EXPECT_EQ(failure([&] { index.countEntries(); }), damage.walkFailure);
  }
}

// A key that was changed within the order, and two entries that became one: the index does not answer for
// the rows that it hides, so that a query finds them among the rows themselves.
TEST(IndexDamage, AKeyThatIsNotThatOfItsRowHidesNothing) {
  struct Change {
    const char* name;
    std::function<void(FilePatch&, std::uint32_t leaf)> plant;
  };
  const Change changes[] = {
      {"in the middle",
       [](FilePatch& file, std::uint32_t leaf) { file.put8(leaf, file.entryStart(leaf, 7) + 4, 0xFF); }},
      {"the first of a leaf",
       [](FilePatch& file, std::uint32_t leaf) { file.put8(leaf, file.entryStart(leaf, 0) + 4, 0xFF); }},
      {"two entries in one",
       [](FilePatch& file, std::uint32_t leaf) {
         const std::size_t bit = file.entryStart(leaf, 8) - FilePatch::entriesStart;
         const std::size_t at = FilePatch::bitmapStart + bit / 8;
         file.put8(leaf, at, static_cast<std::uint8_t>(file.u8(leaf, at) & ~(1u << bit % 8)));
       }},
  };
  for (const bool isUnique : {false, true}) {
    create::DatabaseBuilder builder;
    auto& table =
        builder.addTable({.name = u"Zahlen",
                          .columns = {{.name = u"Zahl", .type = ColumnType::Long}},
                          .indexes = {{.name = u"Zahl", .columns = {u"Zahl"}, .unique = isUnique}}});
    for (int i = 0; i < numberCount; ++i) table.insert({std::int32_t{i * 256}});
    const std::vector<std::uint8_t> content = builder.finish();
    for (const Change& change : changes) {
      SCOPED_TRACE(std::string(change.name) + (isUnique ? ", unique" : ""));
      FilePatch file(content);
      change.plant(file, leaf(file, 2));
      MemoryFiles files;
      files.put("changed.mdb", file.content());
      Database database(files, "changed.mdb");
      sql::Session session(database);
      int givenUp = 0;
      for (int i = 0; i < numberCount; ++i) {
        std::vector<RowId> rows;
        givenUp += database.table(u"Zahlen").index(0).lookup(std::vector<Value>{i * 256}, rows) ? 0 : 1;
        const std::string digits = std::to_string(i * 256);
        const Text query = u"SELECT Zahl FROM Zahlen WHERE Zahl = " + Text(digits.begin(), digits.end());
        try {
          EXPECT_EQ(session.query(query).rowCount(), 1u) << i;
        } catch (const Error& error) {
          EXPECT_EQ(error.kind(), ErrorKind::Damaged) << error.what();
        }
      }
      EXPECT_GE(givenUp, 1);
      EXPECT_LE(givenUp, 4);
    }
  }
}

// Access shortens the entries of full pages; its shared bytes may reach into the row behind the key.
TEST(IndexDamage, SharedBytesOfEntriesAreNoDamage) {
  for (const std::uint16_t shared : {1, 5, 6, 7}) {
    SCOPED_TRACE(shared);
    create::DatabaseBuilder builder;
    auto& table = builder.addTable({.name = u"Gleich",
                                    .columns = {{.name = u"Zahl", .type = ColumnType::Long}},
                                    .indexes = {{.name = u"Zahl", .columns = {u"Zahl"}}}});
    std::vector<RowId> expected;
    for (int i = 0; i < 40; ++i) expected.push_back(table.insert({std::int32_t{7}}));
    FilePatch file(builder.finish());
    const std::uint32_t root = file.root(u"Gleich");
    std::vector<std::uint8_t> entries;
    for (std::size_t i = 0; i < 40; ++i) {
      for (std::size_t at = i == 0 ? 0 : shared; at < 9; ++at) {
        entries.push_back(file.u8(root, file.entryStart(root, i) + at));
      }
    }
    for (std::size_t i = 0; i < 453; ++i) file.put8(root, FilePatch::bitmapStart + i, 0);
    for (std::size_t i = 0; i < entries.size(); ++i) file.put8(root, FilePatch::entriesStart + i, entries[i]);
    for (std::size_t i = 0, end = 9; i < 40; ++i, end += 9u - shared) {
      const std::size_t place = FilePatch::bitmapStart + end / 8;
      file.put8(root, place, static_cast<std::uint8_t>(file.u8(root, place) | 1u << (end % 8)));
    }
    file.put8(root, FilePatch::prefixLength, static_cast<std::uint8_t>(shared));

    MemoryFiles files;
    files.put("shared.mdb", file.content());
    Database database(files, "shared.mdb");
    const Index& index = database.table(u"Gleich").index(0);
    std::vector<RowId> found, absent, walked;
    EXPECT_TRUE(index.lookup(std::vector<Value>{std::int32_t{7}}, found));
    EXPECT_EQ(found, expected);
    for (const std::int32_t other : {6, 8, -7}) EXPECT_TRUE(index.lookup(std::vector<Value>{other}, absent));
    EXPECT_TRUE(absent.empty());
    IndexWalk walk = index.walk();
    for (IndexEntry entry; walk.next(entry);) walked.push_back(entry.row);
    EXPECT_EQ(walked, expected);
  }
}

}  // namespace
}  // namespace jet
