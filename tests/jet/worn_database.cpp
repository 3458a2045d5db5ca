#include "jet/worn_database.h"

#include <string>

namespace jet::test {
namespace {

using create::ColumnSpec;
using create::TableBuilder;
using create::TableSpec;

constexpr int personCount = 90;
constexpr int assignmentCount = 1500;
constexpr int measurementCount = 400;
constexpr std::size_t oldColumn = 2;  // the position of "Alt"

Text digits(int number) {
  const std::string plain = std::to_string(number);
  return {plain.begin(), plain.end()};
}

TableSpec personTable() {
  TableSpec spec;
  spec.name = u"Personen";
  spec.columns = {
      {.name = u"ID", .type = ColumnType::Long, .autoNumber = true},
      {.name = u"Namen", .type = ColumnType::Text, .characters = 120},
      {.name = u"Alt", .type = ColumnType::Text, .characters = 20},
      {.name = u"Notiz", .type = ColumnType::Memo},
      {.name = u"Umsatz", .type = ColumnType::Currency},
      {.name = u"Kennzahl", .type = ColumnType::Double},
      {.name = u"Rabatt", .type = ColumnType::Single},
      {.name = u"Stufe", .type = ColumnType::Byte},
      {.name = u"Anzahl", .type = ColumnType::Integer},
      {.name = u"Verweis", .type = ColumnType::Long, .fixed = false},
      {.name = u"Geboren", .type = ColumnType::DateTime},
      {.name = u"Kennung", .type = ColumnType::Guid},
      {.name = u"Gewicht", .type = ColumnType::Numeric, .precision = 12, .scale = 3},
      {.name = u"Bild", .type = ColumnType::Ole},
      {.name = u"Roh", .type = ColumnType::Binary, .characters = 20},
      {.name = u"Aktiv", .type = ColumnType::Boolean},
      {.name = u"Kürzel", .type = ColumnType::Text, .characters = 10, .compressed = false},
  };
  spec.indexes = {{.name = u"PrimaryKey", .columns = {u"ID"}, .primaryKey = true},
                  {.name = u"Namen", .columns = {u"Namen"}}};
  return spec;
}

// Absent, empty, in the row, on a page of its own, over several pages, in turn.
Value memo(int i) {
  switch (i % 6) {
    case 0:
      return Null{};
    case 1:
      return Text{};
    case 2:
      return Text(u"kurz ") + digits(i);
    case 3:
      return Text(static_cast<std::size_t>(700 + i), u'ä');
    case 4:
      return Text(static_cast<std::size_t>(1500), u'Ω') + digits(i);
    default:
      return Text(static_cast<std::size_t>(5000 + i), u'x') + u"€ Ende";
  }
}

Value picture(int i) {
  if (i % 4 != 0) return Null{};
  return Bytes(static_cast<std::size_t>(1 + i * 120), static_cast<std::uint8_t>(i));
}

Guid identity(int i) {
  Guid guid;
  guid.bytes.fill(static_cast<std::uint8_t>(i));
  guid.bytes[15] = 0x5A;
  return guid;
}

std::vector<Value> person(int i) {
  const bool sparse = i % 11 == 0;
  const auto unlessSparse = [&](Value value) { return sparse ? Value(Null{}) : value; };
  return {std::int32_t{i},
          unlessSparse(Text(u"Mürzthaler-Größing Łukasz 𝄞 ").substr(0, static_cast<std::size_t>(5 + i % 9)) +
                       digits(i)),
          Text(u"weg ") + digits(i),
          memo(i),
          unlessSparse(Currency{i * 123'457'001LL - 4'000'000'000}),
          unlessSparse(i / 7.0 - 3),
          unlessSparse(static_cast<float>(i) / 4 - 2),
          unlessSparse(std::int32_t{i % 256}),
          unlessSparse(std::int32_t{i * 300 - 13'000}),
          unlessSparse(std::int32_t{i * 1'000'003 - 45'000'000}),
          unlessSparse(DateTime{i * 600 - 20'000 + 0.25}),
          unlessSparse(identity(i)),
          unlessSparse(Numeric{i % 2 == 1, {0, 0, 0, static_cast<std::uint32_t>(i * 12'345)}, 3}),
          picture(i),
          unlessSparse(Bytes(static_cast<std::size_t>(i % 20), static_cast<std::uint8_t>(0xF0 + i % 16))),
          i % 3 == 0,
          unlessSparse(Text(u"K\uFFFD").substr(0, 1) + digits(i))};
}

void fillPersons(TableBuilder& table, WornDatabase& result) {
  std::vector<RowId> rows;
  for (int i = 1; i <= personCount; ++i) {
    rows.push_back(table.insert(person(i)));
    auto values = person(i);
    values.erase(values.begin() + oldColumn);
    values.insert(values.end(), {Null{}, false});
    result.persons.emplace(rows.back(), std::move(values));
  }
  table.deleteColumn(u"Alt");
  table.addColumn({.name = u"Nachtrag", .type = ColumnType::Text, .characters = 50});
  table.addColumn({.name = u"Geprüft", .type = ColumnType::Boolean});
  for (int i = personCount + 1; i <= personCount + 10; ++i) {
    auto values = person(i);
    values.erase(values.begin() + oldColumn);
    values.insert(values.end(), {Text(u"neu ") + digits(i), true});
    rows.push_back(table.insert(values));
    result.persons.emplace(rows.back(), std::move(values));
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i % 7 == 3 || i % 7 == 4) {
      table.move(rows[i]);
      result.movedPersons.push_back(rows[i]);
    }
  }
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i % 14 != 4 && i % 14 != 5) continue;  // a moved row and one that is not
    table.erase(rows[i]);
    std::erase(result.movedPersons, rows[i]);
    result.erasedPersons.push_back(rows[i]);
    result.persons.erase(rows[i]);
  }
}

}  // namespace

WornDatabase makeWornDatabase(create::BuildOptions options) {
  WornDatabase result;
  create::DatabaseBuilder builder(std::move(options));
  fillPersons(builder.addTable(personTable()), result);

  TableBuilder& assignments =
      builder.addTable({.name = u"Zuordnung",
                        .columns = {{.name = u"PersonenID", .type = ColumnType::Long},
                                    {.name = u"GruppenID", .type = ColumnType::Long}},
                        .indexes = {{.name = u"Beide", .columns = {u"PersonenID", u"GruppenID"}}}});
  for (int i = 0; i < assignmentCount; ++i) assignments.insert({std::int32_t{i % 97}, std::int32_t{i % 13}});
  result.assignments = assignmentCount;

  TableBuilder& measurements =
      builder.addTable({.name = u"Messwerte",
                        .columns = {{.name = u"Nummer", .type = ColumnType::Long},
                                    {.name = u"Wert", .type = ColumnType::Double},
                                    {.name = u"Gültig", .type = ColumnType::Boolean}}});
  for (int i = 0; i < measurementCount; ++i) measurements.insert({std::int32_t{i}, i / 3.0, i % 2 == 0});
  result.measurements = measurementCount;

  result.file = builder.finish();
  return result;
}

}  // namespace jet::test
