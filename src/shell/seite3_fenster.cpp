#include "shell/seite3_fenster.h"

#include <QLabel>

#include "shell/bildknopf.h"
#include "shell/listen_ansicht.h"
#include "shell/listen_texte.h"
#include "shell/textfelder.h"

namespace pelvanto {

Seite3Modell modellFuer(Seite3& seite) {
  return {"3",
          "3a",
          "Label9",
          "Label7",
          seite.txtGruppeNotwendig,
          seite.cmdErgebnisZeigen3,
          seite.cmdDrucken3,
          seite.cmdSerienbriefe3,
          seite.cmdWeiter3,
          seite.cmdSerienbriefe3Ausgeschieden,
          seite.lvwListe3,
          seite.lvwListeAusgeschieden3,
          seite.lblErgebnis3,
          seite.lblErgebnis3Geloescht,
          seite.lblErgebnis3GeloeschtLabel,
          seite.lblAusgeschieden3,
          seite.lblAusgeschieden3Geloescht,
          seite.lblAusgeschieden3GeloeschtLabel,
          cmdErgebnisZeigen3_Click,
          ausgaben3,
          "CSV-Dateien erstellen"};
}

Seite3Modell modellFuer(Seite3b& seite) {
  return {"3b",
          "3b",
          "Label41",
          "Label42",
          seite.txtGruppeNotwendig3b,
          seite.cmdErgebnisZeigen3b,
          seite.cmdDrucken3b,
          seite.cmdSerienbriefe3b,
          seite.cmdWeiter3b,
          seite.cmdSerienbriefe3bAusgeschieden,
          seite.lvwListe3b,
          seite.lvwListeAusgeschieden3b,
          seite.lblErgebnis3b,
          seite.lblErgebnis3bGeloescht,
          seite.lblErgebnis3bGeloeschtLabel,
          seite.lblAusgeschieden3b,
          seite.lblAusgeschieden3bGeloescht,
          seite.lblAusgeschieden3bGeloeschtLabel,
          cmdErgebnisZeigen3b_Click,
          ausgaben3b,
          {}};
}

Seite3Fenster::Seite3Fenster(const Seite3Modell& modell, Ablauf& ablauf, QWidget* eltern)
    : SeitenFenster(
          "Frame" + modell.endung,
          "Schritt " + modell.schritt + ": Personen ausscheiden, die nicht in folgender &Gruppe sind:",
          ablauf, eltern) {
  const QString& endung = modell.endung;
  auto* gruppe = new Eingabefeld(this);
  gruppe->setToolTip("Leer lassen, wenn dieser Schritt übergangen werden soll");
  // The page's own caption is the label of this field.
  const QString zugaenglich = QString(title()).remove(u'&');
  textfeld(gruppe, endung == "3" ? "txtGruppeNotwendig" : "txtGruppeNotwendig3b", zugaenglich,
           {120, 300, 5100, 345}, 40, modell.gruppe);

  ausfuehrenKnopf("cmdErgebnisZeigen" + endung, {6675, 300, 555, 615}, modell.ergebnisZeigen,
                  modell.handlung);
  druckenKnopf("cmdDrucken" + endung, {7290, 300, 615, 615}, modell.drucken, modell.ausgaben,
               modell.csvFrage);
  serienbriefeKnopf("cmdSerienbriefe" + endung, {7965, 300, 615, 615}, modell.serienbriefe, modell.liste);
  weiterKnopf("cmdWeiter" + endung, {8640, 300, 555, 615}, modell.weiter);

  ListenAnsicht* ergebnis = liste("lvwListe" + endung, "Ergebnis Schritt " + modell.schritt, listenTooltip(),
                                  {120, 1080, 9075, 2355}, modell.liste);
  loeschbar(ergebnis, modell.liste,
            {modell.ergebnisGeloescht, modell.ergebnisGeloeschtLabel, modell.ergebnisAnzahl});
  beschriftung(modell.ergebnisBeschriftung, "Ergebnis - Personen in der &Liste:", {120, 675, 3240, 375},
               ergebnis);
  zaehler("lblErgebnis" + endung, {3420, 675, 735, 375}, modell.ergebnisAnzahl);
  zaehler("lblErgebnis" + endung + "Geloescht", {4275, 675, 735, 375}, modell.ergebnisGeloescht,
          Zaehler::Grund::Rosa);
  hinweis("lblErgebnis" + endung + "GeloeschtLabel", {5070, 675, 960, 375}, modell.ergebnisGeloeschtLabel);

  serienbriefeAusgeschiedenKnopf("cmdSerienbriefe" + endung + "Ausgeschieden", 3540,
                                 modell.serienbriefeAusgeschieden, modell.ausgeschieden);
  ListenAnsicht* ausgeschieden =
      liste("lvwListeAusgeschieden" + endung, "Ausgeschiedene Personen Schritt " + modell.schritt,
            listenTooltip(), {120, 4020, 9075, 2115}, modell.ausgeschieden);
  loeschbar(ausgeschieden, modell.ausgeschieden,
            {modell.ausgeschiedenGeloescht, modell.ausgeschiedenGeloeschtLabel, modell.ausgeschiedenAnzahl});
  beschriftung(modell.ausgeschiedenBeschriftung,
               "Ergebnis - Anzahl der ausgeschiedenen &Personen:", {120, 3540, 4950, 375}, ausgeschieden);
  zaehler("lblAusgeschieden" + endung, {5130, 3540, 735, 375}, modell.ausgeschiedenAnzahl);
  zaehler("lblAusgeschieden" + endung + "Geloescht", {5985, 3540, 735, 375}, modell.ausgeschiedenGeloescht,
          Zaehler::Grund::Rosa);
  hinweis("lblAusgeschieden" + endung + "GeloeschtLabel", {6780, 3540, 960, 375},
          modell.ausgeschiedenGeloeschtLabel);
  ersterFokusSetzen(gruppe);
}

}  // namespace pelvanto
