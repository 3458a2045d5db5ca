#pragma once

#include <memory>
#include <optional>
#include <span>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "jet/create/database_builder.h"
#include "jet/row_id.h"

namespace jet::test {

// One value as plain text (see appendCanonical); nullopt is Null.
using Cell = std::optional<std::string>;

// Tables of an Access file kept once more in SQLite, every value as its plain text. Beside its columns a
// table has "row", where the row stands in the Access file.
class SqliteMirror {
 public:
  SqliteMirror();

  // The table, and its rules as SQLite's own: unique indexes, Required, zero length.
  void addTable(const create::TableSpec& spec);
  void execute(const std::string& statement) { rows(statement); }
  // False, and nothing changed, where a rule of the table forbids it. `columns` names the cells.
  bool insert(const std::string& table, RowId row, std::span<const std::string> columns,
              std::span<const Cell> cells);
  bool update(const std::string& table, RowId row, std::span<const std::string> columns,
              std::span<const Cell> cells);
  void erase(const std::string& table, RowId row);
  // One line per row, the cells apart by tabs, Null as \N.
  std::vector<std::string> rows(const std::string& statement);

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
  };
  bool run(const std::string& statement, std::span<const Cell> cells);

  std::unique_ptr<sqlite3, Close> database_;
};

}  // namespace jet::test
