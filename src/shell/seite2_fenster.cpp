#include "shell/seite2_fenster.h"

#include <QLabel>

#include "shell/bildknopf.h"
#include "shell/listen_ansicht.h"
#include "shell/listen_texte.h"
#include "shell/textfelder.h"

namespace pelvanto {

Seite2Fenster::Seite2Fenster(Seite2& seite, Ablauf& ablauf, QWidget* eltern)
    : SeitenFenster("Frame2",
                    "2. Schritt: Mitglieder die heuer und letztes Jahr nicht bezahlt haben, ausscheiden",
                    ablauf, eltern) {
  auto* einzahlungen = new Eingabefeld(this);
  einzahlungen->setToolTip("z.B. Mitgliedsbeitrag");
  textfeld(einzahlungen, "txtEinzahlungen",
           "Bezeichnung für jährliche Einzahlungen-Gruppen ohne Jahreszahl:", {4275, 330, 2910, 345}, 40,
           seite.txtEinzahlungen);
  beschriftung("Label5",
               "&Bezeichnung für jährliche Einzahlungen-Gruppen ohne Jahreszahl:", {120, 270, 4095, 495},
               einzahlungen)
      ->setWordWrap(true);

  ausfuehrenKnopf("cmdErgebnisZeigen2", {7350, 300, 555, 615}, seite.cmdErgebnisZeigen2,
                  cmdErgebnisZeigen2_Click);
  druckenKnopf("cmdDrucken2", {7965, 300, 615, 615}, seite.cmdDrucken2, ausgaben2, "CSV-Dateien erstellen");
  weiterKnopf("cmdWeiter2", {8640, 300, 555, 615}, seite.cmdWeiter2);

  ListenAnsicht* ergebnis =
      liste("lvwListe2", "Ergebnis Schritt 2", listenTooltip(), {120, 1200, 9075, 2235}, seite.lvwListe2);
  loeschbar(ergebnis, seite.lvwListe2,
            {seite.lblErgebnis2Geloescht, seite.lblErgebnis2GeloeschtLabel, seite.lblErgebnis2});
  beschriftung("Label4", "Ergebnis - Anzahl der Personen in der &Liste:", {120, 780, 4470, 375}, ergebnis);
  zaehler("lblErgebnis2", {4650, 780, 735, 375}, seite.lblErgebnis2);
  zaehler("lblErgebnis2Geloescht", {5505, 780, 735, 375}, seite.lblErgebnis2Geloescht, Zaehler::Grund::Rosa);
  hinweis("lblErgebnis2GeloeschtLabel", {6300, 780, 960, 375}, seite.lblErgebnis2GeloeschtLabel);

  serienbriefeAusgeschiedenKnopf("cmdSerienbriefe2Ausgeschieden", 3480, seite.cmdSerienbriefe2Ausgeschieden,
                                 seite.lvwListeAusgeschieden2,
                                 "Personen in der unteren Liste in die Serienbrief-Adressendatei kopieren");
  ListenAnsicht* ausgeschieden =
      liste("lvwListeAusgeschieden2", "Ausgeschiedene Personen Schritt 2", listenTooltip(),
            {120, 3900, 9075, 2235}, seite.lvwListeAusgeschieden2);
  loeschbar(
      ausgeschieden, seite.lvwListeAusgeschieden2,
      {seite.lblAusgeschieden2Geloescht, seite.lblAusgeschieden2GeloeschtLabel, seite.lblAusgeschieden2});
  beschriftung("Label6", "Ergebnis - Anzahl der ausgeschiedenen &Personen:", {120, 3480, 4950, 375},
               ausgeschieden);
  zaehler("lblAusgeschieden2", {5130, 3480, 735, 375}, seite.lblAusgeschieden2);
  zaehler("lblAusgeschieden2Geloescht", {5985, 3480, 735, 375}, seite.lblAusgeschieden2Geloescht,
          Zaehler::Grund::Rosa);
  hinweis("lblAusgeschieden2GeloeschtLabel", {6780, 3480, 960, 375}, seite.lblAusgeschieden2GeloeschtLabel);
  ersterFokusSetzen(einzahlungen);
}

}  // namespace pelvanto
