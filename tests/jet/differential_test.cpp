// The same random changes and queries on our engine and on SQLite. The short form is part of every test run;
// a long one: PELVANTO_STEPS=200000 [PELVANTO_SEED=n] test_jet --gtest_filter='Differential.*'

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <optional>

#include "common/memory_files.h"
#include "jet/check.h"
#include "jet/error.h"
#include "jet/random_rows.h"
#include "jet/sql/session.h"
#include "jet/sqlite_mirror.h"
#include "jet/text_codec.h"
#include "jet/write/table_writer.h"

namespace jet::test {
namespace {

constexpr std::size_t stepsBetweenChecks = 100;
constexpr std::size_t id = 0;  // the position of the automatic number in "Personen"

std::size_t setting(const char* name, std::size_t otherwise) {
  const char* text = std::getenv(name);
  return text != nullptr ? std::stoul(text) : otherwise;
}

Text toUtf16(const std::string& text) {
  return std::filesystem::path(std::u8string(text.begin(), text.end())).u16string();
}

Cell cellOf(const Value& value) { return isNull(value) ? Cell() : plainText(value); }

struct MirroredTable {
  create::TableSpec spec;
  std::string name;
  std::vector<std::string> columns;
  std::vector<RowId> rows;
};

class Differential : public ::testing::Test {
 protected:
  Differential() {
    create::DatabaseBuilder builder;
    for (const create::TableSpec& spec : randomTables()) {
      builder.addTable(spec);
      mirror_.addTable(spec);
      MirroredTable& table = tables_.emplace_back(MirroredTable{spec, toUtf8(spec.name), {}, {}});
      for (const auto& column : spec.columns) table.columns.push_back(toUtf8(column.name));
    }
    files_.put("a.mdb", builder.finish());
    reopen();
  }

  void reopen() {
    session_.reset();
    database_.reset();
    database_ = std::make_unique<Database>(files_, "a.mdb");
    session_ = std::make_unique<sql::Session>(*database_);
  }
  std::size_t below(std::size_t number) { return random_() % number; }
  Value valueFor(const create::ColumnSpec& column) { return randomValue(column, random_); }

  void change();
  bool insert(MirroredTable& table, write::TableWriter& writer);
  bool update(MirroredTable& table, write::TableWriter& writer);
  void erase(MirroredTable& table, write::TableWriter& writer);
  void query();
  void queryByValues(const MirroredTable& table);
  void expectSameAnswer(const std::string& sql, const std::string& sqliteText, bool ordered);
  void compareAll();

  std::mt19937 random_{static_cast<std::uint32_t>(setting("PELVANTO_SEED", 20261123))};
  std::size_t steps_ = setting("PELVANTO_STEPS", 2000), step_ = 0;
  std::size_t mostRows_ = std::clamp<std::size_t>(steps_ / 10, 200, 3000);
  std::size_t refused_ = 0, rolledBack_ = 0, answered_ = 0;
  MemoryFiles files_;
  std::unique_ptr<Database> database_;
  std::unique_ptr<sql::Session> session_;
  SqliteMirror mirror_;
  std::vector<MirroredTable> tables_;
};

// Runs one change; true: done. False: refused by a rule, which has to be one of SQLite's, too.
template <typename Change>
bool isAllowed(Change&& change) {
  try {
    change();
    return true;
  } catch (const Error& error) {
    if (error.kind() != ErrorKind::Constraint) throw;
    return false;
  }
}

bool Differential::insert(MirroredTable& table, write::TableWriter& writer) {
  write::RowValues values;
  std::vector<Cell> cells;
  for (const auto& column : table.spec.columns) {
    const bool byDefault = column.autoNumber || (!column.defaultValue.empty() && below(2) == 0);
    values.push_back(byDefault ? std::nullopt : std::optional(valueFor(column)));
    cells.push_back(byDefault ? toUtf8(column.defaultValue) : cellOf(*values.back()));
  }
  RowId row{0xFFFFFF, 0xFF};
  const bool allowed = isAllowed([&] { row = writer.insert(values); });
  if (table.spec.columns[id].autoNumber)
    cells[id] = allowed ? std::to_string(writer.lastAutoNumber()) : "none";
  EXPECT_EQ(mirror_.insert(table.name, row, table.columns, cells), allowed) << "insert into " << table.name;
  if (allowed) table.rows.push_back(row);
  return allowed;
}

bool Differential::update(MirroredTable& table, write::TableWriter& writer) {
  const RowId row = table.rows[below(table.rows.size())];
  const std::size_t frequency = 1 + below(8);
  write::RowValues values(table.columns.size());
  std::vector<std::string> columns;
  std::vector<Cell> cells;
  while (columns.empty()) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      if (table.spec.columns[i].autoNumber || below(frequency) != 0) continue;
      values[i] = valueFor(table.spec.columns[i]);
      columns.push_back(table.columns[i]);
      cells.push_back(cellOf(*values[i]));
    }
  }
  const bool allowed = isAllowed([&] { writer.update(row, values); });
  EXPECT_EQ(mirror_.update(table.name, row, columns, cells), allowed) << "update of " << table.name;
  return allowed;
}

void Differential::erase(MirroredTable& table, write::TableWriter& writer) {
  const std::size_t place = below(table.rows.size());
  writer.erase(table.rows[place]);
  mirror_.erase(table.name, table.rows[place]);
  table.rows.erase(table.rows.begin() + static_cast<std::ptrdiff_t>(place));
}

// One transaction over one or several tables; some are rolled back, those with a refused change always.
void Differential::change() {
  const std::vector<MirroredTable> before = tables_;
  bool keep = below(12) != 0;
  mirror_.execute("BEGIN");
  {
    Transaction transaction(database_->pages());
    for (std::size_t left = below(10) == 0 ? 25 : 1 + below(3); left > 0; --left, ++step_) {
      MirroredTable& table = tables_[below(tables_.size())];
      write::TableWriter writer(transaction, *database_, table.spec.name);
      const std::size_t choice = below(10), inserts = table.rows.size() < mostRows_ ? 5 : 1;
      bool allowed = true;
      if (choice < inserts || table.rows.empty()) {
        allowed = insert(table, writer);
      } else if (choice < 8) {
        allowed = update(table, writer);
      } else {
        erase(table, writer);
      }
      if (allowed) continue;
      ++refused_;
      keep = false;
      break;
    }
    if (keep) transaction.commit();
  }
  mirror_.execute(keep ? "COMMIT" : "ROLLBACK");
  if (keep) return;
  ++rolledBack_;
  tables_ = before;
}

void Differential::expectSameAnswer(const std::string& sql, const std::string& sqliteText, bool ordered) {
  const sql::ResultSet result = session_->query(toUtf16(sql));
  std::vector<std::string> ours;
  for (std::size_t row = 0; row < result.rowCount(); ++row) {
    std::string& line = ours.emplace_back();
    for (std::size_t i = 0; i < result.columns.size(); ++i) {
      line += (i > 0 ? "\t" : "") + plainText(result.cell(row, i));
    }
  }
  std::vector<std::string> theirs = mirror_.rows(sqliteText);
  answered_ += theirs.size();
  if (!ordered) {
    std::ranges::sort(ours);
    std::ranges::sort(theirs);
  }
  EXPECT_EQ(ours, theirs) << sql;
}

// By one or two values of some row, where both sides compare them alike.
void Differential::queryByValues(const MirroredTable& table) {
  if (table.rows.empty()) return;
  const RowId row = table.rows[below(table.rows.size())];
  std::string ours, theirs;
  for (std::size_t left = 1 + below(2); left > 0; --left) {
    const std::size_t i = below(table.columns.size());
    const create::ColumnSpec& column = table.spec.columns[i];
    const bool isText = column.name == u"Name" || column.name == u"Kurz";
    const bool isNumber = column.type == ColumnType::Long || column.type == ColumnType::Byte ||
                          column.type == ColumnType::Integer || column.type == ColumnType::Currency ||
                          column.type == ColumnType::Numeric || column.type == ColumnType::Double;
    if (!isText && !isNumber) continue;
    const std::string value = mirror_
                                  .rows("SELECT " + table.columns[i] + " FROM " + table.name +
                                        " WHERE row = " + std::to_string(row.pointer()))
                                  .at(0);
    if (value == "\\N") continue;
    std::string quoted = "'";
    for (const char byte : value) quoted += byte == '\'' ? "''" : std::string(1, byte);
    quoted += "'";
    const std::string start = (ours.empty() ? " WHERE " : " AND ") + table.columns[i] + " = ";
    ours += start + (isText ? quoted : value);
    theirs += start + quoted;
  }
  std::string columns;
  for (const std::string& column : table.columns) columns += (columns.empty() ? "" : ", ") + column;
  const std::string select = "SELECT " + columns + " FROM " + table.name;
  expectSameAnswer(select + ours, select + theirs, false);
}

void Differential::query() {
  ++step_;
  const std::string number = std::to_string(below(60));
  switch (below(6)) {
    case 0: {
      const std::string join =
          "SELECT Personen.ID, Personen.Notiz, Zuordnung.Wert FROM Personen INNER JOIN Zuordnung ON "
          "Personen.Verweis = "
          "Zuordnung.Person WHERE Zuordnung.Gruppe = " +
          number;
      return expectSameAnswer(join, join, false);
    }
    case 1: {
      const std::string sorted = "SELECT ID, Geboren FROM Personen ORDER BY ";
      return expectSameAnswer(sorted + "ID DESC", sorted + "CAST(ID AS INTEGER) DESC", true);
    }
    default:
      return queryByValues(tables_[below(tables_.size())]);
  }
}

// Every row of every table, where it stands; and the file has to be in order.
void Differential::compareAll() {
  for (const MirroredTable& table : tables_) {
    std::vector<std::string> ours;
    const Table& source = database_->table(table.spec.name);
    TableScan scan = source.scan();
    for (Row row; scan.next(row);) {
      std::string& line = ours.emplace_back(std::to_string(row.id().pointer()));
      for (std::size_t i = 0; i < table.columns.size(); ++i) line += "\t" + plainText(row.value(i));
    }
    EXPECT_EQ(ours, mirror_.rows("SELECT * FROM " + table.name + " ORDER BY row")) << table.name;
  }
  const CheckReport report = check(*database_);
  EXPECT_EQ(report.errors, std::vector<std::string>{});
  EXPECT_EQ(report.remarks, std::vector<std::string>{});
}

TEST_F(Differential, AgreesWithSqlite) {
  std::size_t nextCheck = stepsBetweenChecks;
  while (step_ < steps_) {
    SCOPED_TRACE("step " + std::to_string(step_) +
                 ", PELVANTO_SEED=" + std::to_string(setting("PELVANTO_SEED", 20261123)));
    if (below(10) < 6) {
      change();
    } else {
      query();
    }
    if (below(200) == 0) reopen();
    if (step_ >= nextCheck) {
      compareAll();
      nextCheck += stepsBetweenChecks;
    }
    if (HasFailure()) break;
  }
  std::printf(
      "%zu steps, %zu changes refused, %zu transactions rolled back, %zu rows in answers, %zu pages\n", step_,
      refused_, rolledBack_, answered_, files_.at("a.mdb").content.size() / 4096);
  EXPECT_GT(refused_, steps_ / 200);
}

}  // namespace
}  // namespace jet::test
