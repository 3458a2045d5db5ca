#include "steps/schritte_fixture.h"
#include "support/programm_ende.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

class Schritt1Test : public SchritteTest {
 protected:
  Seite1& seite = seiten.seite1;

  void ausfuehren() { cmdErgebnisZeigen1_Click(umgebung, seiten); }
  // A first run that found one person.
  void einmalGefunden() {
    mitglied(1, 100, u"Maier");
    anlegen();
    ausfuehren();
    ASSERT_EQ(seite.lblErgebnis1.text, u"1"_s);
    ASSERT_TRUE(seite.cmdWeiter1.ein);
  }
  void knopfUndZeigerSindZurueck() {
    EXPECT_TRUE(seite.cmdErgebnisZeigen1.ein);
    EXPECT_FALSE(programm.oberflaeche.sanduhrAn);
  }
};

TEST_F(Schritt1Test, ListsTheMembersByNameThenAddress) {
  mitglied({.id = 5, .namen = u"Öller", .adresse = u"B"}, 1);
  mitglied({.id = 2, .namen = u"oller", .adresse = u"C", .telefon = u"07224"}, 1);
  mitglied({.id = 9, .namen = u"Öller", .adresse = u"A"}, 1);
  mitglied({.id = 7}, 1);
  datenbank.person({.id = 3, .namen = u"Kein Mitglied"}).mitglied(3, kBio);
  datenbank.mitglied(99, kMilch, 5);  // a person who is no longer there
  anlegen();
  seite.txtUnterlieferungGruppe.text = u"  milchLIEFERANTEN "_s;
  seite.lblErgebnis1Geloescht.text = u"3"_s;
  bool knopfAus = false;
  programm.oberflaeche.beimVerarbeiten = [&] {
    knopfAus = !seite.cmdErgebnisZeigen1.ein && programm.oberflaeche.sanduhrAn;
  };
  ausfuehren();
  EXPECT_EQ(zeilen(seite.lvwListe1),
            QStringList({u"7|||"_s, u"2|oller|C|07224"_s, u"9|Öller|A|"_s, u"5|Öller|B|"_s}));
  EXPECT_EQ(seite.lblErgebnis1.text, u"4"_s);
  EXPECT_TRUE(seite.cmdDrucken1.ein);
  EXPECT_TRUE(seite.cmdWeiter1.ein);
  EXPECT_EQ(seite.lblErgebnis1Geloescht.text, u"3"_s) << "a run does not touch what was deleted by hand";
  EXPECT_TRUE(knopfAus) << "while the step runs its button is off and the hourglass on";
  knopfUndZeigerSindZurueck();
  EXPECT_TRUE(programm.meldungen.gezeigt.empty());
  EXPECT_TRUE(programm.protokoll().isEmpty());
}

TEST_F(Schritt1Test, TheColumnsFollowTheWidthOfTheList) {
  anlegen();
  seite.lvwListe1.breite = 10400;
  ausfuehren();
  EXPECT_EQ(seite.lvwListe1.spalten(), std::vector<Spalte>({{u"ID"_s, u"ID"_s, 0},
                                                            {u"Name"_s, u"Name"_s, 3000},
                                                            {u"Adresse"_s, u"Adresse"_s, 3000},
                                                            {u"Telefon"_s, u"Telefon"_s, 4000}}));
  seite.lvwListe1.spaltenbreiteSetzen(1, 5);
  seite.lvwListe1.breite = 1400;
  ausfuehren();
  EXPECT_EQ(seite.lvwListe1.spalten()[1].breite, 300);
}

TEST_F(Schritt1Test, AGroupThatCannotBeListedEndsTheStepWithItsMessage) {
  einmalGefunden();
  datenbank.gruppe(30, u"Lieferanten").gruppe(31, u"Lieferanten").gruppe(32, u"Leere Gruppe");
  anlegen();
  const std::pair<QString, QString> faelle[] = {
      {u"Gibtsnicht"_s, u"Es existiert keine Personengruppe mit der Bezeichnung Gibtsnicht."_s},
      {u"  "_s, u"Es existiert keine Personengruppe mit der Bezeichnung ."_s},
      {u" Lieferanten"_s, u"Es existieren 2 Personengruppen mit der Bezeichnung Lieferanten."_s},
      {u"d'Arc"_s, u"Fehler bei der Abfrage ob die Personengruppe existiert."_s},
  };
  for (const auto& [gruppe, text] : faelle) {
    SCOPED_TRACE(text.toStdString());
    seite.txtUnterlieferungGruppe.text = gruppe;
    ausfuehren();
    EXPECT_EQ(meldung(), (Meldung{text, Symbol::Kritisch}));
    EXPECT_EQ(seite.lvwListe1.anzahl(), 0);
    EXPECT_EQ(seite.lvwListe1.spalten().size(), 4U);
    // What the run before has shown stays.
    EXPECT_EQ(seite.lblErgebnis1.text, u"1"_s);
    EXPECT_TRUE(seite.cmdDrucken1.ein);
    EXPECT_TRUE(seite.cmdWeiter1.ein);
    knopfUndZeigerSindZurueck();
  }
  EXPECT_EQ(programm.fehlerprotokoll().last(),
            u"    SELECT ID FROM PersonenGruppenBezeichnungen WHERE Bezeichnung = 'd'Arc'"_s);

  seite.txtUnterlieferungGruppe.text = u"Leere Gruppe"_s;
  ausfuehren();
  EXPECT_EQ(meldung(), Meldung{}) << "a group without members is no error";
  EXPECT_EQ(seite.lblErgebnis1.text, u"0"_s);
  EXPECT_FALSE(seite.cmdDrucken1.ein);
  EXPECT_FALSE(seite.cmdWeiter1.ein);
}

TEST_F(Schritt1Test, ADatabaseThatDoesNotOpenGivesAnEmptyListWithoutAMessage) {
  einmalGefunden();
  programm.jet.gesperrteOeffnungen = 1000;
  ausfuehren();
  EXPECT_EQ(meldung(), Meldung{});
  EXPECT_EQ(seite.lvwListe1.anzahl(), 0);
  EXPECT_EQ(seite.lblErgebnis1.text, u"0"_s);
  EXPECT_FALSE(seite.cmdDrucken1.ein);
  EXPECT_FALSE(seite.cmdWeiter1.ein);
  EXPECT_EQ(programm.uhr.wartezeiten.size(), 5U);
  knopfUndZeigerSindZurueck();
}

TEST_F(Schritt1Test, APersonWhoIsTwiceInTheGroupHasOneRowAndALineInTheLog) {
  mitglied(1, 100, u"Maier");
  mitglied(2, 100, u"Huber");
  datenbank.mitglied(1, kMilch, 300).mitglied(1, kMilch, 400);
  anlegen();
  ausfuehren();
  EXPECT_EQ(zeilen(seite.lvwListe1), QStringList({u"2|Huber||"_s, u"1|Maier||"_s}));
  const QString zeile =
      u"Person 1 ist in der Gruppe Milchlieferanten mehrfach eingetragen, die weitere Zeile wurde übersprungen."_s;
  EXPECT_EQ(programm.protokoll(), QStringList({zeile, zeile}));
  EXPECT_EQ(meldung(), Meldung{});
}

TEST_F(Schritt1Test, ADamagedTableIsReportedAndNobodyGoesOn) {
  einmalGefunden();
  // Noise over every page of persons: the group can still be asked for, its members not.
  QByteArray inhalt = programm.dateien.inhalt(programm.werte.DatenbankPfad);
  const qsizetype stelle = inhalt.indexOf("Maier");
  ASSERT_GT(stelle, 0);
  inhalt.replace(stelle / 4096 * 4096 + 14, 2, QByteArray(2, '\xff'));
  programm.dateien.anlegen(programm.werte.DatenbankPfad, inhalt);
  ausfuehren();
  const Meldung gezeigt = meldung();
  EXPECT_EQ(gezeigt.titel, u"Fehler"_s);
  EXPECT_EQ(gezeigt.symbol, Symbol::Kritisch);
  EXPECT_TRUE(gezeigt.text.startsWith(u"Fehler 3340 (Nicht erkennbares Datenbankformat: "_s));
  EXPECT_TRUE(gezeigt.text.endsWith(
      u") in Prozedur ListeFuellen1 in Modul HauptFenster\r\n\r\nBitte informieren Sie den "
      "Programmierer!"_s))
      << gezeigt.text.toStdString();
  const QStringList protokoll = programm.fehlerprotokoll();
  ASSERT_EQ(protokoll.size(), 2);
  EXPECT_EQ(protokoll[0], gezeigt.text.section(u"\r\n"_s, 0, 0));
  EXPECT_TRUE(protokoll[1].startsWith(u"    SELECT Namensliste.ID, "_s));
  EXPECT_EQ(seite.lvwListe1.anzahl(), 0);
  EXPECT_FALSE(seite.cmdWeiter1.ein);
  knopfUndZeigerSindZurueck();
}

TEST_F(Schritt1Test, TheEndOfTheProgramLeavesTheButtonAndThePointerInOrder) {
  mitglied(1, 100, u"Maier");
  anlegen();
  programm.oberflaeche.beimVerarbeiten = [] { throw ProgrammEnde{}; };
  EXPECT_THROW(ausfuehren(), ProgrammEnde);
  knopfUndZeigerSindZurueck();
}

}  // namespace
}  // namespace pelvanto
