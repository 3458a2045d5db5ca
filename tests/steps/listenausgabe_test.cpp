#include "steps/listenausgabe.h"

#include "steps/schritte_fixture.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

class ListenausgabeTest : public SchritteTest {
 protected:
  struct Erwartet {
    const Liste* liste;
    QString titel, untertitel;
  };
  void vergleichen(AusgabenDerSeite seite, const std::vector<Erwartet>& erwartet, bool ohneFuenferabstand) {
    const Listenausgaben ausgaben = seite(umgebung, seiten);
    ASSERT_EQ(ausgaben.size(), erwartet.size());
    for (std::size_t i = 0; i < erwartet.size(); ++i) {
      EXPECT_EQ(ausgaben[i].liste, erwartet[i].liste) << i;
      EXPECT_EQ(ausgaben[i].titel, erwartet[i].titel);
      EXPECT_EQ(ausgaben[i].untertitel, erwartet[i].untertitel);
      EXPECT_EQ(ausgaben[i].ohneFuenferabstand, ohneFuenferabstand);
    }
  }
  static void geloescht(Beschriftung& zaehler, const QString& anzahl) { zaehler = {anzahl, true}; }
};

TEST_F(ListenausgabeTest, HeadingsOfPagesOneToThree) {
  seiten.seite1.txtUnterlieferungGruppe.text = u"  Milch  süd "_s;
  seiten.seite1.lblErgebnis1.text = u"12"_s;
  vergleichen(ausgaben1,
              {{&seiten.seite1.lvwListe1, u"Schritt 1: Mitglieder der Gruppe Milch  süd"_s,
                u"Anzahl der Personen: 12"_s}},
              true);
  geloescht(seiten.seite1.lblErgebnis1Geloescht, u"3"_s);
  EXPECT_EQ(ausgaben1(umgebung, seiten)[0].untertitel, u"Anzahl der Personen: 12  (3 gelöscht)"_s);

  Seite2& seite2 = seiten.seite2;
  seite2.lblErgebnis2.text = u"7"_s;
  seite2.lblAusgeschieden2.text = u"5"_s;
  geloescht(seite2.lblErgebnis2Geloescht, u"2"_s);
  vergleichen(
      ausgaben2,
      {{&seite2.lvwListe2, u"Schritt 2: 2025 und 2026 bezahlt"_s, u"Anzahl der Personen: 7  (2 gelöscht)"_s},
       {&seite2.lvwListeAusgeschieden2, u"Schritt 2: AUSGESCHIEDEN - 2025 und/oder 2026 nicht bezahlt"_s,
        u"Anzahl der Personen: 5"_s}},
      true);
  seite2.lblErgebnis2Geloescht.sichtbar = false;
  geloescht(seite2.lblAusgeschieden2Geloescht, u"1"_s);
  programm.uhr.stellen(QDateTime(QDate(2027, 1, 1), QTime(0, 0)));
  vergleichen(
      ausgaben2,
      {{&seite2.lvwListe2, u"Schritt 2: 2026 und 2027 bezahlt"_s, u"Anzahl der Personen: 7"_s},
       {&seite2.lvwListeAusgeschieden2, u"Schritt 2: AUSGESCHIEDEN - 2026 und/oder 2027 nicht bezahlt"_s,
        u"Anzahl der Personen: 5  (1 gelöscht)"_s}},
      true);
}

TEST_F(ListenausgabeTest, HeadingsOfTheRequiredGroups) {
  Seite3& a = seiten.seite3;
  Seite3b& b = seiten.seite3b;
  a.lblErgebnis3.text = u"6"_s;
  a.lblAusgeschieden3.text = u"1"_s;
  b.lblErgebnis3b.text = u"4"_s;
  b.lblAusgeschieden3b.text = u"2"_s;
  a.txtGruppeNotwendig.text = b.txtGruppeNotwendig3b.text = u"   "_s;
  vergleichen(ausgaben3,
              {{&a.lvwListe3, u"Schritt 3: (Keine Gruppen benötigt)"_s, u"Anzahl der Personen: 6"_s}}, true);
  vergleichen(ausgaben3b,
              {{&b.lvwListe3b, u"Schritt 3b: (Keine Gruppen benötigt)"_s, u"Anzahl der Personen: 4"_s}},
              true);

  a.txtGruppeNotwendig.text = u" Bio; Heu "_s;
  b.txtGruppeNotwendig3b.text = u"Kurs "_s;
  geloescht(a.lblErgebnis3Geloescht, u"8"_s);
  geloescht(b.lblErgebnis3bGeloescht, u"9"_s);
  geloescht(b.lblAusgeschieden3bGeloescht, u"3"_s);
  vergleichen(
      ausgaben3,
      {{&a.lvwListe3, u"Schritt 3: Enthalten in Bio; Heu"_s, u"Anzahl der Personen: 6  (8 gelöscht)"_s},
       {&a.lvwListeAusgeschieden3, u"Schritt 3: AUSGESCHIEDEN - weil nicht enthalten in Bio; Heu"_s,
        u"Anzahl der Personen: 1"_s}},
      true);
  geloescht(a.lblAusgeschieden3Geloescht, u"4"_s);
  EXPECT_EQ(ausgaben3(umgebung, seiten)[1].untertitel, u"Anzahl der Personen: 1  (4 gelöscht)"_s);
  vergleichen(ausgaben3b,
              {{&b.lvwListe3b, u"Schritt 3b: Enthalten in Kurs"_s, u"Anzahl der Personen: 4  (9 gelöscht)"_s},
               {&b.lvwListeAusgeschieden3b, u"Schritt 3b: AUSGESCHIEDEN - weil nicht enthalten in Kurs"_s,
                u"Anzahl der Personen: 2  (3 gelöscht)"_s}},
              true);
}

TEST_F(ListenausgabeTest, HeadingsOfStepFourAfterARun) {
  mitglied(1, 50001, u"a");
  mitglied(2, 1234, u"b");
  mitglied(3, 0, u"c");
  anlegen();
  seiten.seite4.txtGesamtbetrag.text = u"100.000,00 €"_s;
  bisSchritt(4);
  Seite4& seite = seiten.seite4;
  vergleichen(
      ausgaben4,
      {{&seite.lvwListe4,
        u"Schritt 4: Auszahlung berechnen      100.000,00 €  /  51.234 kg Milch = 195,1829 Cent pro kg"_s,
        u"Anzahl der Personen: 2  ( davon über 50.000 kg:  1 )"_s},
       {&seite.lvwAusgeschieden4, u"Schritt 4: AUSGESCHIEDEN - keine Milchmenge"_s,
        u"Anzahl der Personen: 1"_s}},
      false);
  seite.lblErgebnis4Ueber50000.sichtbar = false;
  EXPECT_EQ(ausgaben4(umgebung, seiten)[0].untertitel, u"Anzahl der Personen: 2"_s);
}

TEST_F(ListenausgabeTest, ThePriceIsThatOfGermanSettingsWithTheUsersDecimalSign) {
  struct Fall {
    QChar dezimal, gruppierung;
    QString betrag, menge, preis;
  };
  const Fall faelle[] = {
      {u',', u'.', u"100000"_s, u"1.234.567"_s, u"8,1000"_s},
      {u',', u'.', u"100.000,00 €"_s, u"1.234.567"_s, u"8,1000"_s},
      {u',', u'.', u"-1.000,00 €"_s, u"12.345"_s, u"-8,1004"_s},
      {u',', u'.', u"100"_s, u"1.000"_s, u"10,0000"_s},
      {u',', u'.', u"100"_s, u"999"_s, u"0,0100"_s},  // no point: read as it stands
      {u',', u'.', u"1.000.000,00 €"_s, u"1.000"_s, u"100000,0000"_s},
      {u'.', QChar(0x2019), u"CHF 100’000.00"_s, u"1’234’567"_s, u"8.1000"_s},
      {u'.', u',', u"€100,000.00"_s, u"1,234,567"_s, u"8.1000"_s},
      {u',', QChar(0xa0), u"100 000,00 €"_s, u"1 234 567"_s, u"8,1000"_s},
      {u',', QChar(), u"100000,00 €"_s, u"1234567"_s, u"8,1000"_s},
      {u',', u'.', u"100"_s, u"0"_s, u"-"_s},
      {u',', u'.', u"100"_s, QString(), u"-"_s},
  };
  for (const Fall& fall : faelle) {
    programm.gebietsschema.zeichen.dezimal = fall.dezimal;
    programm.gebietsschema.zeichen.gruppierung = fall.gruppierung;
    seiten.seite4.txtGesamtbetrag.text = fall.betrag;
    seiten.seite4.lblMengeFuerBerechnung.text = fall.menge;
    EXPECT_EQ(ausgaben4(umgebung, seiten)[0].titel, u"Schritt 4: Auszahlung berechnen      "_s + fall.betrag +
                                                        u"  /  "_s + fall.menge + u" kg Milch = "_s +
                                                        fall.preis + u" Cent pro kg"_s);
  }
}

TEST_F(ListenausgabeTest, HeadingsOfStepFive) {
  Seite5& seite = seiten.seite5;
  Beschriftung* const summen[] = {&seite.lbl10Netto,   &seite.lbl10Steuer,   &seite.lbl10Brutto,
                                  &seite.lbl12Netto,   &seite.lbl12Steuer,   &seite.lbl12Brutto,
                                  &seite.lblAlleNetto, &seite.lblAlleSteuer, &seite.lblAlleBrutto};
  for (int i = 0; i < 9; ++i) summen[i]->text = QString::number(i + 1) + u",00 €"_s;
  seite.lblErgebnis5.text = u"8"_s;
  seite.lblAusgeschieden5.text = u"1"_s;
  vergleichen(
      ausgaben5,
      {{&seite.lvwListe5,
        u"Schritt 5: Datenträger erstellen:  Netto: 7,00 €,  Steuer: 8,00 €,  Brutto: 9,00 €"_s,
        u"10% ( Netto: 1,00 €,  Steuer: 2,00 €,  Brutto: 3,00 € )    13%: ( Netto: 4,00 €,  Steuer: 5,00 €,  "
        "Brutto: 6,00 € )"_s},
       {&seite.lvwAusgeschieden5, u"Schritt 5: AUSGESCHIEDEN - keine Bankverbindung"_s,
        u"Anzahl der Personen: 1"_s}},
      false);
}

}  // namespace
}  // namespace pelvanto
