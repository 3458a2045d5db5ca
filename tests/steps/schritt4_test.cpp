#include "steps/schritte_fixture.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

class Schritt4Test : public SchritteTest {
 protected:
  Seite4& seite = seiten.seite4;

  void ausfuehren() { cmdErgebnisZeigen4_Click(umgebung, seiten); }
};

TEST_F(Schritt4Test, QuantitiesBasisAndRatesFollowTheMembers) {
  mitglied({.id = 1, .namen = u"a", .adresse = u"Linz", .uidNummer = u"ATU12345"}, 50000);
  mitglied({.id = 2, .namen = u"b", .uidNummer = u"ATU1234"}, 50001);
  mitglied({.id = 3, .namen = u"c", .uidNummer = u"  ATU1234  "}, 49999);
  mitglied({.id = 4, .namen = u"d", .telefon = u"07224"}, 0);
  mitglied({.id = 5, .namen = u"e", .ustPauschaliert = true}, std::nullopt);
  mitglied({.id = 6, .namen = u"f", .uidNummer = u""}, 1);
  mitglied({.id = 7, .namen = u"g"}, 8);
  anlegen();
  seite.txtGesamtbetrag.text = u"15.000,10"_s;
  bisSchritt(3);
  // Meanwhile g has left the delivery group.
  std::erase_if(datenbank.daten.mitglieder,
                [](const auto& m) { return m.person == 7 && m.gruppe == kMilch; });
  anlegen();
  ausfuehren();
  EXPECT_EQ(zeilen(seite.lvwListe4),
            QStringList({u"1|a|Linz|50.000|50.000|5.000,03 €|10"_s, u"2|b||50.001|50.000|5.000,03 €|13"_s,
                         u"3|c||49.999|49.999|4.999,93 €|13"_s, u"6|f||1|1|0,10 €|13"_s}));
  EXPECT_EQ(zeilen(seite.lvwAusgeschieden4), QStringList({u"4|d||07224"_s, u"5|e||"_s}));
  EXPECT_EQ(seite.lblMengeFuerBerechnung.text, u"150.000"_s);
  EXPECT_EQ(seite.lblMengeGesamt.text, u"150.001"_s);
  EXPECT_EQ(seite.lblPreisProKilo.text, u"0,100 €"_s);
  EXPECT_EQ(seite.lblVerteilt.text, u"15.000,09 €"_s) << "nobody spreads the difference of the rounding";
  EXPECT_EQ(seite.lblErgebnis4.text + u'/' + seite.lblErgebnis4Ueber50000.text + u'/' +
                seite.lblAusgeschieden4.text,
            u"4/1/2"_s);
  EXPECT_TRUE(seite.cmdDrucken4.ein && seite.cmdSerienbriefe4.ein && seite.cmdSerienbriefe4Ausgeschieden.ein);
  EXPECT_FALSE(seite.lblAusgeschieden4Geloescht.sichtbar);
  EXPECT_EQ(meldung(), Meldung{});

  const auto spalte = [&](int i) { return seite.lvwListe4.spalten()[static_cast<std::size_t>(i)]; };
  EXPECT_EQ(spalte(5), (Spalte{u"Netto"_s, u"Netto"_s, 1084, Ausrichtung::Rechts}));
  EXPECT_EQ(spalte(6), (Spalte{u"Ust"_s, u"Ust."_s, 651, Ausrichtung::Rechts}));
  // The headers stay as they are when the step runs again.
  seite.lvwListe4.spaltenbreiteSetzen(1, 77);
  ausfuehren();
  EXPECT_EQ(spalte(1).breite, 77);
}

TEST_F(Schritt4Test, TheTotalAloneCanChange) {
  for (int id = 1; id <= 3; ++id) mitglied(id, 1, std::u16string(1, static_cast<char16_t>(u'a' + id)));
  anlegen();
  bisSchritt(3);
  const std::pair<QString, QStringList> faelle[] = {
      {u"10.000,00"_s, {"3.333,33 €", "9.999,99 €", "3333,333 €"}},
      {u"0,375"_s, {"0,12 €", "0,36 €", "0,125 €"}},
      {u"unlesbar"_s, {"0,00 €", "0,00 €", "0,000 €"}},
  };
  for (const auto& [gesamt, erwartet] : faelle) {
    SCOPED_TRACE(gesamt.toStdString());
    seite.txtGesamtbetrag.text = gesamt;
    ausfuehren();
    EXPECT_EQ(feld(seite.lvwListe4, 4), QStringList({erwartet[0], erwartet[0], erwartet[0]}));
    EXPECT_EQ(seite.lblVerteilt.text, erwartet[1]);
    EXPECT_EQ(seite.lblPreisProKilo.text, erwartet[2]);
  }
}

TEST_F(Schritt4Test, AnEmptySourceLeavesTheLabelsOfTheRunBefore) {
  mitglied(1, 10, u"a");
  anlegen();
  bisSchritt(4);
  seiten.seite3b.lvwListe3b.leeren();
  ausfuehren();
  EXPECT_EQ(seite.lvwListe4.anzahl(), 0);
  EXPECT_EQ(seite.lblErgebnis4.text, u"1"_s);
  EXPECT_EQ(seite.lblVerteilt.text, u"1.000,00 €"_s);
  EXPECT_TRUE(seite.cmdDrucken4.ein && seite.cmdSerienbriefe4.ein);
}

TEST_F(Schritt4Test, NobodyWithMilkSwitchesPrintingOff) {
  mitglied(1, 0, u"a");
  anlegen();
  bisSchritt(4);
  EXPECT_FALSE(seite.cmdDrucken4.ein || seite.cmdSerienbriefe4.ein ||
               seite.cmdSerienbriefe4Ausgeschieden.ein);
  EXPECT_EQ(seite.lblVerteilt.text, u"0,00 €"_s);
  EXPECT_EQ(seite.lblPreisProKilo.text, QString());
  EXPECT_TRUE(seite.lvwListe4.spalten().empty()) << "headers come with the first row";
  EXPECT_TRUE(seite.cmdWeiter4.ein);
}

TEST_F(Schritt4Test, QuantitiesThatAddUpToNothingStopBeforeAnyAmount) {
  mitglied(1, 5, u"a");
  mitglied(2, -5, u"b");
  anlegen();
  bisSchritt(4);
  const Meldung gezeigt = meldung();
  EXPECT_TRUE(gezeigt.text.startsWith(u"Die Mengen für die Berechnung ergeben zusammen 0 kg."_s))
      << gezeigt.text.toStdString();
  EXPECT_EQ(gezeigt.symbol, Symbol::Kritisch);
  EXPECT_EQ(feld(seite.lvwListe4, 4), QStringList({QString(), QString()}));
  EXPECT_EQ(seite.lblErgebnis4.text, u"2"_s);
  EXPECT_FALSE(seite.cmdWeiter4.ein);

  datenbank.daten.mitglieder.clear();
  datenbank.mitglied(1, kMilch, 15).mitglied(2, kMilch, -5);
  anlegen();
  ausfuehren();
  EXPECT_EQ(meldung(), Meldung{});
  EXPECT_EQ(feld(seite.lvwListe4, 4), QStringList({u"1.500,00 €"_s, u"-500,00 €"_s})) << "taken literally";
  EXPECT_TRUE(seite.cmdWeiter4.ein);
}

TEST_F(Schritt4Test, AProductThatDoesNotFitStopsBeforeAnyAmount) {
  mitglied(1, 1, u"a");
  mitglied(2, 50000, u"b");
  anlegen();
  seite.txtGesamtbetrag.text = u"18.446.744.073,71"_s;
  bisSchritt(4);
  EXPECT_TRUE(meldung().text.startsWith(u"Der Gesamtbetrag ist zu groß"_s));
  EXPECT_EQ(feld(seite.lvwListe4, 4), QStringList({QString(), QString()}));
  EXPECT_FALSE(seite.cmdWeiter4.ein);
}

TEST_F(Schritt4Test, ATotalThatDoesNotFitIsToldBeforeAnythingIsRead) {
  mitglied(1, 1, u"a");
  anlegen();
  bisSchritt(4);
  seite.txtGesamtbetrag.text = u"922.337.203.685.477,59"_s;
  ausfuehren();
  EXPECT_TRUE(meldung().text.startsWith(u"Der Gesamtbetrag ist zu groß"_s));
  EXPECT_EQ(seite.lvwListe4.anzahl(), 0);
  EXPECT_EQ(seite.lblErgebnis4.text + u'/' + seite.lblAusgeschieden4.text, u"0/0"_s);
  EXPECT_EQ(seite.lblVerteilt.text, u"0,00 €"_s);
  EXPECT_FALSE(seite.cmdWeiter4.ein);

  seite.txtGesamtbetrag.text = u"7"_s;
  ausfuehren();
  EXPECT_EQ(feld(seite.lvwListe4, 4), QStringList(u"7,00 €"_s));
  EXPECT_TRUE(seite.cmdWeiter4.ein);
}

TEST_F(Schritt4Test, TheTotalShowsAsAnAmountWhenItsFieldIsLeft) {
  const std::pair<QString, QString> faelle[] = {
      {u"12000"_s, u"12.000,00 €"_s},
      {u"12.000,50"_s, u"12.000,50 €"_s},
      {u"12,000.50"_s, u"12.000,50 €"_s},
      {u"12.000,50 €"_s, u"12.000,50 €"_s},
      {QString(), u"0,00 €"_s},
      {u"-5"_s, u"-5,00 €"_s},
      {u"99999999999999999"_s, u"99999999999999999"_s},
  };
  for (const auto& [eingabe, erwartet] : faelle) {
    seite.txtGesamtbetrag.text = eingabe;
    txtGesamtbetrag_LostFocus(umgebung, seite);
    EXPECT_EQ(seite.txtGesamtbetrag.text, erwartet) << eingabe.toStdString();
  }
}

}  // namespace
}  // namespace pelvanto
