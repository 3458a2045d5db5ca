#pragma once

#include <QString>

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
  bool amEnde() const;
  void weiter();
  // The field of the current row as it was read or set; the name in any letter case. Throws Datenbankfehler
  // if there is no such field or no current row.
  Feldwert feld(QStringView name) const;

  // Begins a new record; fields that are not set get their column's default.
  void hinzufuegen();
  // Takes effect with `speichern`. Throws Datenbankfehler if there is no such field or no current row.
  void setzen(QStringView name, const Feldwert& wert);
  // Throws Datenbankfehler; then nothing was saved.
  void speichern();
};

}  // namespace pelvanto
