#pragma once

#include <filesystem>

#include "common/verbindo_datenbank.h"

namespace pelvanto::test {

// Reads the description of a database. Lines that start with "#" are remarks; sections:
//   [Optionen]   any of: ohne Nebenindexe, gelöschte Zeilen, verschobene Zeilen
//   [Gruppen]    ID, Bezeichnung
//   [Personen]   a line with column names, then the rows: ID, Namen, Adresse, Telefon, UstPauschaliert (1 or
//   0),
//                UIDNummer, IBAN, BIC; columns left out are Null
//   [Mitglieder] GruppenID, then the persons separated by blanks: 12=5000 (with a quantity) or 12 (Null)
// Fields are separated by tabs, escapes as in felderLesen. Malformed: std::runtime_error.
VerbindoDatenbank datenbankLesen(const std::filesystem::path& beschreibung);

}  // namespace pelvanto::test
