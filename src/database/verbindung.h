#pragma once

#include <QString>

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
  // The field of the current row; the name in any letter case. Throws Datenbankfehler if there is none.
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
  // What tells whether another program wrote meanwhile; throws Datenbankfehler.
  jet::ChangeStamp stand() const;

 private:
  QString pfad_;
  bool schreibgeschuetzt_;
  std::unique_ptr<jet::Database> datenbank_;
  std::unique_ptr<jet::sql::Session> sitzung_;
};

}  // namespace pelvanto
