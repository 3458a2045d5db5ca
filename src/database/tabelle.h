#pragma once

#include <QString>

#include <functional>
#include <map>
#include <vector>

#include "database/verbindung.h"

namespace pelvanto {

// The rows of a query on one table, which can be changed and to which rows can be added. Every save is one
// durable transaction: the file is taken for this program alone for the time of the save only. Who finds it
// taken waits up to five times 500 ms. A row that another program has changed or deleted since it was read is
// not overwritten.
class Tabelle {
 public:
  // Reads the rows. `verbindung` must outlive this; `warten` is called between two attempts to take the file.
  // Throws Datenbankfehler, also for a query whose rows cannot be changed (several tables, ORDER BY).
  Tabelle(Verbindung& verbindung, const QString& sql, std::function<void()> warten);

  int anzahl() const { return static_cast<int>(zeilen_.size()); }
  bool amEnde() const { return !neu_ && aktuelle_ >= zeilen_.size(); }
  // To the next row; what was set and not saved is forgotten.
  void weiter();
  // The field of the current row as it was read or set; the name in any letter case. Throws Datenbankfehler
  // if there is no such field or no current row.
  Feldwert feld(QStringView name) const;

  // Begins a new record; fields that are not set get their column's default.
  void hinzufuegen();
  // Takes effect with `speichern`. Throws Datenbankfehler if there is no such field or no current row, or if
  // the value does not fit the field exactly.
  void setzen(QStringView name, const Feldwert& wert);
  // Throws Datenbankfehler; then nothing was saved. A saved new record is the current row from then on.
  void speichern();

 private:
  // A row with the values of all columns of its table, also of those that are no fields of the query.
  struct Zeile {
    jet::RowId id;
    std::vector<jet::Value> werte;
  };

  std::size_t spalte(QStringView name) const;
  Zeile gelesen(const jet::Table& tabelle, jet::RowId id) const;
  Zeile gespeichert(jet::Transaction& vorgang, jet::Database& datenbank) const;

  Verbindung* verbindung_;
  std::function<void()> warten_;
  jet::Text name_;
  std::vector<jet::ColumnDefinition> spalten_;
  std::vector<std::size_t> felder_;  // positions in `spalten_`
  std::vector<Zeile> zeilen_;
  std::size_t aktuelle_ = 0;
  bool neu_ = false;                           // a record that is not saved yet
  std::map<std::size_t, jet::Value> gesetzt_;  // by position in `spalten_`
};

}  // namespace pelvanto
