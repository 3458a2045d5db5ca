#pragma once

#include "shell/seiten_fenster.h"

namespace pelvanto {

// What differs between the two pages for required groups: the names of the controls end in "3" or "3b".
struct Seite3Modell {
  QString endung;                // "3" or "3b"
  QString schritt;               // "3a" or "3b"
  QString ergebnisBeschriftung;  // names of the captions beside the counters
  QString ausgeschiedenBeschriftung;
  Textfeld& gruppe;
  Knopf &ergebnisZeigen, &drucken, &serienbriefe, &weiter, &serienbriefeAusgeschieden;
  Liste &liste, &ausgeschieden;
  Beschriftung &ergebnisAnzahl, &ergebnisGeloescht, &ergebnisGeloeschtLabel;
  Beschriftung &ausgeschiedenAnzahl, &ausgeschiedenGeloescht, &ausgeschiedenGeloeschtLabel;
  void (*handlung)(Umgebung&, Seiten&);
  AusgabenDerSeite ausgaben;
  QString csvFrage;  // empty: no CSV
};

Seite3Modell modellFuer(Seite3& seite);
Seite3Modell modellFuer(Seite3b& seite);

// Pages 3a and 3b.
class Seite3Fenster : public SeitenFenster {
  Q_OBJECT
 public:
  // What `modell` refers to must outlive the page.
  Seite3Fenster(const Seite3Modell& modell, Ablauf& ablauf, QWidget* eltern);
};

}  // namespace pelvanto
