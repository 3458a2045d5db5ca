#pragma once

#include <QString>

#include <filesystem>
#include <functional>
#include <memory>

#include "database/datenbankfehler.h"
#include "database/feldwert.h"
#include "jet/database.h"
#include "jet/sql/session.h"

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

// An open connection to the contact database. No connection outlives one press of a button.
class Verbindung {
 public:
  // Throws Datenbankfehler. `warnung` gets one line for each oddity of the file that does no harm.
  Verbindung(jet::FileSystem& dateien, const QString& pfad, bool schreibgeschuetzt,
             std::function<void(const QString&)> warnung = {});

  // Runs a query; throws Datenbankfehler.
  Abfrage abfragen(const QString& sql);
  const QString& pfad() const { return pfad_; }
  bool schreibgeschuetzt() const { return schreibgeschuetzt_; }
  // The last query that was run, for the report of a failure.
  const QString& letzteAbfrage() const { return letzteAbfrage_; }
  // What tells whether another program wrote meanwhile; throws Datenbankfehler.
  jet::ChangeStamp stand() const;
  // The same, taken before the first page was read.
  const jet::ChangeStamp& anfangsstand() const { return anfangsstand_; }

 private:
  QString pfad_;
  QString letzteAbfrage_;
  bool schreibgeschuetzt_;
  jet::ChangeStamp anfangsstand_;
  std::unique_ptr<jet::Database> datenbank_;
  std::unique_ptr<jet::sql::Session> sitzung_;
};

// The change stamp of a file as it is now. Throws Datenbankfehler.
jet::ChangeStamp dateistand(jet::FileSystem& dateien, const QString& pfad);
// Opens the file and reads every value of every row of every table. Throws Datenbankfehler.
void vollstaendigLesen(jet::FileSystem& dateien, const QString& pfad);

std::filesystem::path alsDateipfad(const QString& pfad);

}  // namespace pelvanto
