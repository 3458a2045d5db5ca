#include "jet/check.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <iostream>
#include <optional>
#include <random>

#include "common/memory_files.h"
#include "jet/create/database_builder.h"
#include "jet/error.h"
#include "jet/file_patch.h"
#include "jet/shared_files.h"
#include "jet/worn_database.h"

namespace jet {
namespace {

using test::FilePatch;

CheckReport checkContent(const std::vector<std::uint8_t>& content) {
  MemoryFiles files;
  files.put("checked.mdb", content);
  Database database(files, "checked.mdb");
  return check(database);
}

std::string joined(const std::vector<std::string>& sentences) {
  std::string result;
  for (const std::string& sentence : sentences) result += sentence + "\n";
  return result;
}

TEST(Check, SharedFilesAreSound) {
  const auto shared = test::sharedFiles();
  if (shared.empty()) GTEST_SKIP() << "the shared databases are not there";
  std::uint64_t entries = 0, compared = 0;
  for (const auto& file : shared) {
    Database database(systemFiles(), file.database);
    const CheckReport report = check(database);
    EXPECT_TRUE(report.errors.empty()) << file.database << "\n" << joined(report.errors);
    EXPECT_GT(report.tables, 3u) << file.database;
    entries += report.indexEntries;
    compared += report.keysCompared;
  }
  EXPECT_GT(compared, 0u);
  EXPECT_EQ(compared, entries) << "the shared files hold only keys that can be computed";
  std::cout << compared << " of " << entries << " stored keys computed, all equal\n";
}

TEST(Check, AWornDatabaseIsSound) {
  for (const std::uint32_t key : {0u, 0x4D69'6C6Bu}) {
    const test::WornDatabase worn = test::makeWornDatabase({.databaseKey = key});
    const CheckReport report = checkContent(worn.file);
    EXPECT_TRUE(report.errors.empty()) << joined(report.errors);
    EXPECT_TRUE(report.remarks.empty()) << joined(report.remarks);
    EXPECT_GE(report.rows, worn.persons.size() + worn.assignments + worn.measurements);
    EXPECT_GE(report.keysCompared, 2 * worn.persons.size() + worn.assignments);
  }
}

// "Leute": a tree of two levels, two memos on pages of their own, two moved rows. "Ohne": no index.
struct CheckedFile {
  std::vector<std::uint8_t> content;
  std::vector<RowId> people, moved, memos;
};

constexpr int personCount = 1'000;

CheckedFile makeCheckedFile() {
  CheckedFile result;
  create::DatabaseBuilder builder;
  auto& people =
      builder.addTable({.name = u"Leute",
                        .columns = {{.name = u"ID", .type = ColumnType::Long},
                                    {.name = u"Name", .type = ColumnType::Text, .characters = 40},
                                    {.name = u"Notiz", .type = ColumnType::Memo}},
                        .indexes = {{.name = u"PrimaryKey", .columns = {u"ID"}, .primaryKey = true},
                                    {.name = u"Name", .columns = {u"Name"}, .ignoreNulls = true}}});
  for (int i = 0; i < personCount; ++i) {
    const bool withMemo = i == 10 || i == 20;
    const RowId row = people.insert({std::int32_t{i}, i % 9 == 0 ? Value(Null{}) : Value(Text(u"Name")),
                                     withMemo ? Value(Text(1'000, u'Ω')) : Value(Null{})});
    result.people.push_back(row);
    if (withMemo) result.memos.push_back(row);
  }
  for (const std::size_t i : {30u, 31u}) {
    people.move(result.people[i]);
    result.moved.push_back(result.people[i]);
  }
  auto& plain = builder.addTable({.name = u"Ohne", .columns = {{.name = u"Zahl", .type = ColumnType::Long}}});
  for (int i = 0; i < 600; ++i) plain.insert({std::int32_t{i}});
  result.content = builder.finish();
  return result;
}

struct Fault {
  const char* name;
  std::function<void(FilePatch&, const CheckedFile&)> plant;
  const char* error;  // a part of what has to be reported
};

constexpr std::size_t definitionRowCount = 16, definitionOwnedMap = 55;

const Fault faults[] = {
    {"a map used twice",
     [](FilePatch& file, const CheckedFile&) {
       file.put32(file.table(u"Ohne").definition().page, definitionOwnedMap,
                  file.table(u"Leute").definition().ownedMap);
     },
     "is used twice"},
    {"a page of an index in the map of a table",
     [](FilePatch& file, const CheckedFile&) {
       file.setMapBit(file.table(u"Ohne").definition().ownedMap, file.root(u"Leute"), true);
     },
     "belongs to index 0 of table Leute and to table Ohne"},
    {"a page that the map of a table lacks",
     [](FilePatch& file, const CheckedFile& checked) {
       file.setMapBit(file.table(u"Leute").definition().ownedMap, checked.people[500].page, false);
     },
     "which does not exist"},
    {"a map of free space with foreign pages",
     [](FilePatch& file, const CheckedFile& checked) {
       file.setMapBit(file.table(u"Ohne").definition().freeMap, checked.people[0].page, true);
     },
     "the free space map has pages that its page map has not"},
    {"a wrong row count without a proof",
     [](FilePatch& file, const CheckedFile&) {
       file.put32(file.table(u"Ohne").definition().page, definitionRowCount, 599);
     },
     "it has 600 rows, its count says 599"},
    {"a page in use that counts as free",
     [](FilePatch& file, const CheckedFile& checked) { file.setMapBit(0x100, checked.people[0].page, true); },
     "is in use, but the map of free pages gives it away"},
    {"an index map without one of its pages",
     [](FilePatch& file, const CheckedFile&) {
       file.setMapBit(file.table(u"Leute").definition().indexes[0].ownedMap, file.treePage(u"Leute", 0, {1}),
                      false);
     },
     "its usage map has"},
    {"a value that its key does not have",
     [](FilePatch& file, const CheckedFile& checked) {
       file.put32(checked.people[3].page, file.row(checked.people[3]).first + 2, 4711);
     },
     "is not that of its values"},
    {"an entry that leads to the row of another",
     [](FilePatch& file, const CheckedFile&) {
       const std::uint32_t leaf = file.treePage(u"Leute", 0, {0});
       file.copy(leaf, file.entryStart(leaf, 2) - 4, file.entryStart(leaf, 3) - 4, 4);
     },
     "two entries lead to row"},
    {"a row without its entry",
     [](FilePatch& file, const CheckedFile&) {
       const std::uint32_t leaf = file.treePage(u"Leute", 0, {0});
       file.copy(leaf, file.entryStart(leaf, 2) - 4, file.entryStart(leaf, 3) - 4, 4);
     },
     "has no entry"},
    {"a deleted row that kept its entries",
     [](FilePatch& file, const CheckedFile& checked) {
       const RowId row = checked.people[40];
       file.put8(row.page, 15u + 2u * row.slot,
                 static_cast<std::uint8_t>(file.u8(row.page, 15u + 2u * row.slot) | 0xC0));
     },
     "which does not exist"},
    {"an entry for Nulls that should be left out",
     [](FilePatch& file, const CheckedFile& checked) {
       const auto [start, end] = file.row(checked.people[1]);
       file.put8(checked.people[1].page, end - 1, 0x01);  // the mask: only the ID is there
     },
     "have an entry"},
    {"one key twice in a unique index",
     [](FilePatch& file, const CheckedFile& checked) {
       const std::uint32_t leaf = file.treePage(u"Leute", 0, {0});
       file.copy(leaf, file.entryStart(leaf, 5), file.entryStart(leaf, 6), 5);
       file.put32(checked.people[6].page, file.row(checked.people[6]).first + 2, 5);
     },
     "a key stands twice in a unique index"},
    {"a node whose entry is not the last of its child",
     [](FilePatch& file, const CheckedFile&) {
       const std::uint32_t root = file.root(u"Leute");
       file.put8(root, file.entryStart(root, 1) - 5,
                 static_cast<std::uint8_t>(file.u8(root, file.entryStart(root, 1) - 5) + 1));
     },
     "the entry of a node is not the last one of its child"},
    {"a leaf that does not link back",
     [](FilePatch& file, const CheckedFile&) {
       file.put32(file.treePage(u"Leute", 0, {2}), FilePatch::previousLink, file.treePage(u"Leute", 0, {0}));
     },
     "a leaf does not link back"},
    {"a leaf that links past the next",
     [](FilePatch& file, const CheckedFile&) {
       file.put32(file.treePage(u"Leute", 0, {0}), FilePatch::nextLink, file.treePage(u"Leute", 0, {2}));
     },
     "a leaf does not link to the one behind it"},
    {"a child that is in the tree twice",
     [](FilePatch& file, const CheckedFile&) {
       const std::uint32_t root = file.root(u"Leute");
       file.copy(root, file.entryStart(root, 1) - 4, file.entryStart(root, 2) - 4, 4);
     },
     "stands twice in index 0 of table Leute"},
    {"two memos that share their pages",
     [](FilePatch& file, const CheckedFile& checked) {
       // The reference is the last variable value: 12 bytes before the end, 2 offsets, count, and mask.
       const auto reference = [&](RowId row) { return file.row(row).second - 1 - 2 - 3 * 2 - 12; };
       file.put32(checked.memos[0].page, reference(checked.memos[0]) + 4,
                  file.u32(checked.memos[1].page, reference(checked.memos[1]) + 4));
     },
     "two long values share row"},
    {"a long value map without one of its pages",
     [](FilePatch& file, const CheckedFile&) {
       const auto& memo = file.table(u"Leute").definition().columns[2];
       for (std::uint32_t page = 0; page < file.content().size() / FilePatch::pageSize; ++page) {
         if (file.u32(page, 4) == 0x4C41564C) file.setMapBit(memo.longValueOwnedMap, page, false);
       }
     },
     "the page map of the long values of column Notiz lacks pages"},
    {"two rows that have moved to one place",
     [](FilePatch& file, const CheckedFile& checked) {
       file.put32(checked.moved[0].page, file.row(checked.moved[0]).first,
                  file.u32(checked.moved[1].page, file.row(checked.moved[1]).first));
     },
     "two rows have moved to row"},
    {"a row that reaches beyond its page",
     [](FilePatch& file, const CheckedFile& checked) {
       file.put8(checked.people[2].page, 15u + 2u * checked.people[2].slot, 0x1F);
     },
     "a row lies outside its place on the page"},
    {"a definition that is none",
     [](FilePatch& file, const CheckedFile&) { file.put8(file.table(u"Ohne").definition().page, 0, 0x01); },
     "Table Ohne: "},
    {"a catalog that cannot be read",
     [](FilePatch& file, const CheckedFile&) {
       Row row;
       file.table(u"MSysObjects").scan().next(row);
       file.put8(row.id().page, 0, 0x02);
     },
     "The catalog: "},
};

TEST(Check, FindsPlantedFaults) {
  const CheckedFile checked = makeCheckedFile();
  const CheckReport sound = checkContent(checked.content);
  ASSERT_TRUE(sound.errors.empty()) << joined(sound.errors);
  for (const Fault& fault : faults) {
    FilePatch file(checked.content);
    fault.plant(file, checked);
    ASSERT_NE(file.content(), checked.content) << fault.name;
    const std::string errors = joined(checkContent(file.content()).errors);
    EXPECT_NE(errors, "") << fault.name;
    EXPECT_NE(errors.find(fault.error), std::string::npos) << fault.name << ":\n" << errors;
  }
}

TEST(Check, HarmlessThingsAreRemarks) {
  const CheckedFile checked = makeCheckedFile();
  FilePatch staleCount(checked.content);
  staleCount.put32(staleCount.table(u"Leute").definition().page, definitionRowCount, personCount + 7);
  CheckReport report = checkContent(staleCount.content());
  EXPECT_TRUE(report.errors.empty()) << joined(report.errors);
  EXPECT_NE(joined(report.remarks).find("its count says 1007"), std::string::npos) << joined(report.remarks);

  // A page behind the end that nobody owns and the map of free pages does not know as free.
  FilePatch lostPage(checked.content);
  const auto last = static_cast<std::uint32_t>(checked.content.size() / FilePatch::pageSize);
  lostPage.setMapBit(0x100, last, false);
  std::vector<std::uint8_t> longer = lostPage.content();
  longer.resize(longer.size() + FilePatch::pageSize);
  report = checkContent(longer);
  EXPECT_TRUE(report.errors.empty()) << joined(report.errors);
  EXPECT_NE(joined(report.remarks).find("1 pages belong to nobody"), std::string::npos)
      << joined(report.remarks);
}

TEST(Check, AFailureOfTheSystemIsNoDamage) {
  MemoryFiles files;
  auto& stored = files.put("checked.mdb", makeCheckedFile().content);
  Database database(files, "checked.mdb");
  stored.readFails = ErrorKind::Io;
  try {
    const CheckReport report = check(database);
    ADD_FAILURE() << joined(report.errors);
  } catch (const Error& error) {
    EXPECT_EQ(error.kind(), ErrorKind::Io);
  }
}

#ifdef __SANITIZE_ADDRESS__
constexpr int damagedCopies = 60;
#else
constexpr int damagedCopies = 600;
#endif

// Noise, a page in the place of another, single bytes: a report, and soon, whatever the file holds.
TEST(Check, AlwaysReports) {
  const std::vector<std::uint8_t> original = test::makeWornDatabase().file;
  const std::size_t pages = original.size() / FilePatch::pageSize;
  std::mt19937 random(4711);
  const auto below = [&](std::size_t limit) { return random() % limit; };
  int refused = 0, withErrors = 0;
  for (int i = 0; i < damagedCopies; ++i) {
    std::vector<std::uint8_t> copy = original;
    const auto page = [&] {
      return copy.begin() + static_cast<std::ptrdiff_t>((1 + below(pages - 1)) * 4096);
    };
    if (i % 3 == 0) std::generate_n(page(), 4096, [&] { return static_cast<std::uint8_t>(random()); });
    if (i % 3 == 1) std::copy_n(page(), 4096, page());
    if (i % 3 == 2) {
      for (int changes = 0; changes < 10; ++changes) {
        copy[4096 + below(copy.size() - 4096)] = static_cast<std::uint8_t>(random());
      }
    }
    MemoryFiles files;
    files.put("copy.mdb", std::move(copy));
    const auto start = std::chrono::steady_clock::now();
    std::optional<Database> database;
    try {
      database.emplace(files, "copy.mdb");
    } catch (const Error&) {
      ++refused;
      continue;
    }
    withErrors += check(*database).errors.empty() ? 0 : 1;
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2)) << "copy " << i;
  }
  EXPECT_LT(refused, damagedCopies / 10);
  EXPECT_GT(withErrors, damagedCopies / 2);
}

}  // namespace
}  // namespace jet
