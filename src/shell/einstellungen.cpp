#include "shell/einstellungen.h"

#include <array>

#include "support/blanks.h"

namespace pelvanto {

namespace {

struct Einstellung {
  const char* schluessel;
  const char* vorgabe;
  Textfeld& (*feld)(Seiten&);
};

constexpr std::array<Einstellung, 11> kEinstellungen{{
    {"UnterlieferungGruppe", "", [](Seiten& s) -> Textfeld& { return s.seite1.txtUnterlieferungGruppe; }},
    {"Einzahlungen", "", [](Seiten& s) -> Textfeld& { return s.seite2.txtEinzahlungen; }},
    {"GruppeNotwendig", "", [](Seiten& s) -> Textfeld& { return s.seite3.txtGruppeNotwendig; }},
    {"GruppeNotwendig3b", "", [](Seiten& s) -> Textfeld& { return s.seite3b.txtGruppeNotwendig3b; }},
    {"GesamtBetrag", "", [](Seiten& s) -> Textfeld& { return s.seite4.txtGesamtbetrag; }},
    {"WortlautUeberweisung", "GS - Qualitätszuschlag Milvarte",
     [](Seiten& s) -> Textfeld& { return s.seite5.txtWortlautUeberweisung; }},
    {"UIDTreuhaender", "", [](Seiten& s) -> Textfeld& { return s.seite5.txtUIDTreuhaender; }},
    {"EigeneIBAN", "", [](Seiten& s) -> Textfeld& { return s.seite5.txtIBAN; }},
    {"EigeneBIC", "", [](Seiten& s) -> Textfeld& { return s.seite5.txtBIC; }},
    {"EigenerName", "", [](Seiten& s) -> Textfeld& { return s.seite5.txtEigenerName; }},
    {"EigeneAdresse", "", [](Seiten& s) -> Textfeld& { return s.seite5.txtEigeneAdresse; }},
}};

}  // namespace

void einstellungenLesen(const FunktionenFürINI& ini, Seiten& seiten) {
  for (const Einstellung& einstellung : kEinstellungen)
    einstellung.feld(seiten).text =
        ini.INILesen(abschnittAuszahlungen, einstellung.schluessel, einstellung.vorgabe);
}

void einstellungenSpeichern(FunktionenFürINI& ini, Seiten& seiten) {
  for (const Einstellung& einstellung : kEinstellungen) {
    // Where one cannot be saved, none can.
    if (!ini.INISpeichern(abschnittAuszahlungen, einstellung.schluessel,
                          ohneAeussereBlanks(einstellung.feld(seiten).text))) {
      return;
    }
  }
}

}  // namespace pelvanto
