#include <algorithm>
#include <gtest/gtest.h>
#include <ostream>

#include "jet/create_fixture.h"
#include "jet/error.h"
#include "jet/index.h"

namespace {

using jet::ColumnType;
using jet::Null;
using jet::Text;
using jet::Value;
using jet::create::DatabaseBuilder;
using jet::create::TableSpec;

Text name(int number) {
  Text text = u"Mair 0000000 mit einem längeren Namen, damit der Baum wächst";
  for (std::size_t i = 11; number > 0; --i, number /= 10) text[i] = static_cast<char16_t>(u'0' + number % 10);
  return text;
}

// Numbers in an order that is neither that of the rows nor of the keys.
int shuffled(int i) { return static_cast<int>(std::int64_t{i} * 7919 % 20011); }

class BuiltTrees : public ::testing::Test {
 protected:
  static constexpr int rowCount = 20000;

  void SetUp() override {
    TableSpec spec{.name = u"Viele",
                   .columns = {column(u"ID", ColumnType::Long), column(u"Name", ColumnType::Text, 100),
                               column(u"Gruppe", ColumnType::Integer), column(u"Notiz", ColumnType::Memo)},
                   .indexes = {{.name = u"PrimaryKey", .columns = {u"ID"}, .primaryKey = true},
                               {.name = u"Name", .columns = {u"-Name"}, .unique = true},
                               {.name = u"Beide", .columns = {u"Gruppe", u"-ID"}},
                               {.name = u"Notiz", .columns = {u"Notiz"}, .ignoreNulls = true}}};
    auto& table = builder_.addTable(spec);
    for (int i = 0; i < rowCount; ++i) {
      const int number = shuffled(i);
      table.insert({number, name(number), number % 13 == 0 ? Value() : Value(number % 13),
                    number % 4 == 0 ? Value(name(number % 100)) : Value()});
      if (number % 4 == 0) ++withMemo_;
    }
  }

  DatabaseBuilder builder_;
  std::uint64_t withMemo_ = 0;
};

TEST_F(BuiltTrees, AreCompleteAndInOrder) {
  Created file(builder_);
  EXPECT_EQ(file.errors(), "");
  const jet::Table& table = file.database->table(u"Viele");
  EXPECT_EQ(table.index(0).countEntries(), rowCount);
  EXPECT_EQ(table.index(2).countEntries(), rowCount);
  EXPECT_EQ(table.index(3).countEntries(), withMemo_);  // rows without a memo are left out
}

TEST_F(BuiltTrees, FindEveryKey) {
  Created file(builder_);
  const jet::Table& table = file.database->table(u"Viele");
  for (int i = 0; i < rowCount; i += 37) {
    const int number = shuffled(i);
    std::vector<jet::RowId> byNumber, byName;
    const Value id = number, text = name(number);
    ASSERT_TRUE(table.index(0).lookup(std::span(&id, 1), byNumber));
    ASSERT_TRUE(table.index(1).lookup(std::span(&text, 1), byName));
    ASSERT_EQ(byNumber.size(), 1u);
    EXPECT_EQ(byNumber, byName);
    EXPECT_EQ(table.fetch(byNumber[0]).value(0), id);
  }
}

// Leaves are filled to the brim, so that a file is not larger than it must be; nodes have at least two
// children, the last of them as tail.
TEST_F(BuiltTrees, FillTheirPages) {
  Created file(builder_);
  std::uint32_t leaves = 0, nodes = 0, thin = 0, highest = 0;
  for (std::uint32_t page = 16; page < file.pageCount(); ++page) {
    const auto bytes = file.page(page);
    const bool last = u32At(bytes, 16) == 0;  // the last leaf takes what is left
    if (bytes[0] == 4) {
      ++leaves;
      if (!last && u16At(bytes, 2) > 200) ++thin;
    } else if (bytes[0] == 3) {
      ++nodes;
      EXPECT_NE(u32At(bytes, 20), 0u) << page;
      EXPECT_LT(u16At(bytes, 2), 3616u) << page;
      highest = std::max<std::uint32_t>(highest, bytes[26]);
    }
  }
  EXPECT_GT(leaves, 600u);
  EXPECT_GT(nodes, 4u);
  EXPECT_EQ(highest, 2u);
  EXPECT_EQ(thin, 0u);
}

struct KeyCase {
  const char* what;
  std::vector<jet::create::IndexSpec> indexes;
  std::vector<Value> values;
  bool allowed;
};

std::ostream& operator<<(std::ostream& stream, const KeyCase& keyCase) { return stream << keyCase.what; }

class Uniqueness : public ::testing::TestWithParam<KeyCase> {};

TEST_P(Uniqueness, IsThatOfTheDatabasesOrder) {
  DatabaseBuilder builder;
  auto& table = builder.addTable({.name = u"T",
                                  .columns = {column(u"T", ColumnType::Text), column(u"N", ColumnType::Long)},
                                  .indexes = GetParam().indexes});
  const auto build = [&] {
    for (const Value& value : GetParam().values) table.insert({value, Null{}});
    builder.finish();
  };
  if (GetParam().allowed) {
    EXPECT_NO_THROW(build());
    return;
  }
  try {
    build();
    FAIL() << "no error";
  } catch (const jet::Error& error) {
    EXPECT_EQ(error.kind(), jet::ErrorKind::Constraint) << error.what();
  }
}

std::vector<KeyCase> keyCases() {
  const jet::create::IndexSpec unique{.name = u"T", .columns = {u"T"}, .unique = true},
      primary{.name = u"P", .columns = {u"T"}, .primaryKey = true}, plain{.name = u"T", .columns = {u"T"}},
      pair{.name = u"T", .columns = {u"T", u"N"}, .unique = true};
  const Text strasse = u"Straße", strasse2 = u"STRASSE  ", oel = u"Öl", ol = u"Ol";
  return {{"LetterCaseAndSharpSCollide", {unique}, {strasse, strasse2}, false},
          {"UmlautsDiffer", {unique}, {oel, ol}, true},
          {"NullsMayRepeat", {unique}, {Null{}, Null{}, ol}, true},
          {"PrimaryKeysAreNeverNull", {primary}, {ol, Null{}}, false},
          {"PlainIndexesMayRepeat", {plain}, {ol, ol, Null{}}, true},
          {"ANullInOneColumnDoesNotExempt", {pair}, {ol, ol}, false}};
}

INSTANTIATE_TEST_SUITE_P(Keys, Uniqueness, ::testing::ValuesIn(keyCases()),
                         [](const auto& info) { return info.param.what; });

TEST(IndexedText, WithoutAKnownPlaceInTheOrderIsRefusedNotGuessed) {
  DatabaseBuilder builder;
  auto& table =
      builder.addTable({.name = u"T",
                        .columns = {column(u"Frei", ColumnType::Text), column(u"Sortiert", ColumnType::Text)},
                        .indexes = {{.name = u"S", .columns = {u"Sortiert"}}}});
  EXPECT_NO_THROW(table.insert({Text(u"漢字"), Text(u"Kanji")}));
  EXPECT_THROW(table.insert({Text(u"Kanji"), Text(u"漢字")}), jet::Error);
  Created file(builder);
  EXPECT_EQ(file.rows(u"T").size(), 1u);
}

}  // namespace
