#pragma once

#include "common/dateiwelt.h"
#include "payment/daten_typen.h"
#include "payment/zahlungsverkehr.h"
#include "support/funktionen_fuer_ini.h"

namespace pelvanto::test {

// The payment layer over a program folder in memory.
struct Zahlungswelt : Dateiwelt {
  Prozesswerte werte{"/prog", "/prog/verbindo.ini", "/prog/Verbindo.mdb"};
  FakeGebietsschema schema;
  FunktionenFürINI ini{stoerer, protokoll, werte.INIDatei};
  DatenTypen typen{schema, protokoll, meldungen, ini};
  Zahlungsverkehr zahlungsverkehr{werte, dateien, protokoll, meldungen, uhr, typen};
};

inline Ueberweisung ueberweisung(qint64 cent, const QString& name = "Maier Hans") {
  return {"AT611904300234573201", "BKAUATWW",        Waehrung::ausCent(cent), "17", name,
          "4320 Perg, Hof 1",     "Milchbonus 2026", "MitgliedID17"};
}

}  // namespace pelvanto::test
