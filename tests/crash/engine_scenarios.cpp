#include "crash/engine_scenarios.h"

#include "jet/check.h"
#include "jet/create/database_builder.h"
#include "jet/database.h"
#include "jet/export.h"
#include "jet/transaction.h"
#include "jet/write/table_writer.h"

namespace jet::test {
namespace {

using create::ColumnSpec;
using write::RowValues;
using write::TableWriter;

Text numbered(const char16_t* name, std::size_t number) {
  const std::string digits = std::to_string(number);
  return name + Text(digits.begin(), digits.end());
}

Bytes newDatabase() {
  create::DatabaseBuilder builder;
  auto& persons = builder.addTable(
      {.name = u"Personen",
       .columns = {ColumnSpec{.name = u"ID", .type = ColumnType::Long, .autoNumber = true},
                   ColumnSpec{.name = u"Name", .type = ColumnType::Text, .characters = 200},
                   ColumnSpec{.name = u"Nummer", .type = ColumnType::Long},
                   ColumnSpec{.name = u"Bemerkung", .type = ColumnType::Memo}},
       .indexes = {{.name = u"PrimaryKey", .columns = {u"ID"}, .primaryKey = true, .unique = true},
                   {.name = u"Name", .columns = {u"Name"}},
                   {.name = u"Nummer", .columns = {u"Nummer", u"ID"}}}});
  for (std::int32_t i = 0; i < 12; ++i) {
    persons.insert({i + 1, numbered(u"Müller ", static_cast<std::size_t>(i)), 700 - i, Null{}});
  }
  auto& counters = builder.addTable(
      {.name = u"Zaehler",
       .columns = {ColumnSpec{.name = u"Name", .type = ColumnType::Text, .characters = 20},
                   ColumnSpec{.name = u"Stand", .type = ColumnType::Long}},
       .indexes = {{.name = u"PrimaryKey", .columns = {u"Name"}, .primaryKey = true, .unique = true}}});
  counters.insert({Text(u"Briefe"), 0});
  return builder.finish();
}

using Save = std::function<void(Transaction&, Database&)>;

Scenario scenarioOf(std::string name, std::vector<Save> saves) {
  Scenario scenario;
  scenario.name = std::move(name);
  scenario.database = newDatabase();
  scenario.saves = saves.size();
  scenario.open = [saves = std::move(saves)](FileSystem& files) -> Saving {
    auto database = std::make_shared<Database>(files, databaseName);
    return [database, saves](std::size_t number) {
      Transaction transaction(database->pages());
      saves[number](transaction, *database);
      transaction.commit();
    };
  };
  scenario.content = contentOf;
  return scenario;
}

RowValues person(Text name, std::int32_t number, Value memo = Null{}) {
  return {std::nullopt, Value(std::move(name)), Value(number), std::move(memo)};
}
Save insertion(RowValues values) {
  return [values = std::move(values)](Transaction& transaction, Database& database) {
    TableWriter(transaction, database, u"Personen").insert(values);
  };
}

RowId lastRowOf(Database& database, std::u16string_view table) {
  TableScan scan = database.table(table).scan();
  RowId last;
  for (Row row; scan.next(row);) last = row.id();
  return last;
}
Save updateOfLast(RowValues values) {
  return [values = std::move(values)](Transaction& transaction, Database& database) {
    const RowId row = lastRowOf(database, u"Personen");
    TableWriter(transaction, database, u"Personen").update(row, values);
  };
}
void eraseLast(Transaction& transaction, Database& database) {
  const RowId row = lastRowOf(database, u"Personen");
  TableWriter(transaction, database, u"Personen").erase(row);
}
void count(Transaction& transaction, Database& database) {
  Row row;
  TableScan scan = database.table(u"Zaehler").scan();
  std::int32_t value = 0;
  if (!scan.next(row) || !row.asLong(1, value)) throw Error(ErrorKind::Damaged, "the counter is gone");
  TableWriter(transaction, database, u"Zaehler").update(row.id(), {std::nullopt, Value(value + 1)});
}

// Cannot be stored compressed.
Value memoOf(std::size_t characters) { return Text(characters, u'\u0416'); }

}  // namespace

std::string contentOf(const Bytes& bytes) {
  CrashFiles files({{databaseName, {bytes, 1}}});
  Database database(files, databaseName);
  std::string content;
  for (const std::string& error : check(database).errors) content += "damaged: " + error + "\n";
  for (const TableEntry& entry : database.tables()) content += exportTable(database.table(entry.name));
  return content;
}

Scenario oneInsert() { return scenarioOf("one insert", {insertion(person(u"Huber", 5))}); }

Scenario personsWithCounters(std::size_t persons) {
  std::vector<Save> saves;
  for (std::size_t i = 0; i < persons; ++i) {
    saves.push_back(insertion(person(numbered(u"Bäuerin Groß ", 7 * i % 10), static_cast<std::int32_t>(i),
                                     Text(40 + 60 * (i % 8), u'ä'))));
    saves.push_back(count);
  }
  return scenarioOf(std::to_string(persons) + " persons with counters", std::move(saves));
}

Scenario indexSplits() {
  std::vector<Save> saves;
  for (std::size_t i = 0; i < 24; ++i) {
    saves.push_back(
        insertion(person(Text(190, static_cast<char16_t>(u'n' + 5 * i % 13)) + numbered(u"", i), 1)));
  }
  saves.insert(saves.end(), 24, eraseLast);
  return scenarioOf("index splits", std::move(saves));
}

Scenario longMemos() {
  std::vector<Save> saves{insertion(person(u"Lang", 1, memoOf(9'000))),
                          updateOfLast({std::nullopt, std::nullopt, std::nullopt, memoOf(1'000)}),
                          updateOfLast({std::nullopt, std::nullopt, std::nullopt, memoOf(20'000)}), eraseLast,
                          insertion(person(u"Lang", 2, memoOf(5'000)))};
  return scenarioOf("long memos", std::move(saves));
}

Scenario fileGrowth() {
  std::vector<Save> saves;
  for (std::size_t i = 0; i < 4; ++i) {
    saves.push_back([i](Transaction& transaction, Database& database) {
      TableWriter writer(transaction, database, u"Personen");
      for (std::size_t row = 0; row < 40; ++row) {
        writer.insert(person(numbered(u"Wachstum ", 100 * i + row), 3, Text(200, u'\u0416')));
      }
    });
  }
  return scenarioOf("file growth", std::move(saves));
}

std::vector<Scenario> engineScenarios() {
  return {oneInsert(), personsWithCounters(20), indexSplits(), longMemos(), fileGrowth()};
}

}  // namespace jet::test
