#pragma once

#include <QString>

#include <filesystem>
#include <functional>
#include <memory>
#include <utility>

#include "database/datenbankfehler.h"
#include "database/feldwert.h"
#include "jet/database.h"
#include "jet/sql/session.h"
#include "jet/transaction.h"

namespace pelvanto {

// The finished answer to a query, walked through from its first row. All rows are in memory.
class Abfrage {
 public:
  Abfrage() = default;
  explicit Abfrage(jet::sql::ResultSet ergebnis) : ergebnis_(std::move(ergebnis)) {}

  int anzahl() const { return static_cast<int>(ergebnis_.rowCount()); }
  bool amEnde() const { return zeile_ >= anzahl(); }
  void weiter() { ++zeile_; }
  // The field of the current row; the name in any letter case. Throws Datenbankfehler if there is no such
  // field or no current row.
  Feldwert feld(QStringView name) const;

 private:
  jet::sql::ResultSet ergebnis_;
  int zeile_ = 0;
};

// Who wants to hear of what opening a file finds.
struct Oeffnungsmeldungen {
  std::function<void(const QString&)> warnung;  // one line for each oddity of the file that does no harm
  jet::RecoverySink wiederhergestellt;          // a save that was broken off has left its traces
};

// An open connection to the contact database. No connection outlives one press of a button. All connections
// of the program share the files of one pool, which must outlive them.
class Verbindung {
 public:
  // Throws Datenbankfehler.
  Verbindung(jet::FilePool& dateien, const QString& pfad, bool schreibgeschuetzt,
             Oeffnungsmeldungen meldungen = {});

  // Runs a query; throws Datenbankfehler.
  Abfrage abfragen(const QString& sql);
  // The same as the engine answers it.
  jet::sql::ResultSet ergebnis(const QString& sql);
  // Takes the file for this program alone, runs `arbeit` and gives the file back. What `arbeit` has changed
  // is durable if it answers true, else undone. Where the file is taken, `warten` is called before each of up
  // to five further attempts. Throws Datenbankfehler; then nothing was changed.
  void schreiben(const std::function<void()>& warten,
                 const std::function<bool(jet::Transaction&, jet::Database&)>& arbeit);
  // Reads; throws Datenbankfehler.
  void lesen(const std::function<void(jet::Database&)>& arbeit);
  const QString& pfad() const { return pfad_; }
  bool schreibgeschuetzt() const { return schreibgeschuetzt_; }
  // The last query that was run, for the report of a failure.
  const QString& letzteAbfrage() const { return letzteAbfrage_; }
  // Is told of every save of another program that was found broken off, and made good, after the opening;
  // never while the file is held.
  void beiUnterbrechung(jet::RecoverySink melden) { unterbrochen_ = std::move(melden); }
  // What tells whether another program wrote meanwhile; throws Datenbankfehler.
  jet::ChangeStamp stand() const;
  // The same, taken before the first page was read.
  const jet::ChangeStamp& anfangsstand() const { return anfangsstand_; }

 private:
  void schreibversuch(const std::function<bool(jet::Transaction&, jet::Database&)>& arbeit);
  Datenbankfehler besetzt() const;
  void unterbrechungenMelden();

  jet::FilePool& dateien_;
  QString pfad_;
  QString letzteAbfrage_;
  bool schreibgeschuetzt_;
  jet::ChangeStamp anfangsstand_;
  std::unique_ptr<jet::Database> datenbank_;
  std::unique_ptr<jet::sql::Session> sitzung_;
  jet::RecoverySink unterbrochen_;
};

// The change stamp of a file as it is now. Throws Datenbankfehler.
jet::ChangeStamp dateistand(jet::FilePool& dateien, const QString& pfad,
                            const jet::RecoverySink& wiederhergestellt = {});
// Opens the file and reads every value of every row of every table. Throws Datenbankfehler.
void vollstaendigLesen(jet::FilePool& dateien, const QString& pfad);

std::filesystem::path alsDateipfad(const QString& pfad);

}  // namespace pelvanto
