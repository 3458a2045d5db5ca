#include <functional>
#include <gtest/gtest.h>
#include <ostream>

#include "jet/create_fixture.h"
#include "jet/error.h"

namespace {

using jet::Bytes;
using jet::ColumnType;
using jet::ErrorKind;
using jet::Null;
using jet::Text;
using jet::Value;
using jet::create::DatabaseBuilder;
using jet::create::TableBuilder;
using jet::create::TableSpec;

struct Refusal {
  const char* what;
  ErrorKind kind;
  std::function<void(DatabaseBuilder&)> attempt;
};

std::ostream& operator<<(std::ostream& stream, const Refusal& refusal) { return stream << refusal.what; }

class Refusals : public ::testing::TestWithParam<Refusal> {};

TEST_P(Refusals, NameTheirKind) {
  DatabaseBuilder builder;
  builder.addTable({.name = u"Da", .columns = {column(u"ID", ColumnType::Long)}});
  try {
    GetParam().attempt(builder);
    FAIL() << "nothing refused";
  } catch (const jet::Error& error) {
    EXPECT_EQ(error.kind(), GetParam().kind) << error.what();
  }
}

std::function<void(DatabaseBuilder&)> table(TableSpec spec) {
  return [spec](DatabaseBuilder& builder) { builder.addTable(spec); };
}

std::function<void(DatabaseBuilder&)> value(jet::create::ColumnSpec spec, Value content) {
  return [spec, content](DatabaseBuilder& builder) {
    builder.addTable({.name = u"T", .columns = {spec}}).insert({content});
  };
}

jet::create::ColumnSpec required(jet::create::ColumnSpec spec) {
  spec.required = true;
  spec.allowZeroLength = false;
  return spec;
}

jet::create::ColumnSpec numeric(std::uint8_t precision, std::uint8_t scale) {
  return {.name = u"N", .type = ColumnType::Numeric, .precision = precision, .scale = scale};
}

TableSpec columns(std::size_t count) {
  TableSpec spec{.name = u"T"};
  for (std::size_t i = 0; i < count; ++i) {
    spec.columns.push_back(column(numbered(u'C', i).c_str(), ColumnType::Text));
  }
  return spec;
}

TableSpec indexes(std::size_t count, std::size_t width) {
  TableSpec spec = columns(width);
  for (std::size_t i = 0; i < count; ++i) {
    jet::create::IndexSpec index{.name = numbered(u'I', i)};
    for (const auto& column : spec.columns) index.columns.push_back(column.name);
    spec.indexes.push_back(index);
  }
  return spec;
}

std::vector<Refusal> refusals() {
  using enum ErrorKind;
  const auto text = column(u"T", ColumnType::Text, 5);
  const jet::Numeric twelve{false, {0, 0, 0, 12}, 1};
  return {
      {"TableTwice", Constraint, table({.name = u"DA"})},
      {"NoName", Limit, table({.name = u""})},
      {"LongName", Limit, table({.name = Text(65, u'n')})},
      {"NameWithBrackets", Limit, table({.name = u"a[b]"})},
      {"LeadingBlank", Limit, table({.name = u" a"})},
      {"ColumnTwice", Constraint,
       table({.name = u"T", .columns = {column(u"Ä", ColumnType::Long), column(u"ä", ColumnType::Long)}})},
      {"TooManyColumns", Limit, table(columns(256))},
      {"TooManyIndexes", Limit, table(indexes(33, 1))},
      {"TooWideIndex", Limit, table(indexes(1, 11))},
      {"UnknownIndexColumn", NoSuchColumn,
       table({.name = u"T", .indexes = {{.name = u"I", .columns = {u"x"}}}})},
      {"TextTooLong", Limit, value(text, Text(u"sechs!"))},
      {"WrongType", TypeMismatch, value(text, Value(std::int32_t{5}))},
      {"ByteRange", Limit, value(column(u"B", ColumnType::Byte), Value(256))},
      {"IntegerRange", Limit, value(column(u"I", ColumnType::Integer), Value(-32769))},
      {"BinaryTooLong", Limit, value(column(u"B", ColumnType::Binary, 3), Bytes(4))},
      {"OtherScale", TypeMismatch, value(numeric(18, 2), twelve)},
      {"TooManyDigits", Limit, value(numeric(1, 1), twelve)},
      {"RequiredIsNull", Constraint, value(required(text), Null{})},
      {"EmptyWhereNotAllowed", Constraint, value(required(text), Text())},
      {"AutoNumberText", TypeMismatch,
       table({.name = u"T", .columns = {{.name = u"A", .type = ColumnType::Text, .autoNumber = true}}})},
      {"RowTooLarge", Limit,
       [](DatabaseBuilder& builder) {
         builder.addTable(columns(10)).insert(std::vector<Value>(10, Text(255, u'я')));
       }},
      {"TooFewValues", TypeMismatch,
       [](DatabaseBuilder& builder) { builder.addTable(columns(2)).insert({Null{}}); }},
      {"PasswordTooLong", Limit,
       [](DatabaseBuilder&) { DatabaseBuilder({.password = Text(21, u'p')}).finish(); }},
  };
}

INSTANTIATE_TEST_SUITE_P(All, Refusals, ::testing::ValuesIn(refusals()),
                         [](const auto& info) { return info.param.what; });

TEST(RefusedRows, LeaveNoTrace) {
  DatabaseBuilder builder;
  TableBuilder& table =
      builder.addTable({.name = u"T",
                        .columns = {column(u"ID", ColumnType::Long), column(u"T", ColumnType::Text, 5),
                                    column(u"M", ColumnType::Memo)},
                        .indexes = {{.name = u"P", .columns = {u"ID"}, .primaryKey = true}}});
  table.insert({1, Text(u"eins"), Text(3000, u'я')});
  EXPECT_THROW(table.insert({2, Text(u"zu lang"), Text(3000, u'я')}), jet::Error);
  EXPECT_THROW(table.insert({Null{}, Text(u"a"), Text(3000, u'я')}), jet::Error);
  table.insert({2, Text(u"zwei"), Null{}});
  Created file(builder);
  EXPECT_EQ(file.rows(u"T").size(), 2u);
  EXPECT_EQ(file.errors(), "");
}

}  // namespace
