#include "bench/engine.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <stdexcept>

#include "bench/association.h"
#include "bench/jet_copy.h"
#include "bench/sqlite_copy.h"
#include "jet/database.h"
#include "jet/sql/session.h"
#include "jet/text_codec.h"

namespace bench {
namespace {

constexpr std::size_t personCount = 20000, delivererCount = 10000, membershipCount = 500000;
constexpr int rounds = 5;
constexpr int lookups = 20000;

void require(bool holds, const char* what) {
  if (!holds) throw std::runtime_error(std::string("wrong result: ") + what);
}

// Both copies of one association, and the names of their files.
struct Copies {
  Copies(const Association& association, Indexes indexes, const std::filesystem::path& folder,
         const std::string& name)
      : jetPath(folder / (name + ".mdb")) {
    writeJet(association, indexes, jetPath);
    sqlite = std::make_unique<SqliteCopy>(association, indexes, folder / (name + ".sqlite"));
    open();
  }
  void open() {
    database = std::make_unique<jet::Database>(jet::systemFiles(), jetPath);
    session = std::make_unique<jet::sql::Session>(*database);
  }

  std::filesystem::path jetPath;
  std::unique_ptr<SqliteCopy> sqlite;
  std::unique_ptr<jet::Database> database;
  std::unique_ptr<jet::sql::Session> session;
};

// Reads every value of every row.
std::size_t scanAll(jet::Table& table) {
  const auto& columns = table.definition().columns;
  std::size_t rows = 0, seen = 0;
  jet::Text text;
  std::int32_t number = 0;
  jet::Row row;
  for (jet::TableScan scan = table.scan(); scan.next(row); ++rows) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (columns[i].type == jet::ColumnType::Text) {
        if (row.asText(i, text) && !text.empty()) seen += text.front();
      } else if (columns[i].type == jet::ColumnType::Long) {
        if (row.asLong(i, number)) seen += static_cast<std::size_t>(number);
      } else {
        seen += row.isNull(i) ? 0 : row.value(i).index();
      }
    }
  }
  require(seen != 0, "scan");
  return rows;
}

void measureScan(Report& report, Copies& copies, const char16_t* table, std::size_t rows) {
  const std::string name = jet::toUtf8(table);
  const auto times = duel(
      rounds, [&] { require(scanAll(copies.database->table(table)) == rows, "rows of the scan"); },
      [&] { require(copies.sqlite->query("SELECT * FROM " + name) == rows, "rows in SQLite"); });
  const double count = static_cast<double>(rows);
  report.add(
      {"scan of " + name, count / times.ours, "rows/s", "SQLite", count / times.theirs, false, 0.5, 0.25});

  if (std::system("command -v mdb-export >/dev/null") != 0) return;
  std::string command = "mdb-export '";
  command.append(copies.jetPath.string()).append("' ").append(name).append(" >/dev/null");
  const double export_ = best(rounds, [&] { require(std::system(command.c_str()) == 0, "mdb-export"); });
  report.add({"scan of " + name, count / times.ours, "rows/s", "mdbtools", count / export_, false, 2, 1});
}

// Many queries of one shape, as texts.
void measureQueries(Report& report, Copies& copies, const std::string& name,
                    const std::function<std::u16string(std::mt19937&)>& make, std::optional<double> aim,
                    std::optional<double> floor) {
  std::mt19937 random(1);
  std::vector<std::u16string> texts;
  std::vector<std::string> utf8;
  for (int i = 0; i < lookups; ++i) {
    texts.push_back(make(random));
    utf8.push_back(jet::toUtf8(texts.back()));
  }
  std::size_t ourRows = 0, theirRows = 0;
  copies.open();
  const double first = seconds([&] { copies.session->query(texts.front()); });
  const auto times = duel(
      rounds,
      [&] {
        ourRows = 0;
        for (const auto& text : texts) ourRows += copies.session->query(text).rowCount();
      },
      [&] {
        theirRows = 0;
        for (const auto& text : utf8) theirRows += copies.sqlite->query(text);
      });
  require(ourRows == theirRows, "rows of the lookups");
  report.add({name, lookups / times.ours, "query/s", "SQLite", lookups / times.theirs, false, aim, floor});
  report.add({"  first query after opening", first * 1000, "ms", {}, 0, true, {}, {}});
}

std::u16string randomMembership(std::mt19937& random) {
  return queries::membership(static_cast<std::int32_t>(random() % personCount + 1),
                             static_cast<std::int32_t>(random() % 67 + 1));
}

void measureJoin(Report& report, Copies& copies) {
  const std::string text = jet::toUtf8(queries::members);
  const auto ours = [&] {
    require(copies.session->query(queries::members).rowCount() == delivererCount, "rows of the join");
  };
  const auto theirs = [&] {
    require(copies.sqlite->query(text) == delivererCount, "rows of the join in SQLite");
  };
  const auto warm = duel(2 * rounds, ours, theirs);
  report.add({"join of 10,000 of 500,000 memberships, sorted", warm.ours * 1000, "ms", "SQLite",
              warm.theirs * 1000, true, 1, 2});
  const auto fresh = duel(
      2 * rounds,
      [&] {
        copies.open();
        ours();
      },
      [&] {
        copies.sqlite->reopen();
        theirs();
      });
  report.add(
      {"the same, file newly opened", fresh.ours * 1000, "ms", "SQLite", fresh.theirs * 1000, true, 1, 2});
}

void measureMemory(Report& report, const std::filesystem::path& memoryProgram,
                   const std::filesystem::path& file, const std::string& which) {
  std::string command = "'";
  command.append(memoryProgram.string()).append("' '").append(file.string()).append("'");
  FILE* output = popen(command.c_str(), "r");
  double kibibytes = 0;
  const bool read = output != nullptr && std::fscanf(output, "%lf", &kibibytes) == 1;
  require(output != nullptr && pclose(output) == 0 && read, "memory program");
  report.add({"peak memory of the engine's work, " + which, kibibytes / 1024, "MiB", {}, 0, true, 32, 64});
}

}  // namespace

void measureEngine(Report& report, const std::filesystem::path& folder,
                   const std::filesystem::path& memoryProgram) {
  const Association association = makeAssociation(personCount, delivererCount, membershipCount, 2026);
  Copies full(association, Indexes::AsVerbindo, folder, "full");
  measureScan(report, full, u"Namensliste", personCount);
  measureScan(report, full, u"PersonenGruppen", membershipCount);
  measureQueries(
      report, full, "lookup of a person by ID",
      [](std::mt19937& random) {
        return queries::person(static_cast<std::int32_t>(random() % personCount + 1));
      },
      1, 0.5);
  measureQueries(report, full, "membership test, index on both columns", randomMembership, {}, {});
  measureJoin(report, full);
  measureMemory(report, memoryProgram, full.jetPath, "with indexes");
  for (const auto& [indexes, name] : {std::pair{Indexes::PersonOnly, "index on the person"},
                                      {Indexes::GroupOnly, "index on the group"},
                                      {Indexes::None, "no index"}}) {
    Copies copies(association, indexes, folder, "other");
    if (indexes == Indexes::None) measureMemory(report, memoryProgram, copies.jetPath, "without indexes");
    // Without a fitting index SQLite reads all rows for each query: compare with what it does at its best.
    std::string text = "membership test, ";
    text.append(name).append(", 20,000 in a new session");
    std::mt19937 random(1);
    std::vector<std::u16string> texts;
    for (int i = 0; i < lookups; ++i) texts.push_back(randomMembership(random));
    const double time = seconds([&] {
      for (const auto& query : texts) copies.session->query(query);
    });
    constexpr int theirQueries = 50;
    const double theirs = seconds([&] {
      for (int i = 0; i < theirQueries; ++i) copies.sqlite->query(jet::toUtf8(texts[i]));
    });
    report.add({text, lookups / time, "query/s", "SQLite", theirQueries / theirs, false, {}, {}});
  }
}

}  // namespace bench
