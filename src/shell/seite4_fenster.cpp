#include "shell/seite4_fenster.h"

#include <QLabel>

#include "shell/bildknopf.h"
#include "shell/listen_ansicht.h"
#include "shell/listen_texte.h"
#include "shell/textfelder.h"

namespace pelvanto {

Seite4Fenster::Seite4Fenster(Seite4& seite, Ablauf& ablauf, QWidget* eltern)
    : SeitenFenster("Frame4", "4. Schritt: Auszahlung berechnen", ablauf, eltern) {
  auto* gesamtbetrag = new Betragsfeld(this);
  gesamtbetrag->setAlignment(Qt::AlignRight);
  textfeld(gesamtbetrag, "txtGesamtbetrag", "Gesamtbetrag (ohne Mwst.:)", {2145, 330, 2115, 345}, 40,
           seite.txtGesamtbetrag);
  connect(gesamtbetrag, &Betragsfeld::verlassen, this, [this] {
    ablauf_.ausfuehren(
        [](Umgebung& umgebung, Seiten& seiten) { txtGesamtbetrag_LostFocus(umgebung, seiten.seite4); });
  });
  beschriftung("Label14", "&Gesamtbetrag (ohne Mwst.:)", {120, 255, 1680, 495}, gesamtbetrag)
      ->setWordWrap(true);

  ausfuehrenKnopf("cmdErgebnisZeigen4", {6675, 300, 555, 615}, seite.cmdErgebnisZeigen4,
                  cmdErgebnisZeigen4_Click, false);
  druckenKnopf("cmdDrucken4", {7290, 300, 615, 615}, seite.cmdDrucken4, ausgaben4, "CSV-Dateien erstellen");
  serienbriefeKnopf("cmdSerienbriefe4", {7965, 300, 615, 615}, seite.cmdSerienbriefe4, seite.lvwListe4);
  weiterKnopf("cmdWeiter4", {8640, 300, 555, 615}, seite.cmdWeiter4);

  beschriftung("Label15", "pro kg Milch:", {4320, 345, 1290, 315});
  betrag("lblPreisProKilo", {5625, 345, 930, 315}, seite.lblPreisProKilo);
  beschriftung("Label16", "Milchmenge für Berechnung:", {120, 765, 2880, 315});
  betrag("lblMengeFuerBerechnung", {3015, 765, 1245, 315}, seite.lblMengeFuerBerechnung);
  beschriftung("Label17", "Gesamt:", {4320, 765, 870, 315});
  betrag("lblMengeGesamt", {5310, 765, 1245, 315}, seite.lblMengeGesamt);

  ListenAnsicht* ergebnis = liste("lvwListe4", "Ergebnis Schritt 4", listenTooltipMitDoppelklick(),
                                  {120, 1560, 9075, 2115}, seite.lvwListe4);
  oeffnetPersonen(ergebnis, seite.lvwListe4);
  beschriftung("Label18", "Ergebnis - Personen in der &Liste:", {120, 1140, 3330, 375}, ergebnis);
  zaehler("lblErgebnis4", {3525, 1140, 735, 375}, seite.lblErgebnis4);
  beschriftung("Label19", "> 50000:", {4320, 1140, 1260, 375});
  zaehler("lblErgebnis4Ueber50000", {5820, 1140, 735, 375}, seite.lblErgebnis4Ueber50000);
  beschriftung("Label20", "verteilt:", {6690, 1140, 825, 375});
  betrag("lblVerteilt", {7560, 1140, 1635, 375}, seite.lblVerteilt);

  serienbriefeAusgeschiedenKnopf("cmdSerienbriefe4Ausgeschieden", 3855, seite.cmdSerienbriefe4Ausgeschieden,
                                 seite.lvwAusgeschieden4);
  ListenAnsicht* ausgeschieden =
      liste("lvwAusgeschieden4", "Ausgeschiedene Personen Schritt 4", listenTooltipMitDoppelklick(),
            {120, 4380, 9075, 1755}, seite.lvwAusgeschieden4);
  oeffnetPersonen(ausgeschieden, seite.lvwAusgeschieden4);
  beschriftung("Label21", "ausgeschieden weil keine &Menge:", {120, 3855, 3360, 375}, ausgeschieden);
  zaehler("lblAusgeschieden4", {3525, 3855, 735, 375}, seite.lblAusgeschieden4);
  zaehler("lblAusgeschieden4Geloescht", {4380, 3855, 735, 375}, seite.lblAusgeschieden4Geloescht,
          Zaehler::Grund::Rosa);
  ersterFokusSetzen(gesamtbetrag);
}

}  // namespace pelvanto
