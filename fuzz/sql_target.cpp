#include "common/memory_files.h"
#include "fuzz/input_reader.h"
#include "fuzz/targets.h"
#include "jet/create/database_builder.h"
#include "jet/error.h"
#include "jet/sql/session.h"

namespace jet::fuzz {
namespace {

// Few rows: a join may multiply them.
MemoryFiles makeFiles() {
  using create::ColumnSpec;
  create::DatabaseBuilder builder;
  auto& persons = builder.addTable({.name = u"P",
                                    .columns = {{.name = u"ID", .type = ColumnType::Long},
                                                {.name = u"N", .type = ColumnType::Text, .characters = 20},
                                                {.name = u"C", .type = ColumnType::Currency},
                                                {.name = u"D", .type = ColumnType::DateTime},
                                                {.name = u"B", .type = ColumnType::Boolean},
                                                {.name = u"M", .type = ColumnType::Memo},
                                                {.name = u"F", .type = ColumnType::Double}},
                                    .indexes = {{.name = u"ID", .columns = {u"ID"}, .primaryKey = true},
                                                {.name = u"N", .columns = {u"N"}}}});
  persons.insert({1, Text(u"Huber"), Currency{12'500}, DateTime{45'000.5}, true, Text(u"x"), 0.5});
  persons.insert({2, Text(u"Müller"), Null{}, Null{}, false, Null{}, Null{}});
  persons.insert({3, Null{}, Currency{-1}, DateTime{-1.25}, true, Text(3000, u'm'), -1e300});
  auto& groups = builder.addTable({.name = u"G",
                                   .columns = {{.name = u"ID", .type = ColumnType::Long},
                                               {.name = u"P", .type = ColumnType::Long},
                                               {.name = u"A b", .type = ColumnType::Guid},
                                               {.name = u"Z", .type = ColumnType::Numeric, .scale = 2}},
                                   .indexes = {{.name = u"PG", .columns = {u"P", u"-ID"}}}});
  for (int i = 0; i < 4; ++i) {
    groups.insert({i, i % 3, Guid{}, Numeric{false, {0, 0, 0, static_cast<std::uint32_t>(i)}, 2}});
  }
  builder.addTable({.name = u"E", .columns = {{.name = u"ID", .type = ColumnType::Byte}}});
  MemoryFiles files;
  files.put("sql.mdb", builder.finish());
  return files;
}

// ASCII stands for itself; any other byte and the next one are a UTF-16 unit.
Text queryText(Input input) {
  Text text;
  for (InputReader reader(input); !reader.atEnd();) {
    const unsigned byte = reader.u8();
    text += static_cast<char16_t>(byte < 0x80 ? byte : (byte & 0x7F) << 8 | reader.u8());
  }
  return text;
}

}  // namespace

void runSql(Input input) {
  static MemoryFiles files = makeFiles();
  static Database database(files, "sql.mdb");
  const Text query = queryText(input);
  sql::Session session(database);
  try {
    const sql::ResultSet first = session.query(query);
    require(!first.columns.empty() && first.cells.size() == first.rowCount() * first.columns.size(),
            "whole rows");
    require(session.query(query).cells == first.cells, "the same answer when asked again");
  } catch (const Error&) {
    return;
  }
}

}  // namespace jet::fuzz
