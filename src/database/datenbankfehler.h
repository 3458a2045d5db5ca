#pragma once

#include <QString>

#include "jet/error.h"

namespace pelvanto {

// An error of the database layer: the number and the German description that log and message boxes show.
// Only a file whose format is not recognisable or whose structure is damaged has a description that begins
// with "Nicht erkennbares Datenbankformat".
struct Datenbankfehler {
  int nummer = 0;
  QString beschreibung;
};

// Every engine error has its own number and text.
Datenbankfehler alsDatenbankfehler(const jet::Error& fehler, const QString& pfad);
// The memory did not suffice for a query or a page.
Datenbankfehler speichermangel();

// Whether the description says that a file may be replaced by a backup copy: its format is not recognisable
// or its structure is damaged.
bool istBeschaedigung(const Datenbankfehler& fehler);

}  // namespace pelvanto
