#include "jet/index.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "common/memory_files.h"
#include "jet/create/database_builder.h"
#include "jet/database.h"
#include "jet/shared_files.h"

namespace jet {
namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr int rowCount = 4'000;
#else
constexpr int rowCount = 24'000;
#endif

enum Column : std::size_t { ID, Name, Gruppe, Wert, Aktiv, Roh };
enum IndexNumber : std::size_t { ById, ByName, ByNameDown, ByGroupAndId, ByValue, ByActiveAndGroup, ByBytes };

Text nameOf(int i) {
  const std::u16string_view endings[] = {u"", u"-Huber", u"er", u"ß", u" "};
  Text name = u"Müller ";
  for (const char digit : std::to_string(i % 3'001)) name += static_cast<char16_t>(digit);
  return name.append(endings[i % 5]);
}

std::vector<Value> rowOf(int i) {
  const std::int32_t id = static_cast<std::int32_t>(i * 7'919LL % 1'000'003 - 500'000);
  return {id,
          i % 40 == 0 ? Value(Null{}) : Value(nameOf(i)),
          i % 17 == 0 ? Value(Null{}) : Value(std::int32_t{i % 300 - 100}),
          i % 3 == 0 ? Value(Null{}) : Value(i % 500 / 8.0 - 20),
          i % 2 == 0,
          Bytes(static_cast<std::size_t>(i % 20), static_cast<std::uint8_t>(i))};
}

std::vector<std::uint8_t> makeFile() {
  create::DatabaseBuilder builder;
  create::TableBuilder& table =
      builder.addTable({.name = u"Viele",
                        .columns = {{.name = u"ID", .type = ColumnType::Long},
                                    {.name = u"Name", .type = ColumnType::Text, .characters = 80},
                                    {.name = u"Gruppe", .type = ColumnType::Integer},
                                    {.name = u"Wert", .type = ColumnType::Double},
                                    {.name = u"Aktiv", .type = ColumnType::Boolean},
                                    {.name = u"Roh", .type = ColumnType::Binary, .characters = 30}},
                        .indexes = {{.name = u"PrimaryKey", .columns = {u"ID"}, .primaryKey = true},
                                    {.name = u"Name", .columns = {u"Name"}},
                                    {.name = u"NameAb", .columns = {u"-Name"}},
                                    {.name = u"Beide", .columns = {u"Gruppe", u"-ID"}},
                                    {.name = u"Wert", .columns = {u"Wert"}, .ignoreNulls = true},
                                    {.name = u"Aktiv", .columns = {u"Aktiv", u"-Gruppe"}},
                                    {.name = u"Roh", .columns = {u"-Roh"}}}});
  for (int i = 0; i < rowCount; ++i) table.insert(rowOf(i));
  return builder.finish();
}

class IndexTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { content_ = new std::vector<std::uint8_t>(makeFile()); }
  static void TearDownTestSuite() {
    delete content_;
    content_ = nullptr;
  }

  void SetUp() override {
    files_.put("viele.mdb", *content_);
    database_ = std::make_unique<Database>(files_, "viele.mdb");
    table_ = &database_->table(u"Viele");
  }

  // What each index has to answer, gathered by scanning: the rows of every key.
  std::map<std::string, std::vector<RowId>> rowsByKey(const Index& index) const {
    std::map<std::string, std::vector<RowId>> result;
    TableScan scan = table_->scan();
    for (Row row; scan.next(row);) {
      if (const auto key = index.keyOf(row)) result[*key].push_back(row.id());
    }
    return result;
  }

  std::vector<Value> valuesOf(const Row& row, const Index& index, std::size_t columns) const {
    std::vector<Value> values;
    for (std::size_t i = 0; i < columns; ++i)
      values.push_back(row.value(index.definition().columns[i].column));
    return values;
  }

  MemoryFiles files_;
  std::unique_ptr<Database> database_;
  Table* table_ = nullptr;

 private:
  static inline std::vector<std::uint8_t>* content_ = nullptr;
};

TEST_F(IndexTest, LooksUpEveryRow) {
  for (std::size_t i = 0; i < table_->definition().indexes.size(); ++i) {
    const Index& index = table_->index(i);
    const auto expected = rowsByKey(index);
    ASSERT_TRUE(index.isComputable());
    int refused = 0;
    TableScan scan = table_->scan();
    for (Row row; scan.next(row);) {
      const std::vector<Value> values = valuesOf(row, index, index.definition().columns.size());
      std::vector<RowId> rows;
      if (!index.lookup(values, rows)) {
        ++refused;
        ASSERT_TRUE(rows.empty());
        continue;
      }
      ASSERT_EQ(rows, expected.at(index.keyOf(row).value())) << "index " << i;
    }
    // Nulls that the index leaves out, 0.0 and binaries are for a scan.
    EXPECT_EQ(refused > 0, i == ByValue || i == ByBytes) << "index " << i;
  }
}

TEST_F(IndexTest, WalksAllRowsInOrder) {
  for (std::size_t i = 0; i < table_->definition().indexes.size(); ++i) {
    const Index& index = table_->index(i);
    std::vector<std::pair<std::string, RowId>> expected, walked;
    for (const auto& [key, rows] : rowsByKey(index)) {
      for (const RowId row : rows) expected.emplace_back(key, row);
    }
    IndexWalk walk = index.walk();
    for (IndexEntry entry; walk.next(entry);) walked.emplace_back(entry.key, entry.row);
    EXPECT_TRUE(walked == expected) << "index " << i;
    EXPECT_EQ(index.countEntries(), expected.size());
    EXPECT_EQ(index.countEntries() < static_cast<std::uint64_t>(rowCount), i == ByValue);
  }
}

TEST_F(IndexTest, LooksUpByTheFirstColumnsAlone) {
  const Index& index = table_->index(ByGroupAndId);
  for (const Value& group : {Value(Null{}), Value(std::int32_t{-100}), Value(std::int32_t{150}),
                             Value(std::int32_t{199}), Value(std::int32_t{200})}) {
    std::vector<std::pair<std::int32_t, RowId>> expected;
    TableScan scan = table_->scan();
    for (Row row; scan.next(row);) {
      std::int32_t id = 0;
      if (row.value(Gruppe) == group && row.asLong(ID, id)) expected.emplace_back(-id, row.id());
    }
    std::ranges::sort(expected);  // the second column descends
    std::vector<RowId> rows;
    ASSERT_TRUE(index.lookup(std::span(&group, 1), rows));
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < rows.size(); ++i) ASSERT_EQ(rows[i], expected[i].second);
  }
}

TEST_F(IndexTest, FindsNothingWhereNothingIs) {
  std::vector<RowId> rows;
  for (const std::int32_t id : {INT32_MIN, -500'001, 600'000, INT32_MAX}) {
    EXPECT_TRUE(table_->index(ById).lookup(std::vector<Value>{id}, rows));
  }
  for (const std::size_t index : {ByName, ByNameDown}) {
    for (const Text& name : {Text(u""), Text(u"Muller 1"), Text(u"Müller 9999"), Text(u"zz")}) {
      EXPECT_TRUE(table_->index(index).lookup(std::vector<Value>{name}, rows));
    }
  }
  EXPECT_TRUE(rows.empty());
}

TEST_F(IndexTest, FindsTextsAsTheDatabaseComparesThem) {
  std::vector<RowId> sharp, plain;
  EXPECT_TRUE(table_->index(ByName).lookup(std::vector<Value>{Text(u"Müller 3ß")}, sharp));
  EXPECT_TRUE(table_->index(ByNameDown).lookup(std::vector<Value>{Text(u"MÜLLER 3SS  ")}, plain));
  EXPECT_FALSE(sharp.empty());
  EXPECT_EQ(sharp, plain);
}

TEST_F(IndexTest, GivesUpWhereKeysAreNotSure) {
  std::vector<RowId> rows;
  EXPECT_FALSE(table_->index(ByName).lookup(std::vector<Value>{Text(u"\u05D0")}, rows));
  EXPECT_FALSE(table_->index(ByName).lookup(std::vector<Value>{Text(u"a\uFFFD")}, rows));
  EXPECT_FALSE(table_->index(ByValue).lookup(std::vector<Value>{Null{}}, rows));
  EXPECT_FALSE(table_->index(ByValue).lookup(std::vector<Value>{-0.0}, rows));
  EXPECT_FALSE(table_->index(ByBytes).lookup(std::vector<Value>{Bytes{1}}, rows));
  EXPECT_FALSE(table_->index(ById).lookup({}, rows));
  EXPECT_FALSE(table_->index(ById).lookup(std::vector<Value>{std::int32_t{1}, std::int32_t{1}}, rows));
  EXPECT_FALSE(table_->index(ByGroupAndId).lookup(std::vector<Value>{std::int32_t{40'000}}, rows));
  EXPECT_TRUE(rows.empty());
}

// Trees as Access builds them, of both versions: shortened entries, descending texts, Nulls, deleted rows.
TEST(SharedIndexes, FindEveryRow) {
  const auto shared = test::sharedFiles();
  if (shared.empty()) GTEST_SKIP() << "the shared databases are not there";
  int found = 0;
  for (const auto& file : shared) {
    Database database(systemFiles(), file.database);
    for (const TableEntry& entry : database.tables()) {
      const Table& table = database.table(entry.name);
      for (std::size_t i = 0; i < table.definition().indexes.size(); ++i) {
        const Index& index = table.index(i);
        TableScan scan = table.scan();
        for (Row row; scan.next(row);) {
          std::vector<Value> values;
          for (const IndexColumn& column : index.definition().columns)
            values.push_back(row.value(column.column));
          std::vector<RowId> rows;
          if (!index.lookup(values, rows)) continue;
          ++found;
          ASSERT_EQ(std::ranges::count(rows, row.id()), 1) << file.database << ", index " << i;
        }
      }
    }
  }
  EXPECT_GT(found, 10'000);
  std::cout << found << " rows of the shared files looked up by their keys\n";
}

TEST_F(IndexTest, TheTreeIsDeep) {
  // The other cases mean little if they only ever see one node above the leaves.
  const PageFile& file = database_->pages();
  std::uint32_t number = table_->definition().indexes[ByName].root;
  int depth = 1;
  for (;; ++depth) {
    const PageRef page = file.page(number, 0);
    const IndexPage view(*page, file.format(), table_->definition().page);
    if (view.isLeaf()) break;
    number = view.child(0);
  }
  EXPECT_GE(depth, rowCount > 20'000 ? 3 : 2);
}

}  // namespace
}  // namespace jet
