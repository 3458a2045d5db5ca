#include "steps/umgebung.h"

#include <utility>

namespace pelvanto {

Umgebung::Umgebung(Aussenwelt aussen, Prozesswerte prozesswerte)
    : welt(aussen),
      werte(std::move(prozesswerte)),
      protokoll(welt.dateisystem, welt.uhr, werte.ProgrammOrdner),
      dateien(welt.dateisystem, protokoll, welt.meldungen, welt.oberflaeche, welt.uhr, werte.ProgrammOrdner),
      ini(welt.dateisystem, protokoll, werte.INIDatei),
      typen(welt.gebietsschema, protokoll, welt.meldungen, ini),
      druck(welt.drucker, welt.uhr, werte),
      jetDateien(welt.jetDateien),
      datenbank(jetDateien, dateien, protokoll, welt.meldungen, welt.oberflaeche, welt.uhr),
      zahlungsverkehr(werte, dateien, protokoll, welt.meldungen, welt.uhr, typen),
      adressen(werte, datenbank, protokoll, welt.meldungen, welt.gebietsschema, ini, typen),
      serienbriefe(werte, datenbank, adressen, protokoll, welt.meldungen, welt.oberflaeche),
      listendruck(druck, welt.meldungen, protokoll),
      kontrollliste(druck, welt.meldungen, protokoll, typen),
      ausfuehren(welt.anwendungen, dateien, protokoll, welt.meldungen, welt.uhr),
      csv(welt.anwendungen, dateien, ausfuehren, protokoll, welt.meldungen, welt.oberflaeche, typen) {}

}  // namespace pelvanto
