#pragma once

#include <QString>
#include <QStringList>

#include "database/datenbank_routinen.h"
#include "payment/daten_typen.h"
#include "seams/gebietsschema.h"
#include "seams/meldungen.h"
#include "support/funktionen_fuer_ini.h"
#include "support/protokoll.h"
#include "support/prozesswerte.h"

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
  QStringList verworfeneWoerter;  // of the name, that could not be looked up and are missing in the address
};

struct Namensteile;
struct Person;
class Kontaktdaten;

// Builds letter addresses from the contact data. It learns (first names are counted there), asks, and stores
// the answers there; a box stays open as long as the user likes, and nothing is locked meanwhile.
class Adressen {
 public:
  Adressen(const Prozesswerte& werte, DatenbankRoutinen& datenbank, Protokoll& protokoll,
           Meldungen& meldungen, const Gebietsschema& schema, const FunktionenFürINI& ini,
           const DatenTypen& typen);

  // Opens the contact database for itself and closes it again. Only ProgrammEnde leaves it.
  AnschriftErgebnis AnschriftErstellen(qint32 PersonenID);
  // The dialling code of the country whose letters need no country prefix; 0 where none is known.
  int HeimatlandVorwahl() const;

 private:
  void erstellen(Verbindung& verbindung, qint32 id, AnschriftErgebnis& ergebnis);
  Anschrift bauen(Person& person, Kontaktdaten& kontaktdaten);
  Namensteile nameAnalysieren(Person& person, Kontaktdaten& kontaktdaten);
  void merkmalErfragen(Person& person, Kontaktdaten& kontaktdaten);

  const Prozesswerte& werte_;
  DatenbankRoutinen& datenbank_;
  Protokoll& protokoll_;
  Meldungen& meldungen_;
  const Gebietsschema& schema_;
  const FunktionenFürINI& ini_;
  const DatenTypen& typen_;
  // The user does not want to hear the question about families again until the next start.
  bool FamilienFrageUebergehen_ = false;
};

}  // namespace pelvanto
