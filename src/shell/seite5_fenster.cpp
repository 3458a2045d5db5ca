#include "shell/seite5_fenster.h"

#include <QLabel>

#include "shell/bildknopf.h"
#include "shell/iban_feld.h"
#include "shell/listen_ansicht.h"
#include "shell/listen_texte.h"
#include "shell/textfelder.h"

namespace pelvanto {

Seite5Fenster::Seite5Fenster(Seite5& seite, Ablauf& ablauf, QWidget* eltern)
    : SeitenFenster("Frame5", "5. Schritt: Datenträger erstellen", ablauf, eltern) {
  auto* wortlaut = new Eingabefeld(this);
  wortlaut->setToolTip("Geben Sie hier den Text ein, der auf der Überweisung vor den Beträgen stehen soll");
  textfeld(wortlaut, "txtWortlautUeberweisung", "Worlaut Überw.:", {2220, 300, 4335, 330}, 57,
           seite.txtWortlautUeberweisung);
  beschriftung("Label24", "Worlaut &Überw.:", {120, 300, 2040, 330}, wortlaut);
  auto* uid = new Eingabefeld(this);
  uid->setAlignment(Qt::AlignCenter);
  uid->setToolTip("Die UID vom Treuhänder wird auf den Bankauszügen stehen.");
  textfeld(uid, "txtUIDTreuhaender", "UID vom Treugeber:", {2220, 675, 1875, 330}, 8,
           seite.txtUIDTreuhaender);
  beschriftung("Label25", "&UID vom Treugeber:", {120, 675, 2040, 330}, uid);
  eigeneDaten(seite);
  eigenesKonto(seite);

  ausfuehrenKnopf("cmdErgebnisZeigen5", {6675, 300, 555, 615}, seite.cmdErgebnisZeigen5,
                  cmdErgebnisZeigen5_Click, false);
  druckenKnopf("cmdDrucken5", {7290, 300, 615, 615}, seite.cmdDrucken5, ausgaben5, "CSV-Dateien erstellen");
  serienbriefeKnopf("cmdSerienbriefe5", {7965, 300, 615, 615}, seite.cmdSerienbriefe5, seite.lvwListe5);
  Bildknopf* datentraeger = knopf("cmdDatentraegerErstellen", "datentraeger", "Datenträger erstellen", "T",
                                  {8640, 300, 555, 615}, seite.cmdDatentraegerErstellen);
  connect(datentraeger, &Bildknopf::clicked, this,
          [this] { ablauf_.ausfuehren(cmdDatentraegerErstellen_Click); });
  summen(seite);

  ListenAnsicht* ergebnis = liste("lvwListe5", "Ergebnis Schritt 5", listenTooltipMitDoppelklick(),
                                  {120, 3120, 9075, 1395}, seite.lvwListe5);
  oeffnetPersonen(ergebnis, seite.lvwListe5);
  beschriftung("Label26", "Ergebnis - Personen in der &Liste:", {4275, 2700, 3240, 375}, ergebnis);
  zaehler("lblErgebnis5", {8460, 2700, 735, 375}, seite.lblErgebnis5);

  serienbriefeAusgeschiedenKnopf("cmdSerienbriefe5Ausgeschieden", 4650, seite.cmdSerienbriefe5Ausgeschieden,
                                 seite.lvwAusgeschieden5);
  ListenAnsicht* ausgeschieden =
      liste("lvwAusgeschieden5", "Ausgeschiedene Personen Schritt 5", listenTooltipMitDoppelklick(),
            {120, 5160, 9075, 975}, seite.lvwAusgeschieden5);
  oeffnetPersonen(ausgeschieden, seite.lvwAusgeschieden5);
  beschriftung("Label27", "ausgeschieden weil keine Ban&kverbindung:", {120, 4650, 4320, 375}, ausgeschieden);
  zaehler("lblAusgeschieden5", {4500, 4650, 735, 375}, seite.lblAusgeschieden5);
  ersterFokusSetzen(findChild<QWidget*>("cmdErgebnisZeigen5"));
}

void Seite5Fenster::eigeneDaten(Seite5& seite) {
  QWidget* innen = rahmen("Frame8", "Eigene Daten für Bankbeleg", {120, 1050, 3975, 990});
  auto* name = new Eingabefeld(innen);
  textfeld(name, "txtEigenerName", "Name:", {1170, 1305, 2835, 315}, 35, seite.txtEigenerName);
  beschriftung("Label28", "&Name:", {210, 1305, 930, 315}, name, innen);
  auto* adresse = new Eingabefeld(innen);
  textfeld(adresse, "txtEigeneAdresse", "Adresse:", {1170, 1650, 2835, 315}, 35, seite.txtEigeneAdresse);
  beschriftung("Label29", "Ad&resse:", {210, 1650, 930, 315}, adresse, innen);
}

void Seite5Fenster::eigenesKonto(Seite5& seite) {
  QWidget* innen = rahmen("Frame6", "Eigenes Konto", {120, 2085, 3975, 990});
  auto* bic = new Eingabefeld(innen);
  textfeld(bic, "txtBIC", "BIC:", {1170, 2340, 2835, 315}, 11, seite.txtBIC);
  beschriftung("Label30", "&BIC:", {210, 2340, 930, 315}, bic, innen);
  auto* iban = new IBANFeld(innen);
  textfeld(iban, "txtIBAN", "IBAN:", {1170, 2685, 2835, 315}, iban->maxLength(), seite.txtIBAN);
  beschriftung("Label31", "&IBAN:", {210, 2685, 930, 315}, iban, innen);
}

// The sums of each VAT rate and of all, one row each. (The controls of 13 % carry the name of an older rate.)
void Seite5Fenster::summen(Seite5& seite) {
  struct Spaltenplatz {
    int links, breite;
  };
  const Spaltenplatz netto{4950, 1380};
  const Spaltenplatz steuer{6375, 1335};
  const Spaltenplatz brutto{7755, 1440};
  constexpr int kKopf = 1020;
  auto kopf = [this](const QString& name, const QString& text, Spaltenplatz spalte) {
    beschriftung(name, text, {spalte.links, kKopf, spalte.breite, 270})
        ->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  };
  kopf("Label32", "Nettobeträge", netto);
  kopf("Label33", "Mwst.", steuer);
  kopf("Label34", "Bruttobeträge", brutto);

  struct Reihe {
    const char* label;
    const char* text;
    const char* stamm;
    Beschriftung &netto, &steuer, &brutto;
  };
  const Reihe reihen[] = {
      {"Label35", "10 %", "lbl10", seite.lbl10Netto, seite.lbl10Steuer, seite.lbl10Brutto},
      {"Label36", "13 %", "lbl12", seite.lbl12Netto, seite.lbl12Steuer, seite.lbl12Brutto},
      {"Label37", "Alle", "lblAlle", seite.lblAlleNetto, seite.lblAlleSteuer, seite.lblAlleBrutto},
  };
  int oben = kKopf + 300;
  for (const Reihe& reihe : reihen) {
    const QString stamm = reihe.stamm;
    beschriftung(reihe.label, reihe.text, {4275, oben, 630, 315});
    betrag(stamm + "Netto", {netto.links, oben, netto.breite, 315}, reihe.netto);
    betrag(stamm + "Steuer", {steuer.links, oben, steuer.breite, 315}, reihe.steuer);
    betrag(stamm + "Brutto", {brutto.links, oben, brutto.breite, 315}, reihe.brutto);
    oben += 360;
  }
}

}  // namespace pelvanto
