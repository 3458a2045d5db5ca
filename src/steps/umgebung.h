#pragma once

#include "database/datenbank_routinen.h"
#include "lists/adressen.h"
#include "lists/liste_als_csv.h"
#include "lists/liste_drucken.h"
#include "lists/serienbriefe.h"
#include "payment/daten_typen.h"
#include "payment/kontrollliste.h"
#include "payment/zahlungsverkehr.h"
#include "seams/anwendungen.h"
#include "seams/drucker.h"
#include "seams/gebietsschema.h"
#include "seams/meldungen.h"
#include "seams/oberflaeche.h"
#include "seams/uhr.h"
#include "support/datei_ausfuehren.h"
#include "support/dateien_finden.h"
#include "support/funktionen_drucker.h"
#include "support/funktionen_fuer_ini.h"
#include "support/protokoll.h"
#include "support/prozesswerte.h"

namespace pelvanto {

// The world outside, as `main` (or a test) hands it in.
struct Aussenwelt {
  Uhr& uhr;
  Meldungen& meldungen;
  Oberflaeche& oberflaeche;
  const Gebietsschema& gebietsschema;
  Dateisystem& dateisystem;
  jet::FileSystem& jetDateien;
  Drucker& drucker;
  Anwendungen& anwendungen;
};

// The services of the program, made once from the outside world and the process's values.
struct Umgebung {
  Umgebung(Aussenwelt aussen, Prozesswerte prozesswerte);

  Aussenwelt welt;
  const Prozesswerte werte;
  Protokoll protokoll;
  DateienFinden dateien;
  FunktionenFürINI ini;
  DatenTypen typen;
  FunktionenDrucker druck;
  jet::FilePool jetDateien;  // outlives all connections
  DatenbankRoutinen datenbank;
  Zahlungsverkehr zahlungsverkehr;
  Adressen adressen;
  Serienbriefe serienbriefe;
  Listendruck listendruck;
  Kontrollliste kontrollliste;
  DateiAusfuehren ausfuehren;
  CSVAusgabe csv;
};

}  // namespace pelvanto
