#pragma once

#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "jet/file.h"
#include "jet/format.h"
#include "jet/row_id.h"
#include "jet/value.h"

namespace jet::create {

struct ColumnSpec {
  Text name{};
  ColumnType type{};
  std::uint16_t characters = 0;            // text: largest number of characters; binary: of bytes
  bool autoNumber = false;                 // long only
  bool compressed = true;                  // text and memo: store compressed where possible
  std::uint8_t precision = 18, scale = 0;  // numeric only
  bool fixed = true;                       // false: store a fixed-size type as a variable column
  // Properties, kept where Access keeps them:
  Text defaultValue{};
  bool required = false;
  bool allowZeroLength = true;
};

struct IndexSpec {
  Text name{};
  std::vector<Text> columns{};  // a leading "-" means descending
  bool primaryKey = false;
  bool unique = false;
  bool ignoreNulls = false;
};

struct TableSpec {
  Text name{};
  std::vector<ColumnSpec> columns{};
  std::vector<IndexSpec> indexes{};
};

// Rows of one table that is being built. Row ids are final.
class TableBuilder {
 public:
  // One value per column of the spec, in its order. Errors: TypeMismatch, Limit, Constraint (a unique key
  // twice is found when the file is finished).
  RowId insert(std::vector<Value> values);
  // The states that years of use leave behind in a real file, for tests:
  void erase(RowId row);                     // a deleted row
  void move(RowId row);                      // a row that outgrew its page
  void addColumn(const ColumnSpec& column);  // earlier rows do not know it
  void deleteColumn(const Text& name);       // gaps in the column numbers

 private:
  friend class DatabaseBuilder;
  struct State;
  explicit TableBuilder(State& state) : state_(&state) {}
  State* state_;
};

struct BuildOptions {
  double created = 0;             // days since 1899-12-30; dates of the catalog's rows
  std::uint32_t databaseKey = 0;  // not 0: encode the pages
  Text password{};                // for tests of the refusal
  Text accessVersion = u"08.50";  // property of the database; empty = none
};

// Makes a new Jet 4 file from nothing, in memory, page by page as Access lays it out.
class DatabaseBuilder {
 public:
  explicit DatabaseBuilder(BuildOptions options = {});
  ~DatabaseBuilder();

  // The returned builder lives as long as this object. Errors: Constraint (a name twice), Limit.
  TableBuilder& addTable(const TableSpec& spec);
  // The whole file. Builds the indexes; call once. Errors: Constraint (unique key twice), Limit (2 GiB).
  std::vector<std::uint8_t> finish();
  // `finish`, written as a new file.
  void write(FileSystem& files, const std::filesystem::path& path);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace jet::create
