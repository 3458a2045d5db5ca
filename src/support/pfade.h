#pragma once

#include <QString>

#include "seams/dateisystem.h"
#include "support/prozesswerte.h"

namespace pelvanto {

bool istPfadtrenner(QChar zeichen);
// Exists and is not a folder.
bool istDatei(const QString& pfad, const Dateisystem& dateien);
// Folder and name with the separator between them that the folder's path has itself, else the system's own.
QString pfadVerbinden(const QString& ordner, const QString& name);
// Without separators at the end (the root folder keeps its own).
QString ordnerOhneTrenner(const QString& ordner);
// The path of the file of this name in whatever letter case it is there: first as given, then the first
// other spelling in alphabetical order; the path as given when there is none.
QString pfadInJederSchreibweise(const QString& ordner, const QString& name, const Dateisystem& dateien);
// The values that follow from the program's folder.
// Where Windows (file virtualization) puts a file instead that an older program writes into a protected
// folder: below the user's own folder for programs. Empty for a path without a drive, or where there is no
// such folder.
QString umgeleiteterPfad(const QString& pfad, const QString& eigenerOrdner);
Prozesswerte prozesswerteFuer(const QString& ordner, const Dateisystem& dateien);

}  // namespace pelvanto
