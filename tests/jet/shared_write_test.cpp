#include <algorithm>
#include <gtest/gtest.h>
#include <random>

#include "jet/create_fixture.h"
#include "jet/export.h"
#include "jet/index.h"
#include "jet/shared_files.h"
#include "jet/text_codec.h"
#include "jet/write/index_writer.h"

// Files that Access has made, changed by us in memory.

namespace jet {
namespace {

// Those that can be written: of Jet 4.
class AccessFiles : public ::testing::TestWithParam<std::filesystem::path> {
 protected:
  void SetUp() override {
    files_.put("access.mdb", test::readAll(GetParam()));
    database_ = std::make_unique<Database>(files_, "access.mdb");
  }

  MemoryFiles files_;
  std::unique_ptr<Database> database_;
};

std::vector<std::filesystem::path> writableFiles() {
  std::vector<std::filesystem::path> paths;
  for (const test::SharedFile& file : test::sharedFiles()) {
    const bool byAccess = file.database.parent_path().filename() == "access";
    if (byAccess && file.database.stem().string().find("V1997") == std::string::npos)
      paths.push_back(file.database);
  }
  return paths;
}

using Entries = std::vector<std::pair<std::string, RowId>>;

Entries entriesOf(const Index& index) {
  Entries entries;
  IndexWalk walk = index.walk();
  for (IndexEntry entry; walk.next(entry);) entries.emplace_back(entry.key, entry.row);
  return entries;
}

TEST_P(AccessFiles, HoldTheSameKeysAfterTheirIndexesWereEmptiedAndFilled) {
  const CheckReport before = check(*database_);
  ASSERT_EQ(before.errors, std::vector<std::string>{});
  std::mt19937 random(5);
  std::size_t entries = 0;
  {
    Transaction transaction(database_->pages());
    write::PageAllocator allocator(transaction);
    for (const TableEntry& entry : std::vector(database_->tables())) {
      const TableDefinition table = database_->table(entry.name).definition();
      for (std::size_t i = 0; i < table.indexes.size(); ++i) {
        const Entries stored = entriesOf(database_->table(entry.name).index(i));
        Entries shuffled = stored;
        std::ranges::shuffle(shuffled, random);
        write::IndexWriter writer(transaction, allocator, table.page, table.indexes[i]);
        for (const auto& [key, row] : shuffled) writer.erase(key, row);
        EXPECT_EQ(entriesOf(database_->table(entry.name).index(i)), Entries{});
        std::ranges::shuffle(shuffled, random);
        for (const auto& [key, row] : shuffled) writer.insert(key, row);
        EXPECT_EQ(entriesOf(database_->table(entry.name).index(i)), stored);
        entries += stored.size();
      }
    }
    transaction.commit();
  }
  const CheckReport after = check(*database_);
  EXPECT_EQ(after.errors, before.errors);
  EXPECT_EQ(after.remarks, before.remarks);
  EXPECT_EQ(after.indexEntries, before.indexEntries);
  EXPECT_EQ(entries, before.indexEntries);
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(AccessFiles);
INSTANTIATE_TEST_SUITE_P(Shared, AccessFiles, ::testing::ValuesIn(writableFiles()),
                         [](const auto& file) { return file.param.stem().string(); });

}  // namespace
}  // namespace jet
