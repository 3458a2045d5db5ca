#include "jet/sqlite_mirror.h"

#include "jet/text_codec.h"

namespace jet::test {

namespace {

using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

Statement prepare(sqlite3* database, const std::string& text) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database, text.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
    throw std::runtime_error(text + ": " + sqlite3_errmsg(database));
  }
  return {statement, &sqlite3_finalize};
}

std::string joined(std::span<const std::string> parts, const std::string& between) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : between) + part;
  return text;
}

}  // namespace

SqliteMirror::SqliteMirror() {
  sqlite3* database = nullptr;
  if (sqlite3_open(":memory:", &database) != SQLITE_OK) throw std::runtime_error("SQLite does not open");
  database_.reset(database);
}

void SqliteMirror::addTable(const create::TableSpec& spec) {
  const std::string table = toUtf8(spec.name);
  std::string columns = "row INTEGER PRIMARY KEY";
  for (const create::ColumnSpec& column : spec.columns) {
    columns += ", " + toUtf8(column.name) + " TEXT";
    if (column.required) columns += " NOT NULL";
    if (!column.allowZeroLength) columns += " CHECK (" + toUtf8(column.name) + " <> '')";
  }
  execute("CREATE TABLE " + table + " (" + columns + ")");
  for (const create::IndexSpec& index : spec.indexes) {
    // Two Nulls are equal here, only where all columns are Null is there no rule.
    std::vector<std::string> keys, nulls, names;
    for (const Text& column : index.columns) {
      names.push_back(toUtf8(column[0] == u'-' ? column.substr(1) : column));
      keys.push_back("ifnull(" + names.back() + ", '\\N')");
      nulls.push_back(names.back() + " IS NOT NULL");
    }
    const bool unique = index.unique || index.primaryKey;
    execute("CREATE " + std::string(unique ? "UNIQUE " : "") + "INDEX " + table + toUtf8(index.name) +
            " ON " + table + " (" + joined(keys, ", ") + ") WHERE " + joined(nulls, " OR "));
    execute("CREATE INDEX " + table + toUtf8(index.name) + "Plain ON " + table + " (" + joined(names, ", ") +
            ")");
  }
}

bool SqliteMirror::run(const std::string& statement, std::span<const Cell> cells) {
  const Statement prepared = prepare(database_.get(), statement);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (!cells[i]) continue;
    sqlite3_bind_text(prepared.get(), static_cast<int>(i + 1), cells[i]->data(),
                      static_cast<int>(cells[i]->size()), SQLITE_STATIC);
  }
  const int result = sqlite3_step(prepared.get());
  if (result == SQLITE_CONSTRAINT) return false;
  if (result != SQLITE_DONE) throw std::runtime_error(statement + ": " + sqlite3_errmsg(database_.get()));
  return true;
}

bool SqliteMirror::insert(const std::string& table, RowId row, std::span<const std::string> columns,
                          std::span<const Cell> cells) {
  std::string places;
  for (std::size_t i = 0; i < cells.size(); ++i) places += ", ?";
  return run("INSERT INTO " + table + " (row, " + joined(columns, ", ") + ") VALUES (" +
                 std::to_string(row.pointer()) + places + ")",
             cells);
}

bool SqliteMirror::update(const std::string& table, RowId row, std::span<const std::string> columns,
                          std::span<const Cell> cells) {
  return run("UPDATE " + table + " SET " + joined(columns, " = ?, ") +
                 " = ? WHERE row = " + std::to_string(row.pointer()),
             cells);
}

void SqliteMirror::erase(const std::string& table, RowId row) {
  execute("DELETE FROM " + table + " WHERE row = " + std::to_string(row.pointer()));
}

std::vector<std::string> SqliteMirror::rows(const std::string& statement) {
  const Statement prepared = prepare(database_.get(), statement);
  std::vector<std::string> lines;
  for (;;) {
    const int result = sqlite3_step(prepared.get());
    if (result == SQLITE_DONE) return lines;
    if (result != SQLITE_ROW) throw std::runtime_error(statement + ": " + sqlite3_errmsg(database_.get()));
    std::string& line = lines.emplace_back();
    for (int i = 0; i < sqlite3_column_count(prepared.get()); ++i) {
      if (i > 0) line += '\t';
      const auto* text = sqlite3_column_text(prepared.get(), i);
      if (text == nullptr) {
        line += "\\N";
      } else {
        line.append(reinterpret_cast<const char*>(text),
                    static_cast<std::size_t>(sqlite3_column_bytes(prepared.get(), i)));
      }
    }
  }
}

}  // namespace jet::test
