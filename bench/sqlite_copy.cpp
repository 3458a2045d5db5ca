#include "bench/sqlite_copy.h"

#include <sqlite3.h>
#include <stdexcept>

#include "jet/text_codec.h"

namespace bench {
namespace {

class Statement {
 public:
  Statement(sqlite3* database, const char* text, std::size_t length) {
    if (sqlite3_prepare_v2(database, text, static_cast<int>(length), &statement_, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(database));
    }
  }
  explicit Statement(sqlite3* database, const std::string& text)
      : Statement(database, text.c_str(), text.size() + 1) {}
  ~Statement() { sqlite3_finalize(statement_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  bool step() {
    const int result = sqlite3_step(statement_);
    if (result != SQLITE_ROW && result != SQLITE_DONE) throw std::runtime_error("SQLite failed");
    return result == SQLITE_ROW;
  }
  void put(int place, std::int64_t number) { sqlite3_bind_int64(statement_, place, number); }
  void put(int place, const std::u16string& text) {
    if (text.empty()) {
      sqlite3_bind_null(statement_, place);
      return;
    }
    const std::string utf8 = jet::toUtf8(text);
    sqlite3_bind_text(statement_, place, utf8.data(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
  }
  void run() {
    step();
    sqlite3_reset(statement_);
  }
  std::size_t readColumns() {
    std::size_t bytes = 0;
    const int count = sqlite3_column_count(statement_);
    for (int column = 0; column < count; ++column) {
      if (sqlite3_column_type(statement_, column) == SQLITE_TEXT) {
        bytes += sqlite3_column_text(statement_, column)[0];
      } else {
        bytes += static_cast<std::size_t>(sqlite3_column_int64(statement_, column));
      }
    }
    return bytes;
  }

 private:
  sqlite3_stmt* statement_ = nullptr;
};

}  // namespace

void SqliteCopy::Close::operator()(sqlite3* database) const { sqlite3_close(database); }

SqliteCopy::SqliteCopy(const Association& association, Indexes indexes, const std::filesystem::path& path)
    : path_(path) {
  std::filesystem::remove(path);
  reopen();
  execute("PRAGMA synchronous = OFF");
  execute(
      "CREATE TABLE Namensliste (ID INTEGER PRIMARY KEY, Namen TEXT, Adresse TEXT, Telefon TEXT, "
      "UstPauschaliert INTEGER, UIDNummer TEXT, IBAN TEXT, BIC TEXT)");
  execute("CREATE TABLE PersonenGruppenBezeichnungen (ID INTEGER PRIMARY KEY, Bezeichnung TEXT)");
  execute(
      "CREATE TABLE PersonenGruppen (ID INTEGER PRIMARY KEY, PersonenID INTEGER, GruppenID INTEGER, "
      "GrosseGanzeZahl INTEGER)");
  execute("BEGIN");
  fill(association);
  execute("COMMIT");
  execute("CREATE INDEX Namen ON Namensliste (Namen)");
  execute("CREATE INDEX Bezeichnung ON PersonenGruppenBezeichnungen (Bezeichnung)");
  if (indexes == Indexes::AsVerbindo) execute("CREATE INDEX pg ON PersonenGruppen (PersonenID, GruppenID)");
  if (indexes == Indexes::AsVerbindo || indexes == Indexes::PersonOnly) {
    execute("CREATE INDEX p ON PersonenGruppen (PersonenID)");
  }
  if (indexes == Indexes::AsVerbindo || indexes == Indexes::GroupOnly) {
    execute("CREATE INDEX g ON PersonenGruppen (GruppenID)");
  }
}

void SqliteCopy::reopen() {
  sqlite3* database = nullptr;
  const int opened = sqlite3_open(path_.c_str(), &database);
  database_.reset(database);
  if (opened != SQLITE_OK) throw std::runtime_error("SQLite cannot open its file");
  execute("PRAGMA cache_size = -32768");
}

void SqliteCopy::writeDurably() {
  execute("PRAGMA journal_mode = DELETE");
  execute("PRAGMA synchronous = FULL");
}

void SqliteCopy::insertEach(std::span<const Person> persons) {
  Statement person(database_.get(), "INSERT INTO Namensliste VALUES (?, ?, ?, ?, ?, ?, ?, ?)");
  for (const Person& row : persons) {
    person.put(1, row.id);
    person.put(2, row.name);
    person.put(3, row.address);
    person.put(4, row.telephone);
    person.put(5, row.flatRate ? 1 : 0);
    person.put(6, row.uid);
    person.put(7, row.iban);
    person.put(8, row.bic);
    person.run();
  }
}

void SqliteCopy::insertAll(std::span<const Person> persons) {
  execute("BEGIN");
  insertEach(persons);
  execute("COMMIT");
}

void SqliteCopy::fill(const Association& association) {
  insertEach(association.persons);
  Statement group(database_.get(), "INSERT INTO PersonenGruppenBezeichnungen VALUES (?, ?)");
  for (const Group& row : association.groups) {
    group.put(1, row.id);
    group.put(2, row.name);
    group.run();
  }
  Statement membership(database_.get(), "INSERT INTO PersonenGruppen VALUES (?, ?, ?, ?)");
  for (const Membership& row : association.memberships) {
    membership.put(1, row.id);
    membership.put(2, row.person);
    membership.put(3, row.group);
    if (row.number) {
      membership.put(4, *row.number);
    } else {
      membership.put(4, std::u16string());
    }
    membership.run();
  }
}

std::size_t SqliteCopy::query(const std::string& text) {
  Statement statement(database_.get(), text);
  std::size_t rows = 0;
  for (; statement.step(); ++rows) bytesSeen_ += statement.readColumns();
  return rows;
}

void SqliteCopy::execute(const char* text) { Statement(database_.get(), text).step(); }

}  // namespace bench
