#pragma once

#include <QString>

#include <optional>

#include "lists/liste.h"
#include "payment/ueberweisung_t.h"

// The pages of the wizard as plain values: what stands in each control, by the control's name. The steps read
// and change these; the window shows them after each action. `ein` = enabled.
namespace pelvanto {

struct Textfeld {
  QString text;
};
struct Knopf {
  bool ein = false;
};
struct Beschriftung {
  QString text;
  bool sichtbar = true;
};

inline QStringList personenSortierung() { return {"Name", "Adresse", "Telefon"}; }
inline QStringList betragsSortierung() { return {"Name", "Adresse"}; }

struct Seite1 {
  Textfeld txtUnterlieferungGruppe;
  Knopf cmdErgebnisZeigen1{true}, cmdDrucken1, cmdWeiter1;
  Liste lvwListe1{personenSortierung()};
  Beschriftung lblErgebnis1, lblErgebnis1Geloescht{{}, false}, lblErgebnis1GeloeschtLabel{"gelöscht", false};
};

struct Seite2 {
  Textfeld txtEinzahlungen;
  Knopf cmdErgebnisZeigen2{true}, cmdDrucken2, cmdWeiter2, cmdSerienbriefe2Ausgeschieden;
  Liste lvwListe2{personenSortierung() << "Erste Einzahlung"};
  Liste lvwListeAusgeschieden2{personenSortierung() << "Erste Einzahlung"};
  Beschriftung lblErgebnis2, lblErgebnis2Geloescht{{}, false}, lblErgebnis2GeloeschtLabel{"gelöscht", false};
  Beschriftung lblAusgeschieden2, lblAusgeschieden2Geloescht{{}, false},
      lblAusgeschieden2GeloeschtLabel{"gelöscht", false};
};

struct Seite3 {
  Textfeld txtGruppeNotwendig;
  Knopf cmdErgebnisZeigen3{true}, cmdDrucken3, cmdSerienbriefe3, cmdWeiter3, cmdSerienbriefe3Ausgeschieden;
  Liste lvwListe3{personenSortierung()}, lvwListeAusgeschieden3{personenSortierung()};
  Beschriftung lblErgebnis3, lblErgebnis3Geloescht{{}, false}, lblErgebnis3GeloeschtLabel{"gelöscht", false};
  Beschriftung lblAusgeschieden3, lblAusgeschieden3Geloescht{{}, false},
      lblAusgeschieden3GeloeschtLabel{"gelöscht", false};
};

struct Seite3b {
  Textfeld txtGruppeNotwendig3b;
  Knopf cmdErgebnisZeigen3b{true}, cmdDrucken3b, cmdSerienbriefe3b, cmdWeiter3b,
      cmdSerienbriefe3bAusgeschieden;
  Liste lvwListe3b{personenSortierung()}, lvwListeAusgeschieden3b{personenSortierung()};
  Beschriftung lblErgebnis3b, lblErgebnis3bGeloescht{{}, false},
      lblErgebnis3bGeloeschtLabel{"gelöscht", false};
  Beschriftung lblAusgeschieden3b, lblAusgeschieden3bGeloescht{{}, false},
      lblAusgeschieden3bGeloeschtLabel{"gelöscht", false};
};

struct Seite4 {
  Textfeld txtGesamtbetrag;
  Knopf cmdErgebnisZeigen4{true}, cmdDrucken4{true}, cmdWeiter4{true};
  Knopf cmdSerienbriefe4, cmdSerienbriefe4Ausgeschieden;
  Liste lvwListe4{betragsSortierung()}, lvwAusgeschieden4{personenSortierung()};
  Beschriftung lblMengeFuerBerechnung, lblMengeGesamt, lblPreisProKilo, lblVerteilt;
  Beschriftung lblErgebnis4, lblErgebnis4Ueber50000, lblAusgeschieden4, lblAusgeschieden4Geloescht{{}, false};
};

struct Seite5 {
  Textfeld txtEigenerName, txtEigeneAdresse, txtBIC, txtIBAN, txtWortlautUeberweisung, txtUIDTreuhaender;
  Knopf cmdErgebnisZeigen5{true}, cmdDrucken5{true};
  Knopf cmdSerienbriefe5, cmdSerienbriefe5Ausgeschieden, cmdDatentraegerErstellen;
  Liste lvwListe5{betragsSortierung()}, lvwAusgeschieden5{personenSortierung()};
  Beschriftung lblErgebnis5, lblAusgeschieden5;
  Beschriftung lbl10Netto, lbl10Steuer, lbl10Brutto;
  Beschriftung lbl12Netto, lbl12Steuer, lbl12Brutto;
  Beschriftung lblAlleNetto, lblAlleSteuer, lblAlleBrutto;
};

// The whole wizard: its pages and the transfer table of step 5 (none after it has been written).
struct Seiten {
  Seite1 seite1;
  Seite2 seite2;
  Seite3 seite3;
  Seite3b seite3b;
  Seite4 seite4;
  Seite5 seite5;
  std::optional<UeberweisungT> ueberweisungT;
};

}  // namespace pelvanto
