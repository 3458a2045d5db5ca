#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "jet/database.h"

namespace jet::sql {

struct ResultColumn {
  Text name;  // as the table spells it, without the table's name
  ColumnType type{};
};

// A finished answer, all rows in memory.
struct ResultSet {
  std::vector<ResultColumn> columns;
  std::vector<Value> cells;  // row by row
  // Only where the query is on one table and without ORDER BY: the table, and which row each one is.
  Text table;
  std::vector<RowId> rows;
  std::size_t rowCount() const { return columns.empty() ? 0 : cells.size() / columns.size(); }
  const Value& cell(std::size_t row, std::size_t column) const {
    return cells[row * columns.size() + column];
  }
};

// How a query was answered, one line per table in the order they were read; for tests and support.
struct Plan {
  std::vector<std::string> steps;  // e.g. "PersonenGruppen: index PersonGruppe", "Namensliste: hash ID"
};

// Queries on one open database. Keeps the hash tables it had to build where an index was missing, so that
// many queries of one shape cost one scan. Not for several threads.
class Session {
 public:
  explicit Session(Database& database);
  ~Session();

  // Runs one SELECT. Errors: Sql (not understood; the reason names what), NoSuchTable, NoSuchColumn,
  // TypeMismatch, and whatever reading the file finds.
  // Without ORDER BY rows come in stored order (page, slot) of the tables in the order of the FROM clause.
  ResultSet query(std::u16string_view text, Plan* plan = nullptr);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace jet::sql
