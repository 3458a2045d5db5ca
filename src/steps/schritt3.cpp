// Steps 3a and 3b: who is also in one further group. Both are the same but for their controls.
#include "steps/gruppen.h"
#include "steps/schritte.h"
#include "steps/spalten.h"
#include "steps/texte.h"
#include "steps/ungestoert_lesen.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

// What the two steps differ in.
struct Filterseite {
  QString prozedur;
  const Liste& quelle;
  const Textfeld& gruppe;
  Liste& behalten;
  Liste& ausgeschieden;
  Beschriftung& ergebnis;
  Beschriftung& ausgeschiedenZahl;
  Knopf& drucken;
  Knopf& serienbriefe;
  Knopf& serienbriefeAusgeschieden;
  Knopf& weiter;
};

struct Aufteilung {
  std::vector<Zeile> behalten, ausgeschieden;
};

Zeile uebernommen(const Zeile& quelle) { return {zeilenschluessel(quelle.id()), quelle.texte.mid(0, 3)}; }

Aufteilung aufteilungLesen(Umgebung& umgebung, const Filterseite& seite, const QString& gruppe,
                           std::unique_ptr<Verbindung>& verbindung) {
  Aufteilung aufteilung;
  verbindung = umgebung.datenbank.direktOeffnen(umgebung.werte.DatenbankPfad, true);
  const int gruppenID = gruppeSuchen(*verbindung, umgebung.typen, gruppe);
  for (const Zeile& quelle : seite.quelle.zeilen()) {
    const bool dabei = istInGruppe(*verbindung, quelle.id(), gruppenID);
    (dabei ? aufteilung.behalten : aufteilung.ausgeschieden).push_back(uebernommen(quelle));
  }
  return aufteilung;
}

void zaehlerZeigen3(const Filterseite& seite) {
  seite.ergebnis.text = QString::number(seite.behalten.anzahl());
  seite.ausgeschiedenZahl.text = QString::number(seite.ausgeschieden.anzahl());
}

void filtern(Umgebung& umgebung, const Filterseite& seite) {
  for (Liste* liste : {&seite.behalten, &seite.ausgeschieden}) {
    liste->spaltenSetzen(personenspalten(liste->breite, 0.3, 0.35, 0.35));
    liste->leeren();
  }

  const QString gruppe = ohneAeussereBlanks(seite.gruppe.text);
  Aufteilung aufteilung;
  if (gruppe.isEmpty()) {
    for (const Zeile& quelle : seite.quelle.zeilen()) aufteilung.behalten.push_back(uebernommen(quelle));
  } else {
    const bool gelesen =
        ungestoertLesen(umgebung, seite.prozedur, [&](std::unique_ptr<Verbindung>& verbindung) {
          aufteilung = aufteilungLesen(umgebung, seite, gruppe, verbindung);
        });
    if (!gelesen) {
      zaehlerZeigen3(seite);
      seite.weiter.ein = false;
      return;
    }
  }

  seite.behalten.hinzufuegen(std::move(aufteilung.behalten));
  seite.ausgeschieden.hinzufuegen(std::move(aufteilung.ausgeschieden));
  zaehlerZeigen3(seite);
  const bool jemand = seite.behalten.anzahl() > 0 || seite.ausgeschieden.anzahl() > 0;
  seite.drucken.ein = seite.serienbriefe.ein = seite.serienbriefeAusgeschieden.ein = jemand;
  seite.weiter.ein = true;
}

}  // namespace

void ListeFuellen3(Umgebung& umgebung, Seiten& seiten) {
  Seite3& seite = seiten.seite3;
  filtern(umgebung,
          {u"ListeFuellen3"_s, seiten.seite2.lvwListe2, seite.txtGruppeNotwendig, seite.lvwListe3,
           seite.lvwListeAusgeschieden3, seite.lblErgebnis3, seite.lblAusgeschieden3, seite.cmdDrucken3,
           seite.cmdSerienbriefe3, seite.cmdSerienbriefe3Ausgeschieden, seite.cmdWeiter3});
}

void ListeFuellen3b(Umgebung& umgebung, Seiten& seiten) {
  Seite3b& seite = seiten.seite3b;
  filtern(umgebung,
          {u"ListeFuellen3b"_s, seiten.seite3.lvwListe3, seite.txtGruppeNotwendig3b, seite.lvwListe3b,
           seite.lvwListeAusgeschieden3b, seite.lblErgebnis3b, seite.lblAusgeschieden3b, seite.cmdDrucken3b,
           seite.cmdSerienbriefe3b, seite.cmdSerienbriefe3bAusgeschieden, seite.cmdWeiter3b});
}

}  // namespace pelvanto
