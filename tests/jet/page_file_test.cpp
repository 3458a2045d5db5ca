#include "jet/page_file.h"

#include <gtest/gtest.h>

#include "common/memory_files.h"
#include "jet/database.h"
#include "jet/error.h"
#include "jet/export.h"
#include "jet/worn_database.h"

namespace jet {
namespace {

TEST(PageFile, EncodedPagesReadLikePlainOnes) {
  MemoryFiles files;
  files.put("plain.mdb", test::makeWornDatabase().file);
  files.put("encoded.mdb", test::makeWornDatabase({.databaseKey = 0x8C51'3A07}).file);
  ASSERT_NE(files.at("plain.mdb").content, files.at("encoded.mdb").content);
  Database plain(files, "plain.mdb"), encoded(files, "encoded.mdb");
  EXPECT_EQ(encoded.header().databaseKey, 0x8C51'3A07u);
  ASSERT_EQ(plain.tables().size(), encoded.tables().size());
  for (const TableEntry& entry : plain.tables()) {
    EXPECT_EQ(exportTable(plain.table(entry.name)), exportTable(encoded.table(entry.name)));
  }
}

TEST(PageFile, KeepsTheLatestPagesWithinItsBound) {
  MemoryFiles files;
  auto& stored = files.put("cache.mdb", test::makeWornDatabase().file);
  constexpr std::size_t bound = 5 * 4600;
  const PageFile file(files, "cache.mdb", bound);
  ASSERT_GT(file.pageCount(), 30u);
  const PageRef kept = file.page(7, 0);
  const auto bytes = kept->bytes;
  for (std::uint32_t page = 1; page < file.pageCount(); ++page) {
    file.page(2, 0);  // asked for again and again: stays
    file.page(page, 0);
    EXPECT_LE(file.cachedBytes(), bound);
  }
  const std::uint64_t before = stored.reads;
  file.page(2, 0);
  file.page(file.pageCount() - 1, 0);
  EXPECT_EQ(stored.reads, before);
  file.page(7, 0);
  EXPECT_EQ(stored.reads, before + 1);
  EXPECT_EQ(kept->bytes, bytes) << "a page in use outlives its place in the cache";
}

TEST(PageFile, AFileSmallerThanOnePageOfCacheStillReads) {
  MemoryFiles files;
  files.put("small.mdb", test::makeWornDatabase().file);
  Database database(files, "small.mdb", {.cacheBytes = 1, .warn = {}});
  EXPECT_GT(exportTable(database.table(u"Personen")).size(), 10'000u);
}

TEST(PageFile, ReferencesOutsideBlameWhoMadeThem) {
  MemoryFiles files;
  auto& stored = files.put("outside.mdb", test::makeWornDatabase().file);
  const PageFile file(files, "outside.mdb", 1u << 20);
  for (const std::uint32_t number : {0u, file.pageCount(), 0xFFFFFFu, 0xFFFFFFFFu}) {
    try {
      file.page(number, 3);
      ADD_FAILURE() << number;
    } catch (const Error& error) {
      EXPECT_EQ(error.kind(), ErrorKind::Damaged);
      EXPECT_EQ(error.page(), 3u);
    }
  }
  EXPECT_THROW(file.page(2, 0, PageType::Data), Error);
  stored.content.resize(stored.content.size() - 4096);
  try {
    file.page(file.pageCount() - 1, 0);
    ADD_FAILURE();
  } catch (const Error& error) {
    EXPECT_EQ(error.kind(), ErrorKind::Truncated) << "the file has shrunk while it was open";
  }
}

}  // namespace
}  // namespace jet
