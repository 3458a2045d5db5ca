// Saves into the given database without end and prints the number of each save that is done. The kill test
// ends it.
#include <charconv>
#include <cstdio>
#include <exception>
#include <unistd.h>

#include "jet/index.h"
#include "jet/kill/saves.h"
#include "jet/write/table_writer.h"

namespace {

using jet::RowId;

RowId onlyRow(jet::Database& database) {
  jet::TableScan scan = database.table(u"Stand").scan();
  jet::Row row;
  scan.next(row);
  return row.id();
}

RowId personRow(jet::Database& database, std::int32_t id) {
  std::vector<RowId> rows;
  database.table(u"Personen").index(0).lookup(std::vector<jet::Value>{id}, rows);
  return rows.at(0);
}

std::int32_t lastSave(jet::Database& database) {
  return std::get<std::int32_t>(database.table(u"Stand").fetch(onlyRow(database)).value(0));
}

void perform(jet::Database& database, const saves::Save& save) {
  jet::Transaction transaction(database.pages());
  jet::write::TableWriter(transaction, database, u"Stand").update(onlyRow(database), {save.number});
  jet::write::TableWriter persons(transaction, database, u"Personen");
  persons.insert({save.number, save.added.name, save.added.note});
  if (save.erased != 0) persons.erase(personRow(database, save.erased));
  if (save.changed != 0) {
    persons.update(personRow(database, save.changed), {std::nullopt, std::nullopt, save.newNote()});
  }
  transaction.commit();
}

void report(std::int32_t save) {
  char line[16];
  char* end = std::to_chars(line, line + sizeof line - 1, save).ptr;
  *end++ = '\n';
  if (::write(STDOUT_FILENO, line, static_cast<std::size_t>(end - line)) < 0)
    throw std::runtime_error("the pipe is gone");
}

}  // namespace

// On Windows only the wide arguments hold every character.
#ifdef _WIN32
int wmain(int count, wchar_t** arguments) {
#else
int main(int count, char** arguments) {
#endif
  if (count != 2) return 2;
  try {
    jet::Database database(jet::systemFiles(), arguments[1]);
    for (std::int32_t save = lastSave(database) + 1;; ++save) {
      perform(database, saves::Save(save));
      report(save);
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "saving program: %s\n", error.what());
    return 1;
  }
}
