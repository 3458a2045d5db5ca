#include "jet/random_rows.h"

#include "jet/export.h"

namespace jet::test {

namespace {

using Random = std::mt19937;

constexpr const char16_t* simpleUnits = u"abcdefghijklmnopqrstuvwxyz0123456789 -'";
// With a character that compressed text cannot hold; all have a weight.
constexpr const char16_t* knownUnits = u"abcdefghijklmnopqrstuvwxyzäöüÄß.,:;()!?€";
constexpr const char16_t* allUnits = u"abcÄß€\n\r\t\"'\\Ωж中א";

Text textOf(Random& random, const char16_t* units, std::size_t length) {
  const std::size_t count = std::u16string_view(units).size();
  Text text(length, u'x');
  for (char16_t& unit : text) unit = units[random() % count];
  // A blank at the end does not count among equals.
  if (!text.empty() && text.back() == u' ') text.back() = u'x';
  return text;
}

// Mostly what fits into the row, sometimes a page of its own, seldom several.
std::size_t longLength(Random& random) {
  const auto choice = random() % 20;
  if (choice < 12) return random() % 60;
  if (choice < 19) return random() % 3000;
  return random() % 15000;
}

Value memo(Random& random, const char16_t* units) {
  const std::size_t length = longLength(random);
  return random() % 2 == 0 ? Text(length, u'a' + static_cast<char16_t>(random() % 26))
                           : textOf(random, units, length);
}

Value bytesOf(Random& random, std::size_t length) {
  Bytes bytes(length);
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
  return bytes;
}

Value textFor(const create::ColumnSpec& column, Random& random) {
  if (column.name == u"Name") {
    static constexpr std::u16string_view names[] = {u"huber", u"maier-huber", u"o'brien", u"öttl", u"gruber"};
    return Text(names[random() % 5]) + textOf(random, simpleUnits, random() % 4);
  }
  if (column.name == u"Kurz") return textOf(random, u"abcde", 1 + random() % 4);
  const std::size_t least = column.allowZeroLength || random() % 30 == 0 ? 0 : 1;
  return textOf(random, allUnits, std::max<std::size_t>(least, random() % (column.characters + 1u)));
}

}  // namespace

std::vector<create::TableSpec> randomTables() {
  create::TableSpec persons;
  persons.name = u"Personen";
  persons.columns = {
      {.name = u"ID", .type = ColumnType::Long, .autoNumber = true},
      {.name = u"Name", .type = ColumnType::Text, .characters = 60},
      {.name = u"Kurz", .type = ColumnType::Text, .characters = 8},
      {.name = u"Adresse", .type = ColumnType::Text, .characters = 255, .compressed = false},
      {.name = u"Notiz", .type = ColumnType::Memo},
      {.name = u"Umsatz", .type = ColumnType::Currency},
      {.name = u"Kennzahl", .type = ColumnType::Double},
      {.name = u"Rabatt", .type = ColumnType::Single},
      {.name = u"Stufe", .type = ColumnType::Byte, .defaultValue = u"3"},
      {.name = u"Anzahl", .type = ColumnType::Integer},
      {.name = u"Verweis", .type = ColumnType::Long, .fixed = false},
      {.name = u"Geboren", .type = ColumnType::DateTime},
      {.name = u"Kennung", .type = ColumnType::Guid},
      {.name = u"Gewicht", .type = ColumnType::Numeric, .precision = 12, .scale = 3},
      {.name = u"Bild", .type = ColumnType::Ole},
      {.name = u"Roh", .type = ColumnType::Binary, .characters = 40},
      {.name = u"Aktiv", .type = ColumnType::Boolean},
  };
  persons.indexes = {{.name = u"PrimaryKey", .columns = {u"ID"}, .primaryKey = true},
                     {.name = u"Name", .columns = {u"Name", u"-Stufe"}},
                     {.name = u"Kurz", .columns = {u"Kurz"}, .unique = true, .ignoreNulls = true},
                     {.name = u"Notiz", .columns = {u"Notiz"}},
                     {.name = u"Umsatz", .columns = {u"-Umsatz"}},
                     {.name = u"Zahlen", .columns = {u"Kennzahl", u"Rabatt", u"Anzahl"}},
                     {.name = u"Verweis", .columns = {u"Verweis"}, .ignoreNulls = true},
                     {.name = u"Geboren", .columns = {u"-Geboren", u"Aktiv"}},
                     {.name = u"Kennung", .columns = {u"Kennung"}},
                     {.name = u"Gewicht", .columns = {u"Gewicht", u"-Name"}},
                     {.name = u"Roh", .columns = {u"-Roh"}}};
  create::TableSpec assignments;
  assignments.name = u"Zuordnung";
  assignments.columns = {{.name = u"Person", .type = ColumnType::Long},
                         {.name = u"Gruppe", .type = ColumnType::Long},
                         {.name = u"Wert", .type = ColumnType::Long}};
  assignments.indexes = {{.name = u"Paar", .columns = {u"Person", u"-Gruppe"}, .unique = true}};
  create::TableSpec protocol;
  protocol.name = u"Protokoll";
  protocol.columns = {{.name = u"Zeile", .type = ColumnType::Text, .characters = 100, .required = true},
                      {.name = u"Art", .type = ColumnType::Text, .characters = 20, .allowZeroLength = false},
                      {.name = u"Inhalt", .type = ColumnType::Memo}};
  return {persons, assignments, protocol};
}

Value randomValue(const create::ColumnSpec& column, Random& random) {
  const auto whole = [&random](std::int32_t most) {
    return static_cast<std::int32_t>(random() % (2u * most)) - most;
  };
  // Where there is a rule against Nulls it is broken now and then.
  if (column.type != ColumnType::Boolean && random() % (column.required ? 40 : 8) == 0) return Null{};
  switch (column.type) {
    case ColumnType::Boolean:
      return random() % 2 == 0;
    case ColumnType::Byte:
      return static_cast<std::int32_t>(random() % 256);
    case ColumnType::Integer:
      return whole(32768);
    case ColumnType::Long:
      return random() % 50 == 0 ? static_cast<std::int32_t>(random())
                                : static_cast<std::int32_t>(random() % 60);
    case ColumnType::Currency:
      return Currency{random() % 2 == 0 ? whole(50000) * std::int64_t{100}
                                        : whole(100) * std::int64_t{922337203685}};
    case ColumnType::Single:
      return static_cast<float>(whole(10000)) / 8;
    case ColumnType::Double:
      return whole(1000000) / 64.0;
    case ColumnType::DateTime:
      return DateTime{static_cast<double>(whole(40000)) + static_cast<double>(random() % 86400) / 86400};
    case ColumnType::Guid: {
      Guid guid;
      for (std::uint8_t& byte : guid.bytes) byte = static_cast<std::uint8_t>(random());
      return guid;
    }
    case ColumnType::Numeric:
      return Numeric{random() % 2 == 0,
                     {0, 0, static_cast<std::uint32_t>(random() % 200), static_cast<std::uint32_t>(random())},
                     column.scale};
    case ColumnType::Text:
      return textFor(column, random);
    case ColumnType::Memo:
      return memo(random, column.name == u"Notiz" ? knownUnits : allUnits);
    case ColumnType::Ole:
      return bytesOf(random, 1 + longLength(random));
    case ColumnType::Binary:
      return bytesOf(random, 1 + random() % column.characters);
  }
  return Null{};
}

std::string plainText(const Value& value) {
  std::string text;
  appendCanonical(value, text);
  return text;
}

}  // namespace jet::test
