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
// The same where the engine was to change the file: it says that nothing was saved.
Datenbankfehler alsSchreibfehler(const jet::Error& fehler, const QString& pfad);
// The file cannot be changed: a program that shares it through Access's engine has it open.
Datenbankfehler inVerbindoGeoeffnet(const QString& pfad);
// The file cannot be changed through a connection that was opened for reading only.
Datenbankfehler nurLesendGeoeffnet(const QString& pfad);
// A record set has no current row; or no field of this name.
Datenbankfehler keinDatensatz();
Datenbankfehler keinFeld(QStringView name);
// The memory did not suffice for a query or a page.
Datenbankfehler speichermangel();

// Whether the description says that a file may be replaced by a backup copy: its format is not recognisable
// or its structure is damaged.
bool istBeschaedigung(const Datenbankfehler& fehler);

}  // namespace pelvanto
