#include "steps/schritte_fixture.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

const QString kVorigesFehlt =
    u"Die Personengruppe mit den Beiträgen für das vorige Jahr wurde nicht gefunden."_s;
const QString kLaufendesFehlt =
    u"Die Personengruppe mit den Beiträgen für das laufende Jahr wurde nicht gefunden."_s;

class Schritt2Test : public SchritteTest {
 protected:
  Seite2& seite = seiten.seite2;

  void person(int id, const std::u16string& name, std::initializer_list<int> gruppen) {
    datenbank.person({.id = id, .namen = name}).mitglied(id, kMilch, 100);
    for (const int gruppe : gruppen) datenbank.mitglied(id, gruppe);
  }
};

TEST_F(Schritt2Test, DividesByTheTwoYears) {
  person(1, u"a", {kVorjahr, kHeuer});
  person(2, u"b", {kHeuer});
  person(3, u"c", {kVorjahr, kVorjahr, kVorjahr});
  person(4, u"d", {});
  person(5, u"e", {kHeuer, kVorjahr, kHeuer});
  anlegen();
  seite.txtEinzahlungen.text = u"  Mitgliedsbeitrag "_s;
  bisSchritt(2);
  EXPECT_EQ(zeilen(seite.lvwListe2),
            QStringList({u"1|a|||2025 u. 2026 bezahlt"_s, u"5|e|||2025 u. 2026 bezahlt"_s}));
  EXPECT_EQ(
      zeilen(seite.lvwListeAusgeschieden2),
      QStringList({u"2|b|||nur 2026 bezahlt"_s, u"3|c|||nur 2025 bezahlt"_s, u"4|d|||nicht bezahlt"_s}));
  EXPECT_EQ(seite.lblErgebnis2.text, u"2"_s);
  EXPECT_EQ(seite.lblAusgeschieden2.text, u"3"_s);
  EXPECT_TRUE(seite.cmdDrucken2.ein && seite.cmdWeiter2.ein && seite.cmdSerienbriefe2Ausgeschieden.ein);
  EXPECT_EQ(seite.lvwListe2.spalten().back(), (Spalte{u"Erste Einzahlung"_s, u"Beitrag"_s, 1735}));
  EXPECT_TRUE(programm.meldungen.gezeigt.empty());

  // The year follows the clock: on the last day of 2027 its own groups are missing.
  programm.uhr.stellen(QDateTime(QDate(2027, 12, 31), QTime(23, 59, 59)));
  bisSchritt(2);
  EXPECT_EQ(meldung(), Meldung{kLaufendesFehlt});
  programm.uhr.stellen(QDateTime(QDate(2028, 1, 1), QTime(0, 0)));
  cmdErgebnisZeigen2_Click(umgebung, seiten);
  EXPECT_EQ(programm.meldungen.texte(), QStringList({kVorigesFehlt, kLaufendesFehlt}));
  EXPECT_EQ(seite.lvwListe2.anzahl(), 0);
  EXPECT_EQ(seite.lblErgebnis2.text, u"2"_s) << "counters and buttons stay";
  EXPECT_TRUE(seite.cmdWeiter2.ein);
}

TEST_F(Schritt2Test, WorksOnTheListAsItStands) {
  for (int id = 1; id <= 4; ++id)
    mitglied(id, 1, u"Person " + std::u16string(1, static_cast<char16_t>(u'0' + id)));
  anlegen();
  bisSchritt(1);
  Liste& quelle = seiten.seite1.lvwListe1;
  quelle.spalteAngeklickt(1);
  quelle.spalteAngeklickt(1);
  quelle.markieren(1, true);  // person 3
  quelle.MarkierteLoeschen();
  cmdErgebnisZeigen2_Click(umgebung, seiten);
  EXPECT_EQ(feld(seite.lvwListe2, 0), QStringList({"Person 4", "Person 2", "Person 1"}));
}

TEST_F(Schritt2Test, APersonWhoHasGoneIsListedWithoutTexts) {
  mitglied(1, 1, u"Maier");
  anlegen();
  bisSchritt(1);
  datenbank.daten.personen.clear();
  anlegen();
  cmdErgebnisZeigen2_Click(umgebung, seiten);
  EXPECT_EQ(zeilen(seite.lvwListe2), QStringList(u"1||||2025 u. 2026 bezahlt"_s));
}

TEST_F(Schritt2Test, NobodyInTheListSwitchesTheButtonsOff) {
  anlegen();
  seite.cmdDrucken2.ein = seite.cmdWeiter2.ein = seite.cmdSerienbriefe2Ausgeschieden.ein = true;
  cmdErgebnisZeigen2_Click(umgebung, seiten);
  EXPECT_EQ(seite.lblErgebnis2.text, u"0"_s);
  EXPECT_EQ(seite.lblAusgeschieden2.text, u"0"_s);
  EXPECT_FALSE(seite.cmdDrucken2.ein || seite.cmdWeiter2.ein || seite.cmdSerienbriefe2Ausgeschieden.ein);
}

TEST_F(Schritt2Test, OnlyDroppedPersonsCanBePrintedButNotCarriedOn) {
  person(4, u"d", {});
  anlegen();
  bisSchritt(2);
  EXPECT_TRUE(seite.cmdDrucken2.ein);
  EXPECT_FALSE(seite.cmdWeiter2.ein || seite.cmdSerienbriefe2Ausgeschieden.ein);
}

// The steps that open directly: what fails is told, and the way on is closed.
TEST_F(Schritt2Test, FailuresAreReportedAndTheNextButtonGoesOff) {
  mitglied(1, 1, u"Maier");
  datenbank.mitglied(1, kBio);
  anlegen();
  bisSchritt(4);
  struct Fall {
    QString prozedur;
    void (*schritt)(Umgebung&, Seiten&);
    Knopf& lauf;
    Knopf& weiter;
    Liste& behalten;
    Beschriftung& zaehler;
    Textfeld& gruppe;
  };
  seiten.seite3.txtGruppeNotwendig.text = seiten.seite3b.txtGruppeNotwendig3b.text = u"Bio-Betriebe"_s;
  Seite3& a = seiten.seite3;
  Seite3b& b = seiten.seite3b;
  Seite4& vier = seiten.seite4;
  const Fall faelle[] = {
      {u"ListeFuellen4"_s, cmdErgebnisZeigen4_Click, vier.cmdErgebnisZeigen4, vier.cmdWeiter4, vier.lvwListe4,
       vier.lblErgebnis4, seiten.seite1.txtUnterlieferungGruppe},
      {u"ListeFuellen3b"_s, cmdErgebnisZeigen3b_Click, b.cmdErgebnisZeigen3b, b.cmdWeiter3b, b.lvwListe3b,
       b.lblErgebnis3b, b.txtGruppeNotwendig3b},
      {u"ListeFuellen3"_s, cmdErgebnisZeigen3_Click, a.cmdErgebnisZeigen3, a.cmdWeiter3, a.lvwListe3,
       a.lblErgebnis3, a.txtGruppeNotwendig},
      {u"ListeFuellen2"_s, cmdErgebnisZeigen2_Click, seite.cmdErgebnisZeigen2, seite.cmdWeiter2,
       seite.lvwListe2, seite.lblErgebnis2, seite.txtEinzahlungen},
  };
  for (const Fall& fall : faelle) {
    SCOPED_TRACE(fall.prozedur.toStdString());
    const QString ende = u") in Prozedur "_s + fall.prozedur +
                         u" in Modul HauptFenster\r\n\r\nBitte informieren Sie den Programmierer!"_s;
    for (const bool gesperrt : {true, false}) {
      fall.weiter.ein = true;
      const QString gruppe = fall.gruppe.text;
      if (gesperrt) {
        programm.jet.gesperrteOeffnungen = 1;
      } else {
        fall.gruppe.text = u"d'Arc"_s;
      }
      fall.schritt(umgebung, seiten);
      const Meldung gezeigt = meldung();
      EXPECT_TRUE(gezeigt.text.startsWith(gesperrt ? u"Fehler 3045 ("_s : u"Fehler 3075 ("_s))
          << gezeigt.text.toStdString();
      EXPECT_TRUE(gezeigt.text.endsWith(ende)) << gezeigt.text.toStdString();
      EXPECT_EQ(gezeigt.titel, u"Fehler"_s);
      EXPECT_FALSE(fall.weiter.ein);
      EXPECT_TRUE(fall.lauf.ein);
      EXPECT_EQ(fall.behalten.anzahl(), 0);
      EXPECT_EQ(fall.zaehler.text, u"0"_s);
      EXPECT_FALSE(programm.oberflaeche.sanduhrAn);
      const QString letzte = programm.fehlerprotokoll().last();
      EXPECT_TRUE(gesperrt ? letzte.startsWith(u"Fehler 3045 ("_s)
                           : letzte.startsWith(u"    SELECT"_s) && letzte.contains(u"d'Arc"_s))
          << letzte.toStdString();
      fall.gruppe.text = gruppe;
    }
  }
  bisSchritt(4);
  for (const Fall& fall : faelle) EXPECT_TRUE(fall.weiter.ein) << fall.prozedur.toStdString();
}

class Schritt3Test : public SchritteTest {
 protected:
  Seite3& a = seiten.seite3;
  Seite3b& b = seiten.seite3b;
};

TEST_F(Schritt3Test, KeepsWhoIsInTheGroup) {
  for (int id = 1; id <= 3; ++id) mitglied(id, 1, std::u16string(1, static_cast<char16_t>(u'a' + id)));
  datenbank.mitglied(3, kBio).mitglied(3, kBio).mitglied(1, kBio);
  datenbank.gruppe(21, u"Bio-Betriebe").mitglied(2, 21);  // of the same name, but not the first
  anlegen();
  a.txtGruppeNotwendig.text = u" bio-betriebe"_s;
  bisSchritt(3);
  EXPECT_EQ(zeilen(a.lvwListe3), QStringList({u"1|b||"_s, u"3|d||"_s}));
  EXPECT_EQ(zeilen(a.lvwListeAusgeschieden3), QStringList(u"2|c||"_s));
  EXPECT_EQ(a.lblErgebnis3.text + u'/' + a.lblAusgeschieden3.text, u"2/1"_s);
  EXPECT_TRUE(a.cmdDrucken3.ein && a.cmdSerienbriefe3.ein && a.cmdSerienbriefe3Ausgeschieden.ein &&
              a.cmdWeiter3.ein);
  EXPECT_EQ(zeilen(b.lvwListe3b), zeilen(a.lvwListe3)) << "an empty group passes the step over";
  EXPECT_EQ(b.lblErgebnis3b.text + u'/' + b.lblAusgeschieden3b.text, u"2/0"_s);
}

TEST_F(Schritt3Test, AnEmptyGroupNeedsNoDatabase) {
  mitglied(1, 1, u"Maier");
  anlegen();
  bisSchritt(2);
  const int vorher = programm.jet.oeffnungen;
  a.txtGruppeNotwendig.text = u"   "_s;
  cmdErgebnisZeigen3_Click(umgebung, seiten);
  EXPECT_EQ(programm.jet.oeffnungen, vorher);
  EXPECT_EQ(zeilen(a.lvwListe3), QStringList(u"1|Maier||"_s)) << "without the payment";
}

TEST_F(Schritt3Test, AnUnknownGroupDropsEverybodyAndTheNextStepStillOpens) {
  mitglied(1, 1, u"Maier");
  anlegen();
  b.txtGruppeNotwendig3b.text = u"Gibtsnicht"_s;
  bisSchritt(3);
  EXPECT_EQ(b.lvwListe3b.anzahl(), 0);
  EXPECT_EQ(zeilen(b.lvwListeAusgeschieden3b), QStringList(u"1|Maier||"_s));
  EXPECT_TRUE(b.cmdDrucken3b.ein && b.cmdSerienbriefe3b.ein && b.cmdSerienbriefe3bAusgeschieden.ein &&
              b.cmdWeiter3b.ein);
  EXPECT_EQ(meldung(), Meldung{});
}

TEST_F(Schritt3Test, NobodyInTheSourceSwitchesAllOffButTheWayOn) {
  anlegen();
  a.cmdDrucken3.ein = a.cmdSerienbriefe3.ein = a.cmdSerienbriefe3Ausgeschieden.ein = true;
  a.txtGruppeNotwendig.text = u"Bio-Betriebe"_s;
  cmdErgebnisZeigen3_Click(umgebung, seiten);
  EXPECT_EQ(a.lblErgebnis3.text + u'/' + a.lblAusgeschieden3.text, u"0/0"_s);
  EXPECT_FALSE(a.cmdDrucken3.ein || a.cmdSerienbriefe3.ein || a.cmdSerienbriefe3Ausgeschieden.ein);
  EXPECT_TRUE(a.cmdWeiter3.ein);
}

TEST_F(Schritt3Test, TheDeleteKeyCountsWhatItRemoves) {
  for (int id = 1; id <= 6; ++id) mitglied(id, 1, std::u16string(1, static_cast<char16_t>(u'a' + id)));
  anlegen();
  bisSchritt(2);
  Seite2& zwei = seiten.seite2;
  const auto loeschen = [&](std::initializer_list<int> welche) {
    for (const int zeile : welche) zwei.lvwListe2.markieren(zeile, true);
    markierteZeilenLoeschen(umgebung.typen, zwei.lvwListe2, zwei.lblErgebnis2Geloescht,
                            zwei.lblErgebnis2GeloeschtLabel, zwei.lblErgebnis2);
  };
  loeschen({});
  EXPECT_EQ(zwei.lblErgebnis2Geloescht.text, u"0"_s);
  EXPECT_FALSE(zwei.lblErgebnis2Geloescht.sichtbar || zwei.lblErgebnis2GeloeschtLabel.sichtbar);
  loeschen({0, 5});
  EXPECT_EQ(zwei.lblErgebnis2Geloescht.text + u'/' + zwei.lblErgebnis2.text, u"2/4"_s);
  EXPECT_TRUE(zwei.lblErgebnis2Geloescht.sichtbar && zwei.lblErgebnis2GeloeschtLabel.sichtbar);
  loeschen({0, 1, 2});
  EXPECT_EQ(zwei.lblErgebnis2Geloescht.text + u'/' + zwei.lblErgebnis2.text, u"5/1"_s);
  cmdErgebnisZeigen3_Click(umgebung, seiten);
  EXPECT_EQ(zeilen(a.lvwListe3), QStringList(u"5|f||"_s));

  cmdErgebnisZeigen2_Click(umgebung, seiten);
  EXPECT_EQ(zwei.lblErgebnis2Geloescht.text + u'/' + zwei.lblErgebnis2.text, u"5/6"_s)
      << "a run does not reset it";
}

}  // namespace
}  // namespace pelvanto
