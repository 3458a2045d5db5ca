#include "jet/encode/bytes.h"
#include "jet/write_fixture.h"

namespace jet {
namespace {

using create::DatabaseBuilder;
using create::TableSpec;
using Refusal = std::pair<std::optional<ErrorKind>, std::string>;

TableSpec withDefaults() {
  using enum ColumnType;
  TableSpec spec{.name = u"T"};
  const auto add = [&](const char16_t* name, ColumnType type, const char16_t* value) {
    spec.columns.push_back({.name = name, .type = type, .defaultValue = value});
  };
  add(u"Text", Text, u"\"Graz \"\"Süd\"\"\"");
  add(u"Apostroph", Text, u"='A-8010'");
  add(u"Zahl als Text", Memo, u"8010");
  add(u"Byte", Byte, u"=7");
  add(u"Integer", Integer, u"-300");
  add(u"Long", Long, u"\"5\"");
  add(u"Wahr als Zahl", Long, u"=True");
  add(u"Betrag", Currency, u"12.5");
  add(u"Double", Double, u"-0.25");
  add(u"Single", Single, u"3");
  add(u"Ja", Boolean, u"=Ja");
  add(u"Nein", Boolean, u"No");
  add(u"Nichts", Text, u"Null");
  spec.columns.push_back({.name = u"Dezimal", .type = Numeric, .scale = 2, .defaultValue = u"1.5"});
  add(u"Ohne", Long, u"");
  return spec;
}

TEST(WriteRules, DefaultsOfEveryTypeAreFilledIn) {
  DatabaseBuilder builder;
  builder.addTable(withDefaults());
  Writable file(builder);
  file.insert(u"T", write::RowValues(15));
  const std::vector<Value> expected = {Text(u"Graz \"Süd\""),
                                       Text(u"A-8010"),
                                       Text(u"8010"),
                                       7,
                                       -300,
                                       5,
                                       -1,
                                       Currency{125'000},
                                       -0.25,
                                       3.0f,
                                       true,
                                       false,
                                       Null{},
                                       Numeric{false, {0, 0, 0, 150}, 2},
                                       Null{}};
  EXPECT_EQ(file.rows(u"T").front(), expected);
}

TEST(WriteRules, ADefaultThatIsNotUnderstoodIsRefusedOnlyWhereItIsNeeded) {
  for (const char16_t* expression :
       {u"=Date()", u"Now()", u"1.5", u"abc", u"\"a\" & \"b\"", u"GenUniqueID()"}) {
    DatabaseBuilder builder;
    builder.addTable({.name = u"T",
                      .columns = {{.name = u"Seit", .type = ColumnType::Integer, .defaultValue = expression},
                                  column(u"Name", ColumnType::Text)}});
    Writable file(builder);
    const Refusal refused = file.refusal(u"T", [](auto& writer) { writer.insert(write::RowValues(2)); });
    EXPECT_EQ(refused.first, ErrorKind::NotWritable);
    EXPECT_NE(refused.second.find("Seit"), std::string::npos) << refused.second;
    file.insert(u"T", {Value(4), std::nullopt});
    EXPECT_EQ(file.rows(u"T").size(), 1u);
  }
}

TEST(WriteRules, AutomaticNumbersGoOnFromTheGreatestOne) {
  DatabaseBuilder builder;
  builder.addTable({.name = u"T",
                    .columns = {{.name = u"ID", .type = ColumnType::Long, .autoNumber = true},
                                column(u"Name", ColumnType::Text)},
                    .indexes = {{.name = u"PrimaryKey", .columns = {u"ID"}, .primaryKey = true}}});
  Writable file(builder);
  std::vector<std::int32_t> numbers;
  const auto insert = [&](std::optional<Value> number) {
    file.change(u"T", [&](auto& writer) {
      writer.insert({std::move(number), std::nullopt});
      numbers.push_back(writer.lastAutoNumber());
    });
  };
  insert(std::nullopt);
  insert(Value(Null{}));
  insert(Value(10));
  insert(Value(5));
  insert(Value(-3));
  insert(std::nullopt);
  EXPECT_EQ(numbers, (std::vector<std::int32_t>{1, 2, 10, 5, -3, 11}));
  // What is rolled back does not count.
  file.refusal(u"T", [](auto& writer) {
    writer.insert(write::RowValues(2));
    throw Error(ErrorKind::Io, "enough");
  });
  insert(std::nullopt);
  EXPECT_EQ(numbers.back(), 12);
  insert(Value(std::numeric_limits<std::int32_t>::max()));
  EXPECT_EQ(file.refusal(u"T", [](auto& writer) { writer.insert(write::RowValues(2)); }).first,
            ErrorKind::Limit);
}

TEST(WriteRules, UniqueKeysAreThoseOfTheIndex) {
  DatabaseBuilder builder;
  builder.addTable({.name = u"T",
                    .columns = {column(u"Ort", ColumnType::Text, 50), column(u"Nr", ColumnType::Long),
                                column(u"Rest", ColumnType::Text)},
                    .indexes = {{.name = u"Ort", .columns = {u"Ort"}, .unique = true, .ignoreNulls = true},
                                {.name = u"Beide", .columns = {u"-Nr", u"Ort"}, .unique = true}}});
  Writable file(builder);
  const RowId street = file.insert(u"T", given({Text(u"Straße"), 1, Null{}}));
  const RowId other = file.insert(u"T", given({Text(u"Ölberg"), 1, Null{}}));
  file.insert(u"T", given({Text(u"Olberg"), 1, Null{}}));
  file.insert(u"T", given({Null{}, Null{}, Null{}}));
  file.insert(u"T", given({Null{}, Null{}, Null{}}));  // nothing but Nulls may repeat
  file.insert(u"T", given({Null{}, 7, Null{}}));
  EXPECT_EQ(file.database->table(u"T").index(0).countEntries(), 3u);
  const auto refusedInsert = [&](const std::vector<Value>& values) {
    return file.refusal(u"T", [&](auto& writer) { writer.insert(given(values)); });
  };
  EXPECT_EQ(refusedInsert({Text(u"STRASSE "), 2, Null{}}),
            Refusal(ErrorKind::Constraint, "a key stands twice: index Ort"));
  EXPECT_EQ(refusedInsert({Null{}, 7, Null{}}),
            Refusal(ErrorKind::Constraint, "a key stands twice: index Beide"));
  const auto taken = file.refusal(u"T", [&](auto& writer) {
    writer.update(other, {Value(Text(u"strasse")), std::nullopt, std::nullopt});
  });
  EXPECT_EQ(taken.first, ErrorKind::Constraint);
  // Another spelling of the same key, then another key, then the old one by another row.
  file.update(u"T", street, {Value(Text(u"STRASSE")), std::nullopt, std::nullopt});
  file.update(u"T", street, {Value(Null{}), Value(3), std::nullopt});
  file.update(u"T", other, {Value(Text(u"Straße")), std::nullopt, Value(Text(u"x"))});
  EXPECT_EQ(file.find(u"T", 0, {Text(u"strasse")}), std::vector<RowId>{other});
  EXPECT_EQ(file.find(u"T", 1, {Value(3), Value(Null{})}), std::vector<RowId>{street});
}

// A change that is refused, with the reason, before anything was changed.
struct RefusedChange {
  const char* name;
  ErrorKind kind;
  const char* reason;  // a part of it
  std::function<void(write::TableWriter&)> change;
  // Plants something in the definition first.
  std::function<void(std::span<std::uint8_t>, const DefinitionOffsets&)> plant = {};
};

void PrintTo(const RefusedChange& change, std::ostream* out) { *out << change.name; }

class RefusedChanges : public testing::TestWithParam<RefusedChange> {};

TEST_P(RefusedChanges, NameTheReasonAndChangeNothing) {
  DatabaseBuilder builder;
  TableSpec spec{
      .name = u"T",
      .columns = {{.name = u"Pflicht", .type = ColumnType::Text, .characters = 5, .required = true},
                  {.name = u"Leer", .type = ColumnType::Memo, .allowZeroLength = false},
                  column(u"Nr", ColumnType::Long),
                  column(u"Ort", ColumnType::Memo),
                  column(u"Kennung", ColumnType::Guid),
                  column(u"Land", ColumnType::Memo)},
      .indexes = {{.name = u"Schlüssel", .columns = {u"Nr"}, .primaryKey = true},
                  {.name = u"Orte", .columns = {u"Ort", u"Land"}}}};
  auto& table = builder.addTable(spec);
  for (int i = 0; i < 5; ++i) table.insert({Text(u"p"), Null{}, i, Text(u"Graz"), Null{}, Null{}});
  Writable file(builder);
  const std::uint32_t page = file.definitionPage(u"T");
  if (GetParam().plant) {
    file.patch(page,
               [&](std::span<std::uint8_t> bytes) { GetParam().plant(bytes, DefinitionOffsets(bytes)); });
  }
  const Refusal refused = file.refusal(u"T", GetParam().change);
  EXPECT_EQ(refused.first, GetParam().kind) << refused.second;
  EXPECT_NE(refused.second.find(GetParam().reason), std::string::npos) << refused.second;
}

std::function<void(write::TableWriter&)> inserting(std::size_t column, Value value) {
  return [=](write::TableWriter& writer) {
    auto values = given({Text(u"p"), Text(u"l"), 99, Text(u"Graz"), Null{}, Null{}});
    values[column] = value;
    writer.insert(values);
  };
}
void nothing(write::TableWriter&) {}
void withoutGuid(write::TableWriter& writer) {
  writer.insert({Value(Text(u"p")), std::nullopt, Value(99), std::nullopt, std::nullopt, std::nullopt});
}

constexpr auto notWritable = ErrorKind::NotWritable, constraint = ErrorKind::Constraint;

INSTANTIATE_TEST_SUITE_P(
    Rules, RefusedChanges,
    testing::Values(
        RefusedChange{"Required", constraint, "column Pflicht", inserting(0, Null{})},
        RefusedChange{"ZeroLength", constraint, "column Leer", inserting(1, Text())},
        RefusedChange{"NoPrimaryKey", constraint, "column Nr", inserting(2, Null{})},
        RefusedChange{"TwicePrimaryKey", constraint, "index Schlüssel", inserting(2, 3)},
        RefusedChange{"TooLong", ErrorKind::Limit, "column Pflicht", inserting(0, Text(u"sechs!"))},
        RefusedChange{"OtherType", ErrorKind::TypeMismatch, "column Nr", inserting(2, Text(u"3"))},
        RefusedChange{"UnknownCharacter", notWritable, "column Ort", inserting(3, Text(u"\u4E00"))},
        RefusedChange{"UnreadableCharacter", notWritable, "column Ort", inserting(3, Text(u"\uFFFD"))},
        RefusedChange{
            "KeyTooLong", ErrorKind::Limit, "index Orte",
            [](write::TableWriter& writer) {
              writer.insert(given({Text(u"p"), Null{}, 99, Text(255, u'-'), Null{}, Text(255, u'-')}));
            }},
        RefusedChange{"MissingRow", ErrorKind::Damaged, "outside the file",
                      [](auto& writer) {
                        writer.erase({9999, 0});
                      }},
        RefusedChange{"UnknownType", notWritable, "column Kennung", nothing,
                      [](auto page, const auto& at) { page[at.columns + 4 * 25] = 18; }},
        RefusedChange{
            "OtherSortOrder", notWritable, "index Orte", nothing,
            [](auto page, const auto& at) { encode::put16(page, at.columns + 3 * 25 + 11, 0x041D); }},
        RefusedChange{"NewerSortOrder", notWritable, "index Orte", nothing,
                      [](auto page, const auto& at) { page[at.columns + 3 * 25 + 14] = 1; }},
        RefusedChange{"OverlappingColumns", notWritable, "column Nr", nothing,
                      [](auto page, const auto& at) { encode::put16(page, at.columns + 4 * 25 + 21, 2); }},
        RefusedChange{
            "AutomaticGuid", notWritable, "column Kennung", withoutGuid,
            [](auto page, const auto& at) { page[at.columns + 4 * 25 + 15] |= column_flag::autoGuid; }},
        RefusedChange{"OtherSideOfARelationMissing", notWritable, "relation Orte", nothing,
                      [](auto page, const auto& at) {
                        page[at.logicalIndexes + 12] = 2;
                        encode::put32(page, at.logicalIndexes + 13, 77);
                        encode::put32(page, at.logicalIndexes + 17, 2);
                      }}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(WriteRefusals, ATableWithADamagedIndexIsNotWrittenAtAll) {
  DatabaseBuilder builder;
  auto& table =
      builder.addTable({.name = u"T",
                        .columns = {column(u"Nr", ColumnType::Long), column(u"X", ColumnType::Long)},
                        .indexes = {{.name = u"Nr", .columns = {u"Nr"}}}});
  for (int i = 0; i < 5; ++i) table.insert({i, i});
  Writable file(builder);
  const std::uint32_t root = file.database->table(u"T").definition().indexes[0].root;
  file.patch(root, [](auto page) { page[480 + 4] ^= 1; });
  const Refusal refused = file.refusal(u"T", nothing);
  EXPECT_EQ(refused.first, notWritable);
  EXPECT_NE(refused.second.find("Index 0 of table T"), std::string::npos) << refused.second;
}

TEST(WriteRelations, AReferringRowNeedsWhatItRefersTo) {
  DatabaseBuilder builder;
  auto& persons =
      builder.addTable({.name = u"Personen",
                        .columns = {column(u"ID", ColumnType::Long), column(u"Name", ColumnType::Text)},
                        .indexes = {{.name = u"PrimaryKey", .columns = {u"ID"}, .primaryKey = true}}});
  for (int i = 1; i <= 3; ++i) persons.insert({i, Null{}});
  auto& calls =
      builder.addTable({.name = u"Anrufe",
                        .columns = {column(u"Person", ColumnType::Long), column(u"Text", ColumnType::Text)},
                        .indexes = {{.name = u"PersonenAnrufe", .columns = {u"-Person"}}}});
  calls.insert({1, Null{}});
  Writable file(builder);
  const auto relate = [&](const Text& table, std::uint8_t role, std::uint32_t other) {
    file.patch(file.definitionPage(table), [&](std::span<std::uint8_t> page) {
      const std::size_t record = DefinitionOffsets(page).logicalIndexes;
      page[record + 12] = role;
      encode::put32(page, record + 13, 0);  // number of the index there
      encode::put32(page, record + 17, other);
      page[record + 21] = page[record + 22] = 0;
    });
  };
  const std::uint32_t callsPage = file.definitionPage(u"Anrufe"),
                      personsPage = file.definitionPage(u"Personen");
  relate(u"Personen", 1, callsPage);
  relate(u"Anrufe", 2, personsPage);

  RowId call;
  call = file.insert(u"Anrufe", given({2, Null{}}));
  file.insert(u"Anrufe", given({Null{}, Null{}}));
  const auto kindOf = [&](const Text& table, const std::function<void(write::TableWriter&)>& work) {
    const Refusal refused = file.refusal(table, work);
    EXPECT_NE(refused.second.find("relation"), std::string::npos) << refused.second;
    return refused.first;
  };
  const RowId first = file.find(u"Personen", 0, {1}).front(), third = file.find(u"Personen", 0, {3}).front();
  EXPECT_EQ(kindOf(u"Anrufe", [](auto& writer) { writer.insert(given({9, Null{}})); }), constraint);
  EXPECT_EQ(kindOf(u"Anrufe",
                   [&](auto& writer) {
                     writer.update(call, {Value(9), std::nullopt});
                   }),
            constraint);
  EXPECT_EQ(kindOf(u"Personen", [&](auto& writer) { writer.erase(first); }), constraint);
  EXPECT_EQ(kindOf(u"Personen",
                   [&](auto& writer) {
                     writer.update(first, {Value(8), std::nullopt});
                   }),
            constraint);
  file.update(u"Personen", first, {std::nullopt, Value(Text(u"Maier"))});
  file.update(u"Personen", third, {Value(8), std::nullopt});
  file.update(u"Anrufe", call, {Value(8), std::nullopt});
  file.erase(u"Anrufe", call);
  file.erase(u"Personen", third);
  // A relation that passes changes on: nothing may be left behind.
  file.patch(personsPage,
             [](std::span<std::uint8_t> page) { page[DefinitionOffsets(page).logicalIndexes + 22] = 1; });
  EXPECT_EQ(kindOf(u"Personen", [&](auto& writer) { writer.erase(first); }), notWritable);
}

}  // namespace
}  // namespace jet
