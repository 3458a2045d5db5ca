#include <algorithm>
#include <array>
#include <chrono>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <random>

#include "common/memory_files.h"
#include "jet/create/database_builder.h"
#include "jet/database.h"
#include "jet/error.h"
#include "jet/export.h"
#include "jet/shared_files.h"
#include "jet/sql/session.h"
#include "jet/text_codec.h"
#include "jet/worn_database.h"

namespace jet {
namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr int copies = 100;
#else
constexpr int copies = 1000;
#endif
constexpr auto longestRead = std::chrono::seconds(1);

using Content = std::vector<std::uint8_t>;

struct Original {
  std::string name;
  Content content;
  std::size_t pageSize = 4096;
  std::vector<std::pair<Text, std::string>> tables;  // with what they export
};

struct Tally {
  int refused = 0, unchanged = 0, changed = 0;
};

class Damager {
 public:
  Content damage(const Original& original, int kind) {
    Content copy = original.content;
    switch (kind % 4) {
      case 0:
        randomBytes(copy);
        break;
      case 1:
        noisePage(copy, original.pageSize);
        break;
      case 2:
        cutOff(copy, original.pageSize);
        break;
      default:
        changePointer(copy, original.pageSize);
    }
    return copy;
  }
  std::size_t below(std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
  }

 private:
  std::uint8_t byte() { return static_cast<std::uint8_t>(random_()); }
  void randomBytes(Content& copy) {
    for (std::size_t count = 1 + below(20); count > 0; --count) copy[below(copy.size())] = byte();
  }
  void noisePage(Content& copy, std::size_t pageSize) {
    const std::size_t start = below(copy.size() / pageSize) * pageSize;
    for (std::size_t i = 0; i < pageSize; ++i) copy[start + i] = byte();
  }
  void cutOff(Content& copy, std::size_t pageSize) {
    const bool wholePages = below(2) == 0;
    copy.resize(wholePages ? below(copy.size() / pageSize) * pageSize : below(copy.size()));
  }
  // Four bytes that could be a page, or a page and a row, name another one.
  void changePointer(Content& copy, std::size_t pageSize) {
    const auto pages = static_cast<std::uint32_t>(copy.size() / pageSize);
    for (int attempt = 0; attempt < 10'000; ++attempt) {
      const std::size_t place = below(copy.size() - 4);
      const std::uint32_t old = copy[place] | copy[place + 1] << 8 | copy[place + 2] << 16 |
                                static_cast<std::uint32_t>(copy[place + 3]) << 24;
      const bool isPage = old > 0 && old < pages;
      const bool isRow = old >> 8 > 0 && old >> 8 < pages && (old & 0xFF) < 60;
      if (!isPage && !isRow) continue;
      std::uint32_t now = static_cast<std::uint32_t>(below(pages + 2));
      if (!isPage) now = now << 8 | static_cast<std::uint32_t>(below(20));
      for (unsigned i = 0; i < 4; ++i) copy[place + i] = static_cast<std::uint8_t>(now >> (8 * i));
      return;
    }
  }

  std::mt19937 random_{20'260'703};
};

Original makeOriginal(std::string name, Content content) {
  Original original{std::move(name), std::move(content), 4096, {}};
  MemoryFiles files;
  files.put("whole.mdb", original.content);
  Database database(files, "whole.mdb");
  original.pageSize = database.pages().format().pageSize;
  for (const TableEntry& entry : database.tables()) {
    if (!entry.system) original.tables.emplace_back(entry.name, exportTable(database.table(entry.name)));
  }
  return original;
}

auto lines(const std::string& text) { return std::count(text.begin(), text.end(), '\n'); }

// One table of one copy: an error of the engine, or the right number of rows.
void readDamaged(Database& database, const Text& name, const std::string& expected, Tally& tally) {
  const std::string text = exportTable(database.table(name));
  EXPECT_EQ(lines(text), lines(expected)) << toUtf8(name);
  text == expected ? ++tally.unchanged : ++tally.changed;
}

void readCopy(const Original& original, Content copy, Damager& damager, Tally& tally) {
  MemoryFiles files;
  files.put("copy.mdb", std::move(copy));
  const std::size_t first = damager.below(original.tables.size());
  const std::size_t second = damager.below(original.tables.size());
  for (const std::size_t table : {first, second}) {
    try {
      Database database(files, "copy.mdb");
      readDamaged(database, original.tables[table].first, original.tables[table].second, tally);
    } catch (const Error&) {
      ++tally.refused;
    }
  }
}

void tortureAll(const std::vector<Original>& originals) {
  Damager damager;
  Tally tally;
  for (int i = 0; i < copies; ++i) {
    const Original& original = originals[static_cast<std::size_t>(i / 4) % originals.size()];
    SCOPED_TRACE(original.name + ", copy " + std::to_string(i));
    Content copy = damager.damage(original, i);
    const auto start = std::chrono::steady_clock::now();
    readCopy(original, std::move(copy), damager, tally);
    EXPECT_LT(std::chrono::steady_clock::now() - start, longestRead);
  }
  EXPECT_EQ(tally.refused + tally.unchanged + tally.changed, 2 * copies);
  EXPECT_GT(tally.refused, copies / 10) << "the damage must hit something";
  std::cout << copies << " damaged copies, two tables of each: " << tally.refused << " refused, "
            << tally.unchanged << " read unchanged, " << tally.changed << " read with changed values\n";
}

TEST(Damage, CopiesOfAWornDatabase) {
  tortureAll({makeOriginal("worn", test::makeWornDatabase().file),
              makeOriginal("worn and encoded", test::makeWornDatabase({.databaseKey = 0x4D69'6C6B}).file)});
}

TEST(Damage, CopiesOfTheSharedFiles) {
  std::vector<Original> originals;
  for (const test::SharedFile& file : test::sharedFiles()) {
    originals.push_back(makeOriginal(file.database.filename().string(), test::readAll(file.database)));
  }
  if (originals.empty()) GTEST_SKIP() << "the shared files are not there";
  tortureAll(originals);
}

struct KeyedFile {
  Content content;
  std::vector<Text> queries;  // each has exactly one row
};

KeyedFile makeKeyedFile() {
  create::DatabaseBuilder builder;
  auto& table = builder.addTable({.name = u"T",
                                  .columns = {{.name = u"ID", .type = ColumnType::Long},
                                              {.name = u"Name", .type = ColumnType::Text, .characters = 20}},
                                  .indexes = {{.name = u"ID", .columns = {u"ID"}, .primaryKey = true},
                                              {.name = u"Name", .columns = {u"Name"}}}});
  const auto wide = [](const std::string& digits) { return Text(digits.begin(), digits.end()); };
  KeyedFile result;
  for (int i = 0; i < 800; ++i) {
    const Text name =
        Text(1, static_cast<char16_t>(u'a' + i * 7 % 26)) + wide(std::to_string(i * 7919 % 800));
    table.insert({std::int32_t{i * 3}, name});
    result.queries.push_back(u"SELECT ID FROM T WHERE ID = " + wide(std::to_string(i * 3)));
    result.queries.push_back(u"SELECT ID FROM T WHERE Name = '" + name + u"'");
  }
  result.content = builder.finish();
  return result;
}

// A byte of an index is wrong: the head of a page, the ends of its entries, or an entry.
TEST(Damage, QueriesByKeyMissNoRow) {
  const KeyedFile original = makeKeyedFile();
  std::vector<std::size_t> indexPages;
  for (std::size_t start = 4096; start < original.content.size(); start += 4096) {
    if (original.content[start] == 3 || original.content[start] == 4) indexPages.push_back(start);
  }
  std::mt19937 random(1999);
  int refused = 0, answered = 0;
  for (int i = 0; i < copies / 4; ++i) {
    Content copy = original.content;
    constexpr std::array<std::pair<unsigned, unsigned>, 3> parts{{{0, 27}, {27, 453}, {480, 3616}}};
    const auto [begin, length] = parts[static_cast<std::size_t>(i) % parts.size()];
    const std::size_t place = indexPages[random() % indexPages.size()] + begin + random() % length;
    copy[place] = static_cast<std::uint8_t>(random() % 2 == 0 ? random() : copy[place] ^ 1u << random() % 8);
    MemoryFiles files;
    files.put("copy.mdb", std::move(copy));
    Database database(files, "copy.mdb");
    sql::Session session(database);
    for (const Text& query : original.queries) {
      try {
        EXPECT_EQ(session.query(query).rowCount(), 1u) << "copy " << i << ": " << toUtf8(query);
        ++answered;
      } catch (const Error& error) {
        EXPECT_EQ(error.kind(), ErrorKind::Damaged) << error.what();
        ++refused;
      }
    }
  }
  EXPECT_GT(refused, 0);
  EXPECT_GT(answered, refused);
  std::cout << copies / 4 << " damaged indexes: " << answered << " queries answered, " << refused
            << " refused\n";
}

}  // namespace
}  // namespace jet
