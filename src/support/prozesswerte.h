#pragma once

#include <QString>

namespace pelvanto {

// Values of the process, set once at the start and never changed.
struct Prozesswerte {
  QString ProgrammOrdner;      // without a trailing separator
  QString INIDatei;            // full path of verbindo.ini
  QString DatenbankPfad;       // full path of Verbindo.mdb
  QString EigeneFassung = {};  // where Windows would keep a copy of it for this user alone; empty: nowhere
  QString OrganisationsName = QStringLiteral("Tolvana");
  QString ProjektZeile = QStringLiteral("Projekt: Milvarte");
};

}  // namespace pelvanto
