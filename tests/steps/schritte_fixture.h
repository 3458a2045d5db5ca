#pragma once

#include <gtest/gtest.h>

#include "common/testprogramm.h"
#include "steps/schritte.h"

namespace pelvanto {

// The wizard on its page models, with a database in memory. Groups: 10 the delivery group, 11 and 12 the
// yearly payments 2025 and 2026, 20 a further group.
class SchritteTest : public testing::Test {
 protected:
  static constexpr int kMilch = 10, kVorjahr = 11, kHeuer = 12, kBio = 20;

  SchritteTest() {
    seiten.seite1.txtUnterlieferungGruppe.text = QStringLiteral("Milchlieferanten");
    seiten.seite2.txtEinzahlungen.text = QStringLiteral("Mitgliedsbeitrag");
    seiten.seite4.txtGesamtbetrag.text = QStringLiteral("1.000,00");
    seiten.seite5.txtWortlautUeberweisung.text = QStringLiteral("Bonus");
    datenbank.gruppe(kMilch, u"Milchlieferanten")
        .gruppe(kVorjahr, u"Mitgliedsbeitrag 2025")
        .gruppe(kHeuer, u"Mitgliedsbeitrag 2026")
        .gruppe(kBio, u"Bio-Betriebe");
  }

  // A member who has paid both years and has bank details.
  void mitglied(int id, std::optional<int> menge, const std::u16string& name) {
    mitglied({.id = id, .namen = name}, menge);
  }
  void mitglied(test::VerbindoDatenbank::Person person, std::optional<int> menge) {
    if (!person.iban) person.iban = u"AT611904300234573201";
    if (!person.bic) person.bic = u"MUSTAT2LXXX";
    const int id = person.id;
    datenbank.person(std::move(person)).mitglied(id, kMilch, menge);
    datenbank.mitglied(id, kVorjahr).mitglied(id, kHeuer);
  }
  void anlegen() { programm.datenbankAnlegen(datenbank); }

  void bisSchritt(int letzter) {
    if (letzter >= 1) cmdErgebnisZeigen1_Click(umgebung, seiten);
    if (letzter >= 2) cmdErgebnisZeigen2_Click(umgebung, seiten);
    if (letzter >= 3) cmdErgebnisZeigen3_Click(umgebung, seiten);
    if (letzter >= 3) cmdErgebnisZeigen3b_Click(umgebung, seiten);
    if (letzter >= 4) cmdErgebnisZeigen4_Click(umgebung, seiten);
    if (letzter >= 5) cmdErgebnisZeigen5_Click(umgebung, seiten);
  }

  // One text per row: its ID and its texts, joined by "|".
  static QStringList zeilen(const Liste& liste) {
    QStringList zeilen;
    for (const Zeile& zeile : liste.zeilen()) {
      zeilen << QString::number(zeile.id()) + u'|' + zeile.texte.join(u'|');
    }
    return zeilen;
  }
  static QStringList feld(const Liste& liste, int feld) {
    QStringList texte;
    for (const Zeile& zeile : liste.zeilen()) texte << zeile.texte.value(feld);
    return texte;
  }
  // The only box since the last call, or an empty one.
  Meldung meldung() {
    EXPECT_LE(programm.meldungen.gezeigt.size(), 1U) << programm.meldungen.texte().join(u'\n').toStdString();
    const Meldung meldung =
        programm.meldungen.gezeigt.empty() ? Meldung{} : programm.meldungen.gezeigt.front();
    programm.meldungen.gezeigt.clear();
    return meldung;
  }

  test::Testprogramm programm;
  test::VerbindoDatenbank datenbank;
  Umgebung umgebung{programm.aussenwelt(programm.jet), programm.werte};
  Seiten seiten;
};

}  // namespace pelvanto
