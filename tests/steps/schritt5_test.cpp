#include "steps/schritte_fixture.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

class Schritt5Test : public SchritteTest {
 protected:
  Seite5& seite = seiten.seite5;

  void ausfuehren() { cmdErgebnisZeigen5_Click(umgebung, seiten); }
  void dateiErstellen() { cmdDatentraegerErstellen_Click(umgebung, seiten); }
  void eigenesKonto() {
    programm.dateien.anlegen(
        programm.werte.INIDatei,
        "[Auszahlungen]\r\nEigeneIBAN=AT61 1904 3002 3457 3201\r\nEigeneBIC=MUSTAT2LXXX\r\n");
  }
};

TEST_F(Schritt5Test, NoFileIsWrittenWhileTheOwnAccountCannotBeRead) {
  mitglied(1, 100, u"Huber");
  anlegen();
  bisSchritt(4);
  eigenesKonto();
  ausfuehren();
  const auto sperren = [&](bool ja) { programm.dateien.datei(programm.werte.INIDatei)->gesperrt = ja; };
  sperren(true);
  dateiErstellen();
  ASSERT_EQ(programm.meldungen.gezeigt.size(), 1U);
  EXPECT_TRUE(programm.meldungen.texte().front().contains(programm.werte.INIDatei));
  EXPECT_FALSE(programm.dateien.existiert("/prog/UE26001.xml"));
  EXPECT_TRUE(seite.cmdDatentraegerErstellen.ein);
  sperren(false);
  dateiErstellen();
  EXPECT_TRUE(programm.dateien.inhalt("/prog/UE26001.xml").contains("AT611904300234573201"));
}

TEST_F(Schritt5Test, BankDetailsDecideWhoIsPaid) {
  struct Fall {
    std::u16string iban, bic;
    bool bezahlt;
    QString kundeIBAN = {}, kundeBIC = {}, gezeigteBIC = {};
  };
  const std::u16string iban20 = u"AT611904300234573201";
  const Fall faelle[] = {
      {u"AT61 1904 3002 3457 3201", u"MUSTAT2L", true, u"AT611904300234573201"_s, u"MUSTAT2L"_s,
       u"MUSTAT2L"_s},
      {u"AT61190430023457320", u"MUSTAT2LXXX", false},
      {iban20, u"MUSTAT2", false},
      {iban20, u"MUSTAT2 ", true, u"AT611904300234573201"_s, u"MUSTAT2 "_s, u"MUSTAT2"_s},
      {iban20, u"  MUSTAT2LXXX  ", true, u"AT611904300234573201"_s, u"MUSTAT2LXXX"_s, u"MUSTAT2LXXX"_s},
      {iban20, u"MUSTAT2LXXXX", false},
      {iban20, u"MUSTAT2 LXXX", false},
      {u"BE68 5390 0754 7034 ", u"MUSTAT2L", true, u"BE68539007547034"_s, u"MUSTAT2L"_s, u"MUSTAT2L"_s},
      {std::u16string(35, u'1'), u"MUSTAT2L", true, QString(35, u'1'), u"MUSTAT2L"_s, u"MUSTAT2L"_s},
      {std::u16string(36, u'1'), u"MUSTAT2L", false},
      {u"", u"", false},
  };
  int id = 100;
  for (const Fall& fall : faelle) {
    ++id;
    mitglied({.id = id,
              .namen = u"P" + std::u16string(1, static_cast<char16_t>(u'A' + id - 101)),
              .telefon = u"1",
              .iban = fall.iban,
              .bic = fall.bic},
             1);
  }
  anlegen();
  bisSchritt(5);
  ASSERT_TRUE(seiten.ueberweisungT);
  std::size_t zeile = 0;
  int ausgeschieden = 0;
  id = 100;
  for (const Fall& fall : faelle) {
    ++id;
    SCOPED_TRACE(id);
    if (!fall.bezahlt) {
      ASSERT_LT(ausgeschieden, seite.lvwAusgeschieden5.anzahl());
      EXPECT_EQ(seite.lvwAusgeschieden5.zeilen()[static_cast<std::size_t>(ausgeschieden++)].id(), id);
      continue;
    }
    ASSERT_LT(zeile, seiten.ueberweisungT->size());
    const Ueberweisung& ueberweisung = (*seiten.ueberweisungT)[zeile];
    EXPECT_EQ(ueberweisung.KundenID, QString::number(id));
    EXPECT_EQ(ueberweisung.AuftraggeberReferenz, u"MitgliedID"_s + QString::number(id));
    EXPECT_EQ(ueberweisung.KundeIBAN, fall.kundeIBAN);
    EXPECT_EQ(ueberweisung.KundeBIC, fall.kundeBIC);
    EXPECT_EQ(seite.lvwListe5.zeilen()[zeile].texte[2], fall.gezeigteBIC);
    ++zeile;
  }
  EXPECT_EQ(zeile, seiten.ueberweisungT->size());
  EXPECT_EQ(seite.lblErgebnis5.text, QString::number(zeile));
  EXPECT_EQ(seite.lblAusgeschieden5.text, QString::number(ausgeschieden));
}

TEST_F(Schritt5Test, TaxesAndSumsByRate) {
  mitglied({.id = 1, .namen = u"a", .adresse = u"Linz"}, 20000);
  mitglied({.id = 2, .namen = u"b", .uidNummer = u"ATU12345678"}, 5);
  mitglied({.id = 3, .namen = u"c"}, 1);
  mitglied({.id = 4, .namen = u"d"}, 50);
  anlegen();
  seiten.seite4.txtGesamtbetrag.text = u"1.002,80"_s;  // 0.05 for each kg
  bisSchritt(4);
  seiten.seite4.lvwListe4.textSetzen(3, 5, u"20"_s);
  ausfuehren();
  EXPECT_EQ(zeilen(seite.lvwListe5),
            QStringList({u"1|a|Linz|MUSTAT2LXXX|AT611904300234573201|1.000,00 €|13%|130,00 €|1.130,00 €"_s,
                         u"2|b||MUSTAT2LXXX|AT611904300234573201|0,25 €|10%|0,02 €|0,27 €"_s,
                         u"3|c||MUSTAT2LXXX|AT611904300234573201|0,05 €|13%|0,01 €|0,06 €"_s,
                         u"4|d||MUSTAT2LXXX|AT611904300234573201|2,50 €|20%|0,50 €|3,00 €"_s}));
  EXPECT_EQ(meldung(), (Meldung{u"Ungültiger Steuersatz!"_s, Symbol::Kritisch}));
  EXPECT_EQ(seite.lbl10Netto.text + u'/' + seite.lbl10Steuer.text + u'/' + seite.lbl10Brutto.text,
            u"0,25 €/0,02 €/0,27 €"_s);
  EXPECT_EQ(seite.lbl12Netto.text + u'/' + seite.lbl12Steuer.text + u'/' + seite.lbl12Brutto.text,
            u"1.000,05 €/130,01 €/1.130,06 €"_s);
  EXPECT_EQ(seite.lblAlleNetto.text + u'/' + seite.lblAlleSteuer.text + u'/' + seite.lblAlleBrutto.text,
            u"1.000,30 €/130,03 €/1.130,33 €"_s);
  EXPECT_EQ(seiten.ueberweisungT->size(), 4U) << "the wrong rate is in no sum, but is paid";
  EXPECT_EQ(seiten.ueberweisungT->back().EinzelBetrag, Waehrung::ausCent(300));
}

TEST_F(Schritt5Test, TextsAreTrimmedAndCutForTheTransferOnly) {
  const std::u16string lang = std::u16string(69, u'ä') + u"\U0001F404xyz";  // a pair of surrogates at the cut
  mitglied({.id = 1, .namen = u" " + lang + u" ", .adresse = u"\tLinz "}, 1);
  anlegen();
  seite.txtWortlautUeberweisung.text = u"  Bonus "_s + QString(80, u'b');
  bisSchritt(5);
  const Ueberweisung& ueberweisung = seiten.ueberweisungT->front();
  EXPECT_EQ(ueberweisung.KundeName, QString(69, u'ä'));
  EXPECT_EQ(ueberweisung.KundeAdresse, u"\tLinz"_s);
  EXPECT_EQ(ueberweisung.Verwendungszweck, u"Bonus "_s + QString(64, u'b'));
  EXPECT_EQ(seite.lvwListe5.zeilen()[0].texte[0].toStdU16String(), u" " + lang + u" ");
}

TEST_F(Schritt5Test, WhoHasGoneIsSkippedWithALine) {
  mitglied(1, 1, u"a");
  mitglied(2, 1, u"b");
  anlegen();
  bisSchritt(4);
  std::erase_if(datenbank.daten.personen, [](const auto& person) { return person.id == 1; });
  anlegen();
  ausfuehren();
  EXPECT_EQ(feld(seite.lvwListe5, 0), QStringList("b"));
  EXPECT_EQ(seite.lvwAusgeschieden5.anzahl(), 0);
  EXPECT_EQ(programm.protokoll(),
            QStringList(u"Person 1 wurde in der Namensliste nicht gefunden und wurde übersprungen."_s));
  EXPECT_EQ(meldung(), Meldung{});
}

TEST_F(Schritt5Test, ADatabaseThatDoesNotOpenShowsZerosAndAllowsNoFile) {
  mitglied(1, 1, u"a");
  anlegen();
  bisSchritt(5);
  ASSERT_TRUE(seite.cmdDatentraegerErstellen.ein);
  programm.jet.gesperrteOeffnungen = 1000;
  ausfuehren();
  EXPECT_EQ(meldung(), Meldung{});
  EXPECT_EQ(seite.lvwListe5.anzahl(), 0);
  EXPECT_EQ(seite.lblErgebnis5.text + u'/' + seite.lblAlleBrutto.text, u"0/0,00 €"_s);
  EXPECT_EQ(seiten.ueberweisungT, UeberweisungT{});
  EXPECT_FALSE(seite.cmdDatentraegerErstellen.ein || seite.cmdDrucken5.ein || seite.cmdSerienbriefe5.ein ||
               seite.cmdSerienbriefe5Ausgeschieden.ein);
}

TEST_F(Schritt5Test, AnEmptySourceLeavesTheResultsBefore) {
  mitglied(1, 1, u"a");
  anlegen();
  bisSchritt(5);
  const auto tabelle = seiten.ueberweisungT;
  seiten.seite4.lvwListe4.leeren();
  ausfuehren();
  EXPECT_EQ(seite.lvwListe5.anzahl(), 1);
  EXPECT_EQ(seiten.ueberweisungT, tabelle);
  EXPECT_TRUE(seite.cmdDatentraegerErstellen.ein);

  // Without any run before there is nothing.
  Seiten neu;
  cmdErgebnisZeigen5_Click(umgebung, neu);
  EXPECT_FALSE(neu.ueberweisungT);
  EXPECT_FALSE(neu.seite5.cmdDrucken5.ein || neu.seite5.cmdDatentraegerErstellen.ein);
}

TEST_F(Schritt5Test, OneRunGivesOneFile) {
  mitglied(1, 1, u"a");
  anlegen();
  eigenesKonto();
  bisSchritt(5);
  dateiErstellen();
  const Meldung gezeigt = meldung();
  EXPECT_EQ(gezeigt, (Meldung{u"Die Datei /prog/UE26001.xml wurde erstellt. Soll eine Liste über alle "
                              "Überweisungen in dieser Datei erstellt werden?"_s,
                              Symbol::Frage, Knoepfe::JaNein}));
  EXPECT_TRUE(programm.drucker.dokumente.empty()) << "the question was answered with No";
  const QByteArray datei = programm.dateien.inhalt(u"/prog/UE26001.xml"_s);
  EXPECT_TRUE(datei.contains("<IBAN>AT611904300234573201</IBAN>"));
  EXPECT_TRUE(datei.contains("<CtrlSum>1130.00</CtrlSum>"));
  EXPECT_FALSE(seiten.ueberweisungT);
  EXPECT_FALSE(seite.cmdDatentraegerErstellen.ein);

  // A second press has nothing to write, and an empty run of step 5 does not bring the table back.
  dateiErstellen();
  EXPECT_EQ(meldung(), Meldung{});
  EXPECT_TRUE(programm.protokoll().contains(u"UeberweisungT hat keine Datensätze."_s));
  const std::vector<Zeile> zeilen4 = seiten.seite4.lvwListe4.zeilen();
  seiten.seite4.lvwListe4.leeren();
  ausfuehren();
  EXPECT_FALSE(seite.cmdDatentraegerErstellen.ein);
  EXPECT_FALSE(programm.dateien.existiert(u"/prog/UE26002.xml"_s));

  seiten.seite4.lvwListe4.hinzufuegen(zeilen4);
  ausfuehren();
  EXPECT_TRUE(seite.cmdDatentraegerErstellen.ein);
  programm.meldungen.antworten = {Antwort::Ja};
  dateiErstellen();
  ASSERT_EQ(programm.drucker.dokumente.size(), 1U);
  const auto& texte = programm.drucker.dokumente[0].seiten[0].texte;
  EXPECT_EQ(texte[2].text, u"Überweisung-Datei          /prog/UE26002.xml"_s);
  EXPECT_EQ(texte[3].text, u"AT61 1904 3002 3457 3201           MUSTAT2LXXX"_s);
  EXPECT_EQ(texte.back().text, u"1.130,00 €"_s);
  EXPECT_TRUE(programm.dateien.existiert(u"/prog/UE26002.xml"_s));
}

TEST_F(Schritt5Test, AFileThatIsRefusedStillReleasesTheTable) {
  mitglied(1, 1, u"a");
  anlegen();
  bisSchritt(5);
  dateiErstellen();  // there are no settings
  EXPECT_EQ(meldung(),
            (Meldung{u"Offensichtlich wurde die BIC des Auftraggebers nicht erfasst."_s, Symbol::Kritisch}));
  EXPECT_FALSE(seiten.ueberweisungT);
  EXPECT_FALSE(seite.cmdDatentraegerErstellen.ein);
}

}  // namespace
}  // namespace pelvanto
