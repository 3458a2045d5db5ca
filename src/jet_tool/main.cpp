#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#endif

#include "jet/check.h"
#include "jet/database.h"
#include "jet/error.h"
#include "jet/export.h"
#include "jet/sql/session.h"
#include "jet/text_codec.h"

namespace {

constexpr const char* usage =
    "jet tables FILE         user tables and their numbers of rows\n"
    "jet export FILE TABLE   all rows of a table, tab separated\n"
    "jet sql FILE QUERY      the answer to a query, tab separated\n"
    "jet check FILE          looks for contradictions in the file\n";

// Paths know the system's own way of writing texts, whatever an argument means.
using Argument = std::filesystem::path;

// Nothing is changed, but what a crash left half done is undone first, as at every opening.
jet::OpenOptions lookOnly() {
  jet::OpenOptions options;
  options.ignorePassword = true;
  options.warn = [](const std::string& sentence) { std::cerr << "jet: " << sentence << '\n'; };
  options.recovered = [](const jet::RecoveryResult& result) {
    std::cerr << (result.what == jet::Recovery::RolledBack
                      ? std::string("jet: an interrupted save was undone")
                      : "jet: the journal of an interrupted save does not fit the file, it is kept as " +
                            result.keptAs.filename().string())
              << '\n';
  };
  return options;
}

int listTables(jet::Database& database) {
  int result = 0;
  for (const jet::TableEntry& entry : database.tables()) {
    if (entry.system || entry.hidden) continue;
    std::cout << jet::toUtf8(entry.name) << '\t';
    try {
      std::uint64_t rows = 0;
      jet::TableScan scan = database.table(entry.name).scan();
      for (jet::Row row; scan.next(row);) ++rows;
      std::cout << rows << '\n';
    } catch (const jet::Error& error) {
      std::cout << "unreadable: " << error.what() << '\n';
      result = 1;
    }
  }
  return result;
}

int exportTable(jet::Database& database, const Argument& name) {
  std::cout << jet::exportTable(database.table(name.u16string()));
  return 0;
}

int answer(jet::Database& database, const Argument& query) {
  jet::sql::Session session(database);
  const jet::sql::ResultSet result = session.query(query.u16string());
  std::string line;
  for (const auto& column : result.columns) {
    if (!line.empty()) line += '\t';
    line += jet::toUtf8(column.name);
  }
  std::cout << line << '\n';
  for (std::size_t row = 0; row < result.rowCount(); ++row) {
    line.clear();
    for (std::size_t column = 0; column < result.columns.size(); ++column) {
      if (column != 0) line += '\t';
      jet::appendCanonical(result.cell(row, column), line);
    }
    std::cout << line << '\n';
  }
  return 0;
}

int checkFile(jet::Database& database) {
  const jet::CheckReport report = jet::check(database);
  for (const std::string& error : report.errors) std::cout << "error: " << error << '\n';
  for (const std::string& remark : report.remarks) std::cout << "remark: " << remark << '\n';
  std::cout << report.tables << " tables, " << report.rows << " rows, " << report.indexEntries
            << " index entries, " << report.keysCompared << " keys computed and compared, "
            << report.errors.size() << " errors\n";
  return report.errors.empty() ? 0 : 1;
}

int run(const std::vector<Argument>& arguments) {
  const Argument command = arguments.empty() ? Argument() : arguments[0];
  const bool takesMore = command == "export" || command == "sql";
  const bool known = takesMore || command == "tables" || command == "check";
  if (!known || arguments.size() != (takesMore ? 3u : 2u)) {
    std::cerr << usage;
    return 2;
  }
  jet::Database database(jet::systemFiles(), arguments[1], lookOnly());
  if (command == "tables") return listTables(database);
  if (command == "export") return exportTable(database, arguments[2]);
  if (command == "sql") return answer(database, arguments[2]);
  return checkFile(database);
}

// The first argument is the program's own name.
template <typename Char>
int runReporting(int count, Char** arguments) {
  try {
    return run({arguments + 1, arguments + count});
  } catch (const std::exception& error) {
    std::cerr << "jet: " << error.what() << '\n';
    return 1;
  }
}

}  // namespace

// On Windows only the wide arguments hold every character, and lines would end in other bytes than elsewhere.
#ifdef _WIN32
int wmain(int argc, wchar_t** argv) {
  ::_setmode(::_fileno(stdout), _O_BINARY);
  return runReporting(argc, argv);
}
#else
int main(int argc, char** argv) { return runReporting(argc, argv); }
#endif
