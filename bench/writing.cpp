#include "bench/writing.h"

#include <algorithm>
#include <memory>
#include <span>
#include <stdexcept>
#include <vector>

#include "bench/association.h"
#include "bench/jet_copy.h"
#include "bench/sqlite_copy.h"
#include "jet/check.h"
#include "jet/write/table_writer.h"

namespace bench {
namespace {

constexpr const char16_t* table = u"Namensliste";
using Persons = std::span<const Person>;

// Empty copies of the association in both formats, to be filled.
struct EmptyCopies {
  explicit EmptyCopies(const std::filesystem::path& folder) {
    const std::filesystem::path path = folder / "writing.mdb";
    writeJet({}, Indexes::None, path);
    database = std::make_unique<jet::Database>(jet::systemFiles(), path);
    sqlite = std::make_unique<SqliteCopy>(Association{}, Indexes::None, folder / "writing.sqlite");
    sqlite->writeDurably();
  }

  void insertAll(Persons persons) const {
    jet::Transaction transaction(database->pages());
    jet::write::TableWriter writer(transaction, *database, table);
    for (const Person& person : persons) {
      const std::vector<jet::Value> values = rowOf(person);
      writer.insert({values.begin(), values.end()});
    }
    transaction.commit();
  }
  void insertEach(Persons persons) const {
    for (std::size_t i = 0; i < persons.size(); ++i) insertAll(persons.subspan(i, 1));
  }
  void requireRows(std::size_t rows) const {
    const jet::CheckReport report = jet::check(*database);
    if (!report.errors.empty()) throw std::runtime_error("writing: " + report.errors.front());
    std::size_t found = 0;
    jet::Row row;
    for (jet::TableScan scan = database->table(table).scan(); scan.next(row);) ++found;
    if (found != rows || sqlite->query("SELECT ID FROM Namensliste") != rows) {
      throw std::runtime_error("writing: rows are missing");
    }
  }

  std::unique_ptr<jet::Database> database;
  std::unique_ptr<SqliteCopy> sqlite;
};

void measureSingleInserts(Report& report, const std::filesystem::path& folder, Persons persons) {
  constexpr int rounds = 10;
  constexpr std::size_t inserts = 50;
  const EmptyCopies copies(folder);
  std::size_t ours = 0, theirs = 0;
  const auto times = duel(
      rounds, [&] { copies.insertEach(persons.subspan(inserts * ours++, inserts)); },
      [&] { copies.sqlite->insertEach(persons.subspan(inserts * theirs++, inserts)); });
  copies.requireRows(rounds * inserts);
  report.add({"durable single inserts", inserts / times.ours, "rows/s", "SQLite", inserts / times.theirs,
              false, 1, 0.5});
}

void measureManyInserts(Report& report, const std::filesystem::path& folder, Persons persons) {
  constexpr int rounds = 3;
  Duel best{1e9, 1e9};
  for (int round = 0; round < rounds; ++round) {
    const EmptyCopies copies(folder);
    const Duel now = duel(
        1, [&] { copies.insertAll(persons); }, [&] { copies.sqlite->insertAll(persons); });
    copies.requireRows(persons.size());
    best = {std::min(best.ours, now.ours), std::min(best.theirs, now.theirs)};
  }
  const double rows = static_cast<double>(persons.size());
  report.add({"50,000 rows in one transaction", rows / best.ours, "rows/s", {}, 0, false, 50000, 20000});
  report.add({"  the same beside", rows / best.ours, "rows/s", "SQLite", rows / best.theirs, false, {}, {}});
}

}  // namespace

void measureWriting(Report& report, const std::filesystem::path& folder) {
  constexpr std::size_t rows = 50000;
  std::filesystem::create_directories(folder);
  const Association association = makeAssociation(rows, 0, 0, 2026);
  measureSingleInserts(report, folder, association.persons);
  measureManyInserts(report, folder, association.persons);
}

}  // namespace bench
