#pragma once

#include <QString>

#include "database/datenbank_routinen.h"
#include "payment/daten_typen.h"
#include "seams/gebietsschema.h"
#include "seams/meldungen.h"
#include "support/funktionen_fuer_ini.h"
#include "support/protokoll.h"

namespace pelvanto {

// A letter address. Texts are trimmed and cut; the largest number of characters stands behind each.
struct Anschrift {
  qint32 IDNummer = 0;
  QString Anrede;            // 30: "Herrn", "Frau", "Familie", "Firma" or empty
  QString Vorname;           // 40
  QString GanzeAnrede;       // 70
  QString GanzerName;        // 130
  QString NamenZusatzZeile;  // 60
  QString Adresse;           // 50: street and house number
  QString PLZOrt;            // 40
  QString Sehr_geehr;        // 100: the salutation of the letter
  QString Titel;             // 30
  QString Fax;               // 60
  QString Famname;           // 60
  QString TitelOben;         // 40
  QString EMail;             // 120
  QString Telefon;           // 100
  bool Du = false;
  QString PLZ;                      // 7
  QString Ort;                      // 50
  QString Straße;                   // 50: without the house number
  QString InternationaleFaxNummer;  // never filled
};

// What became of an address. `grund` is empty where it was built (also for a person who is not in the contact
// data: then only IDNummer is filled); else it says in German why not, and the address is worth nothing.
struct AnschriftErgebnis {
  Anschrift anschrift;
  QString grund;
};

}  // namespace pelvanto
