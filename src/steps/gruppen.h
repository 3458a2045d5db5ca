#pragma once

#include <QString>

#include "database/verbindung.h"
#include "payment/daten_typen.h"

// What the steps ask of the groups and persons of the contact database. Texts go between single quotes as
// they are. Everything here throws Datenbankfehler.
namespace pelvanto {

// The identifier of the first group of this name; 0 if there is none.
int gruppeSuchen(Verbindung& verbindung, const DatenTypen& typen, const QString& bezeichnung);
bool istInGruppe(Verbindung& verbindung, int person, int gruppe);

// The members of a group, persons included: the FROM clause of every query over them.
QString mitgliederVerbund();
// The condition that the group has this name.
QString bezeichnungIst(const QString& feld, const QString& bezeichnung);

}  // namespace pelvanto
