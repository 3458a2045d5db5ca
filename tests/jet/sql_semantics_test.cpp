#include <gtest/gtest.h>
#include <limits>

#include "jet/error.h"
#include "jet/sql_database.h"

namespace {

using jet::ColumnType;
using jet::Currency;
using jet::Null;

jet::Numeric numeric(std::uint32_t units, std::uint8_t scale, bool negative = false) {
  jet::Numeric number;
  number.negative = negative;
  number.groups[3] = units;
  number.scale = scale;
  return number;
}

std::string answer(SqlDatabase& data, const char16_t* query) { return rendered(data.session->query(query)); }

TEST(SqlSemantics, TextsCompareAsTheDatabaseDoes) {
  // With and without an index the answers are the same.
  for (const bool indexed : {true, false}) {
    jet::create::DatabaseBuilder builder;
    std::vector<jet::create::IndexSpec> indexes;
    if (indexed) indexes.push_back(sqlIndex(u"Name", {u"Name"}));
    auto& table = builder.addTable(
        {u"T", {sqlColumn(u"ID", ColumnType::Long), sqlColumn(u"Name", ColumnType::Text, 50)}, indexes});
    const jet::Value names[] = {u"müller",      u"Mueller", u"MÜLLER  ", u"Muller", Null{},  u"Strasse",
                                u"STRAßE",      u"",        u"   ",      u"co-op",  u"coop", u"Müllerz",
                                u"Mull\u0301er"};
    std::int32_t id = 0;
    for (const jet::Value& name : names) table.insert({++id, name});
    SqlDatabase data(builder);

    EXPECT_EQ(answer(data, u"SELECT ID FROM T WHERE Name = 'Müller'"), "1;3") << indexed;
    EXPECT_EQ(answer(data, u"SELECT ID FROM T WHERE Name = 'MULLER '"), "4") << indexed;
    EXPECT_EQ(answer(data, u"SELECT ID FROM T WHERE Name = 'straße'"), "6;7") << indexed;
    EXPECT_EQ(answer(data, u"SELECT ID FROM T WHERE Name = ''"), "8;9") << indexed;
    EXPECT_EQ(answer(data, u"SELECT ID FROM T WHERE Name = ' coop'"), "") << indexed;
    EXPECT_EQ(answer(data, u"SELECT ID FROM T WHERE Name = 'COOP'"), "11") << indexed;
    EXPECT_EQ(answer(data, u"SELECT ID FROM T WHERE Name = Name"), "1;2;3;4;6;7;8;9;10;11;12;13") << indexed;
    // Null, then empty; accents after letters; equal texts in stored order.
    EXPECT_EQ(answer(data, u"SELECT ID FROM T ORDER BY Name").substr(0, 18), "5;8;9;11;10;2;4;13") << indexed;
    const std::string ascending = answer(data, u"SELECT ID FROM T ORDER BY Name");
    EXPECT_LT(ascending.find("4;"), ascending.find("1;3;12")) << ascending;
    EXPECT_TRUE(ascending.ends_with("1;3;12;6;7")) << ascending;
    EXPECT_TRUE(answer(data, u"SELECT ID FROM T ORDER BY Name DESC").starts_with("6;7;12;1;3;"));
    EXPECT_TRUE(answer(data, u"SELECT ID FROM T ORDER BY Name DESC").ends_with("8;9;5"));
  }
}

TEST(SqlSemantics, NumbersCompareByValueAcrossTypes) {
  const std::pair<ColumnType, std::vector<jet::Value>> columns[] = {
      {ColumnType::Byte, {Null{}, 0, 1, 200}},
      {ColumnType::Integer, {-7, 0, 1, 200}},
      {ColumnType::Long, {-7, 0, 1, 200}},
      {ColumnType::Currency, {Currency{-70000}, Currency{0}, Currency{10000}, Currency{2000000}}},
      {ColumnType::Single, {-7.0F, -0.0F, 1.0F, 200.0F}},
      {ColumnType::Double, {-7.0, -0.0, 1.0, 200.0}},
      {ColumnType::Numeric, {numeric(700, 2, true), numeric(0, 2), numeric(100, 2), numeric(20000, 2)}},
  };
  for (const bool indexed : {true, false}) {
    jet::create::DatabaseBuilder builder;
    for (std::size_t i = 0; i < std::size(columns); ++i) {
      auto column = sqlColumn(u"V", columns[i].first);
      column.scale = columns[i].first == ColumnType::Numeric ? 2 : 0;
      std::vector<jet::create::IndexSpec> indexes;
      if (indexed) indexes.push_back(sqlIndex(u"V", {u"V"}));
      auto& table = builder.addTable({u"T" + jet::Text(1, static_cast<char16_t>(u'0' + i)),
                                      {sqlColumn(u"ID", ColumnType::Long), column},
                                      indexes});
      std::int32_t id = 0;
      for (const jet::Value& value : columns[i].second) table.insert({++id, value});
    }
    SqlDatabase data(builder);
    for (std::size_t i = 0; i < std::size(columns); ++i) {
      const std::u16string table = u"T" + jet::Text(1, static_cast<char16_t>(u'0' + i));
      const auto ids = [&](const std::u16string& literal) {
        return rendered(data.session->query(u"SELECT ID FROM " + table + u" WHERE V = " + literal));
      };
      const std::string label = jet::toUtf8(table) + (indexed ? " indexed" : "");
      EXPECT_EQ(ids(u"0"), "2") << label;
      EXPECT_EQ(ids(u"-0"), "2") << label;
      EXPECT_EQ(ids(u"1.000"), "3") << label;
      EXPECT_EQ(ids(u"200"), "4") << label;
      EXPECT_EQ(ids(u"-7"), i == 0 ? "" : "1") << label;
      EXPECT_EQ(ids(u"1.001"), "") << label;
      EXPECT_EQ(ids(u"99999999999999999999999999"), "") << label;
      for (std::size_t other = 0; other < std::size(columns); ++other) {
        if (other == i) continue;
        const std::u16string second = u"T" + jet::Text(1, static_cast<char16_t>(u'0' + other));
        const auto joined = data.session->query(u"SELECT " + table + u".ID FROM " + table + u" INNER JOIN " +
                                                second + u" ON " + table + u".V = " + second + u".V");
        EXPECT_EQ(rendered(joined), i == 0 || other == 0 ? "2;3;4" : "1;2;3;4") << label << other;
      }
    }
  }
}

TEST(SqlSemantics, DecimalsAndFloatingNumbersMeetAsDoubles) {
  jet::create::DatabaseBuilder builder;
  auto& amounts = builder.addTable({u"A", {sqlColumn(u"V", ColumnType::Currency)}, {sqlIndex(u"V", {u"V"})}});
  auto& doubles = builder.addTable({u"D", {sqlColumn(u"W", ColumnType::Double)}, {sqlIndex(u"W", {u"W"})}});
  auto& singles = builder.addTable({u"S", {sqlColumn(u"X", ColumnType::Single)}, {sqlIndex(u"X", {u"X"})}});
  amounts.insert({Currency{1000}});  // 0.1
  amounts.insert({Currency{std::numeric_limits<std::int64_t>::max()}});
  for (const double value : {0.1, static_cast<double>(0.1F), std::numeric_limits<double>::infinity()}) {
    doubles.insert({value});
  }
  singles.insert({0.1F});
  singles.insert({0.5F});
  SqlDatabase data(builder);
  const auto count = [&](const char16_t* query) { return data.session->query(query).rowCount(); };
  EXPECT_EQ(count(u"SELECT V FROM A INNER JOIN D ON V = W"), 1u);
  EXPECT_EQ(count(u"SELECT W FROM D WHERE W = 0.1"), 1u);
  EXPECT_EQ(count(u"SELECT X FROM S WHERE X = 0.1"), 0u);
  EXPECT_EQ(count(u"SELECT X FROM S WHERE X = 0.5"), 1u);
  EXPECT_EQ(count(u"SELECT W FROM D INNER JOIN S ON W = X"), 1u);
  EXPECT_EQ(count(u"SELECT V FROM A WHERE V = 922337203685477.5807"), 1u);
  EXPECT_EQ(count(u"SELECT V FROM A WHERE V = 922337203685477.5806"), 0u);
}

TEST(SqlSemantics, OrderOfOtherTypes) {
  jet::create::DatabaseBuilder builder;
  auto& table =
      builder.addTable({u"T",
                        {sqlColumn(u"ID", ColumnType::Long), sqlColumn(u"Ja", ColumnType::Boolean),
                         sqlColumn(u"Wann", ColumnType::DateTime), sqlColumn(u"Betrag", ColumnType::Currency),
                         sqlColumn(u"Roh", ColumnType::Binary, 20), sqlColumn(u"Zahl", ColumnType::Double)},
                        {}});
  using jet::Bytes;
  table.insert({1, false, jet::DateTime{2.5}, Currency{-5}, Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9}, 1.5});
  table.insert({2, true, jet::DateTime{-1.25}, Currency{7}, Bytes{1, 2, 3, 4, 5, 6, 7, 8}, -2.0});
  table.insert({3, false, Null{}, Currency{-6}, Null{}, -1e300});
  table.insert({4, true, jet::DateTime{2.5}, Null{}, Bytes{2}, Null{}});
  SqlDatabase data(builder);
  EXPECT_EQ(answer(data, u"SELECT ID FROM T ORDER BY Ja"), "2;4;1;3");
  EXPECT_EQ(answer(data, u"SELECT ID FROM T ORDER BY Ja DESC, ID DESC"), "3;1;4;2");
  EXPECT_EQ(answer(data, u"SELECT ID FROM T ORDER BY Wann"), "3;2;1;4");
  EXPECT_EQ(answer(data, u"SELECT ID FROM T ORDER BY Wann DESC, Betrag"), "4;1;2;3");
  EXPECT_EQ(answer(data, u"SELECT ID FROM T ORDER BY Betrag"), "4;3;1;2");
  EXPECT_EQ(answer(data, u"SELECT ID FROM T ORDER BY Roh"), "3;2;1;4");
  EXPECT_EQ(answer(data, u"SELECT ID FROM T ORDER BY Zahl"), "4;3;2;1");
  EXPECT_EQ(answer(data, u"SELECT ID FROM T WHERE Ja = -1"), "2;4");
  EXPECT_EQ(answer(data, u"SELECT ID FROM T WHERE Ja = 1"), "");
}

TEST(SqlSemantics, LongMemosAreComparedToTheEnd) {
  const jet::Text start(300, u'a');
  for (const bool indexed : {true, false}) {
    jet::create::DatabaseBuilder builder;
    std::vector<jet::create::IndexSpec> indexes;
    if (indexed) indexes.push_back(sqlIndex(u"Notiz", {u"Notiz"}));
    auto& table = builder.addTable(
        {u"T", {sqlColumn(u"ID", ColumnType::Long), sqlColumn(u"Notiz", ColumnType::Memo)}, indexes});
    table.insert({1, start + u"b"});
    table.insert({2, start + u"B "});
    table.insert({3, start + u"c"});
    table.insert({4, start});
    SqlDatabase data(builder);
    jet::sql::Plan plan;
    const auto result = data.session->query(u"SELECT ID FROM T WHERE Notiz = '" + start + u"b'", &plan);
    EXPECT_EQ(rendered(result), "1;2");
    EXPECT_EQ(rendered(plan), indexed ? "T: index Notiz" : "T: hash Notiz");
    EXPECT_EQ(answer(data, u"SELECT ID FROM T ORDER BY Notiz DESC"), "3;1;2;4");
  }
}

}  // namespace
