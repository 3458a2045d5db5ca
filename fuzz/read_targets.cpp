#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/patched_file.h"
#include "fuzz/targets.h"
#include "jet/check.h"
#include "jet/database.h"
#include "jet/error.h"
#include "jet/export.h"
#include "jet/index.h"

namespace jet::fuzz {
namespace {

OpenOptions opening() {
  OpenOptions options;
  options.ignorePassword = true;
  return options;
}

// Damage is what the input is made of: the engine may refuse any part of it.
template <typename Action>
void refusable(Action action) {
  try {
    action();
  } catch (const Error&) {
    return;
  }
}

// What the first byte of an input chooses: a table of the worn database, one of the engine's own, or the one
// of the older file.
struct Choice {
  std::u16string_view table;
  Base base = Base::Worn;
};
const Choice& choose(InputReader& input) {
  static constexpr std::array<Choice, 8> choices{{{u"Personen"},
                                                  {u"Zuordnung"},
                                                  {u"Messwerte"},
                                                  {u"MSysObjects"},
                                                  {u"Personen"},
                                                  {u"MSysACEs"},
                                                  {u"Alt", Base::Jet3},
                                                  {u"Alt", Base::Jet3}}};
  return choices[input.u8() % choices.size()];
}

// Reads a value in all ways there are, which must agree.
void readValue(const Row& row, const ColumnDefinition& column, std::size_t position, std::string& text) {
  const Value value = row.value(position);
  const Text* words = std::get_if<Text>(&value);
  text.clear();
  if (words == nullptr || words->size() < 100)
    appendCanonical(value, text);  // long ones would take all the time
  std::int32_t number = 0;
  Text characters;
  if (column.type == ColumnType::Long) {
    require(row.asLong(position, number) != isNull(value), "a number read both ways");
    require(isNull(value) || std::get<std::int32_t>(value) == number, "one number both ways");
  }
  if (column.type == ColumnType::Text || column.type == ColumnType::Memo) {
    require(row.asText(position, characters) != isNull(value), "a text read both ways");
    require(isNull(value) || *words == characters, "one text both ways");
  }
}

void readRow(const Table& table, const Row& row) {
  std::string text;
  for (std::size_t i = 0; i < table.definition().columns.size(); ++i) {
    refusable([&] { readValue(row, table.definition().columns[i], i, text); });
    refusable([&] { (void)(row.isNull(i) || row.stored(i)); });
  }
}

void walk(const Table& table, const Index& index) {
  IndexEntry entry;
  std::string before;
  std::uint64_t entries = 0;
  for (IndexWalk walk = index.walk(); walk.next(entry); ++entries) {
    require(before <= entry.key, "keys in order");
    before = entry.key;
    refusable([&] { (void)index.keyOf(table.fetch(entry.row)); });
  }
  require(index.countEntries() == entries, "as many entries as the walk had");
}

// Looks up the keys of some rows of the table.
void lookUp(const Table& table, const Index& index) {
  constexpr int most = 12;
  std::vector<RowId> rows;
  TableScan scan = table.scan();
  Row row;
  for (int i = 0; i < most && scan.next(row); ++i) {
    std::vector<Value> key;
    for (const IndexColumn& column : index.definition().columns) key.push_back(row.value(column.column));
    for (; !key.empty(); key.pop_back()) {
      refusable([&] {
        rows.clear();
        if (!index.lookup(key, rows)) require(rows.empty(), "nothing found by who gives up");
      });
    }
  }
}

}  // namespace

void runOpening(Input input) {
  InputReader reader(input);
  MemoryFiles& files = patchedFile(choose(reader).base, reader);
  refusable([&] {
    Database database(files, fileName, opening());
    (void)database.stamp();
    for (const TableEntry& entry : database.tables()) {
      refusable([&] { (void)database.table(entry.name).definition(); });
      refusable([&] { (void)database.tableProperties(entry.name); });
    }
  });
}

void runCheck(Input input) {
  InputReader reader(input);
  MemoryFiles& files = patchedFile(choose(reader).base, reader);
  std::optional<Database> database;
  refusable([&] { database.emplace(files, fileName, opening()); });
  if (database) (void)check(*database);
}

void runScan(Input input) {
  InputReader reader(input);
  const Choice& choice = choose(reader);
  MemoryFiles& files = patchedFile(choice.base, reader);
  refusable([&] {
    Database database(files, fileName, opening());
    const Table& table = database.table(choice.table);
    Row row, again;
    for (TableScan scan = table.scan(); scan.next(row);) {
      readRow(table, row);
      table.fetch(row.id(), again);
      require(again.id() == row.id(), "a row that a scan finds is found by its place");
    }
  });
}

void runIndex(Input input) {
  InputReader reader(input);
  const Choice& choice = choose(reader);
  MemoryFiles& files = patchedFile(choice.base, reader);
  refusable([&] {
    Database database(files, fileName, opening());
    const Table& table = database.table(choice.table);
    for (std::size_t i = 0; i < table.definition().indexes.size(); ++i) {
      refusable([&] { walk(table, table.index(i)); });
      refusable([&] { lookUp(table, table.index(i)); });
    }
  });
}

}  // namespace jet::fuzz
