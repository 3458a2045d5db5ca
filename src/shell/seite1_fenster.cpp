#include "shell/seite1_fenster.h"

#include <QLabel>

#include "shell/bildknopf.h"
#include "shell/listen_ansicht.h"
#include "shell/listen_texte.h"
#include "shell/textfelder.h"

namespace pelvanto {

Seite1Fenster::Seite1Fenster(Seite1& seite, Ablauf& ablauf, QWidget* eltern)
    : SeitenFenster("Frame1", "1. Schritt: Feststellen der Mitglieder mit Unterlieferung", ablauf, eltern) {
  auto* gruppe = new Gruppenfeld(this);
  textfeld(gruppe, "txtUnterlieferungGruppe",
           "Die Personen sind in folgender Gruppe:", {4275, 300, 2910, 345}, 40,
           seite.txtUnterlieferungGruppe);
  beschriftung("Label1", "Die Personen sind in folgender &Gruppe:", {120, 300, 4095, 345}, gruppe);

  ausfuehrenKnopf("cmdErgebnisZeigen1", {7350, 300, 555, 615}, seite.cmdErgebnisZeigen1,
                  cmdErgebnisZeigen1_Click);
  druckenKnopf("cmdDrucken1", {7965, 300, 615, 615}, seite.cmdDrucken1, ausgaben1, "CSV-Datei erstellen");
  weiterKnopf("cmdWeiter1", {8640, 300, 555, 615}, seite.cmdWeiter1);

  ListenAnsicht* ergebnis =
      liste("lvwListe1", "Ergebnis Schritt 1", listenTooltip(), {120, 1200, 9075, 4935}, seite.lvwListe1);
  loeschbar(ergebnis, seite.lvwListe1,
            {seite.lblErgebnis1Geloescht, seite.lblErgebnis1GeloeschtLabel, seite.lblErgebnis1});
  beschriftung("Label2", "Ergebnis - Anzahl der Personen in der &Liste:", {120, 780, 4470, 375}, ergebnis);
  zaehler("lblErgebnis1", {4650, 780, 735, 375}, seite.lblErgebnis1);
  zaehler("lblErgebnis1Geloescht", {5505, 780, 735, 375}, seite.lblErgebnis1Geloescht, Zaehler::Grund::Rosa);
  hinweis("lblErgebnis1GeloeschtLabel", {6300, 780, 960, 375}, seite.lblErgebnis1GeloeschtLabel);
  ersterFokusSetzen(gruppe);
}

}  // namespace pelvanto
