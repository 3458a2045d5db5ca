#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "common/testprogramm.h"
#include "database/datenbank_routinen.h"
#include "jet/check.h"

namespace pelvanto::test {

inline const QString kDatenbank = QStringLiteral("/prog/Verbindo.mdb");
inline const QString kBAK = QStringLiteral("/prog/Verbindo.BAK");

// The database routines over files in memory.
struct Datenbankwelt {
  // The whole file, as it stands now, has no fault.
  void pruefen(const QString& pfad) {
    jet::Database datenbank(jetDateien, alsDateipfad(pfad));
    const jet::CheckReport bericht = jet::check(datenbank);
    for (const std::string& satz : bericht.errors) ADD_FAILURE() << satz;
    for (const std::string& satz : bericht.remarks) ADD_FAILURE() << satz;
  }

  Testprogramm programm;
  Protokoll protokoll{programm.dateien, programm.uhr, programm.werte.ProgrammOrdner};
  DateienFinden dateien{programm.dateien,     protokoll,    programm.meldungen,
                        programm.oberflaeche, programm.uhr, programm.werte.ProgrammOrdner};
  jet::FilePool jetDateien{programm.jet};
  DatenbankRoutinen routinen{jetDateien,           dateien,     protokoll, programm.meldungen,
                             programm.oberflaeche, programm.uhr};
};

}  // namespace pelvanto::test
