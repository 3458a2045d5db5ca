#pragma once

#include "common/testprogramm.h"
#include "lists/liste_drucken.h"
#include "support/funktionen_drucker.h"
#include "support/protokoll.h"

namespace pelvanto::test {

// The printing functions on a given printer, in a program of their own.
struct Druckwelt {
  explicit Druckwelt(Drucker& drucker) : druck(drucker, programm.uhr, programm.werte) {}

  Testprogramm programm;
  Protokoll protokoll{programm.dateien, programm.uhr, programm.werte.ProgrammOrdner};
  FunktionenDrucker druck;
  Listendruck listen{druck, programm.meldungen, protokoll};
};

}  // namespace pelvanto::test
