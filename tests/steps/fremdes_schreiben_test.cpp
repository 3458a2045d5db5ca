// Another program writes into the database while a step reads it.
#include "steps/schritte_fixture.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

struct Schrittfall {
  const char* name;
  QString prozedur;
  void (*ausfuehren)(Umgebung&, Seiten&);
  Liste& (*liste)(Seiten&);
  Beschriftung& (*zaehler)(Seiten&);
  Knopf& (*weiter)(Seiten&);
};

const Schrittfall kSchritte[] = {
    {"1", u"ListeFuellen1"_s, cmdErgebnisZeigen1_Click,
     [](Seiten& s) -> Liste& { return s.seite1.lvwListe1; },
     [](Seiten& s) -> Beschriftung& { return s.seite1.lblErgebnis1; },
     [](Seiten& s) -> Knopf& { return s.seite1.cmdWeiter1; }},
    {"2", u"ListeFuellen2"_s, cmdErgebnisZeigen2_Click,
     [](Seiten& s) -> Liste& { return s.seite2.lvwListe2; },
     [](Seiten& s) -> Beschriftung& { return s.seite2.lblErgebnis2; },
     [](Seiten& s) -> Knopf& { return s.seite2.cmdWeiter2; }},
    {"3a", u"ListeFuellen3"_s, cmdErgebnisZeigen3_Click,
     [](Seiten& s) -> Liste& { return s.seite3.lvwListe3; },
     [](Seiten& s) -> Beschriftung& { return s.seite3.lblErgebnis3; },
     [](Seiten& s) -> Knopf& { return s.seite3.cmdWeiter3; }},
    {"3b", u"ListeFuellen3b"_s, cmdErgebnisZeigen3b_Click,
     [](Seiten& s) -> Liste& { return s.seite3b.lvwListe3b; },
     [](Seiten& s) -> Beschriftung& { return s.seite3b.lblErgebnis3b; },
     [](Seiten& s) -> Knopf& { return s.seite3b.cmdWeiter3b; }},
    {"4", u"ListeFuellen4"_s, cmdErgebnisZeigen4_Click,
     [](Seiten& s) -> Liste& { return s.seite4.lvwListe4; },
     [](Seiten& s) -> Beschriftung& { return s.seite4.lblErgebnis4; },
     [](Seiten& s) -> Knopf& { return s.seite4.cmdWeiter4; }},
    {"5", u"DatentraegerDatenSammeln"_s, cmdErgebnisZeigen5_Click,
     [](Seiten& s) -> Liste& { return s.seite5.lvwListe5; },
     [](Seiten& s) -> Beschriftung& { return s.seite5.lblErgebnis5; },
     [](Seiten& s) -> Knopf& { return s.seite5.cmdDatentraegerErstellen; }},
};

class FremdesSchreibenTest : public SchritteTest, public testing::WithParamInterface<Schrittfall> {
 protected:
  FremdesSchreibenTest() {
    mitglied(1, 10, u"Maier");
    mitglied(2, 20, u"Huber");
    datenbank.mitglied(1, kBio).mitglied(2, kBio).mitglied(1, kMilch, 10);
    anlegen();
    seiten.seite3.txtGruppeNotwendig.text = seiten.seite3b.txtGruppeNotwendig3b.text = u"Bio-Betriebe"_s;
    seiten.seite2.lblErgebnis2Geloescht.text = u"4"_s;
    bisSchritt(5);
    programm.dateien.loeschen(u"/prog/26_03_16.txt"_s);
  }
};

TEST_P(FremdesSchreibenTest, OnceTheStepRepeatsItself) {
  const QStringList vorher = zeilen(GetParam().liste(seiten));
  ASSERT_EQ(vorher.size(), 2);
  programm.jet.fremdeSchreibvorgaenge = 1;
  GetParam().ausfuehren(umgebung, seiten);
  EXPECT_EQ(zeilen(GetParam().liste(seiten)), vorher);
  EXPECT_EQ(GetParam().zaehler(seiten).text, u"2"_s);
  EXPECT_TRUE(GetParam().weiter(seiten).ein);
  EXPECT_EQ(meldung(), Meldung{});
  EXPECT_EQ(programm.protokoll().value(0),
            GetParam().prozedur +
                u": Ein anderes Programm hat die Datenbank während des Lesens geändert, der Schritt "
                "wird wiederholt."_s);
  EXPECT_EQ(seiten.seite2.lblErgebnis2Geloescht.text, u"4"_s);
}

TEST_P(FremdesSchreibenTest, TwiceItSaysSoAndNobodyGoesOn) {
  programm.jet.fremdeSchreibvorgaenge = 2;
  GetParam().ausfuehren(umgebung, seiten);
  const Meldung gezeigt = meldung();
  EXPECT_EQ(gezeigt.symbol, Symbol::Ausrufezeichen);
  EXPECT_TRUE(gezeigt.text.contains(u"zweimal von einem anderen Programm geändert"_s))
      << gezeigt.text.toStdString();
  EXPECT_EQ(GetParam().liste(seiten).anzahl(), 0);
  EXPECT_EQ(GetParam().zaehler(seiten).text, u"0"_s);
  EXPECT_FALSE(GetParam().weiter(seiten).ein);
  EXPECT_FALSE(programm.oberflaeche.sanduhrAn);
  EXPECT_EQ(programm.fehlerprotokoll().size(), 1);
  if (GetParam().prozedur == u"DatentraegerDatenSammeln"_s) {
    EXPECT_EQ(seiten.ueberweisungT, UeberweisungT{}) << "nothing is left that could be paid";
  }

  GetParam().ausfuehren(umgebung, seiten);
  EXPECT_EQ(GetParam().liste(seiten).anzahl(), 2) << "when it is quiet again the step runs";
  EXPECT_TRUE(GetParam().weiter(seiten).ein);
}

TEST_P(FremdesSchreibenTest, AFailureDuringTheChangeIsNotReportedButRepeated) {
  // At the first reading the file is half written: the pages of persons claim rows that are not there.
  const QByteArray heil = programm.dateien.inhalt(programm.werte.DatenbankPfad);
  const int ersteOeffnung = programm.jet.oeffnungen + 1;
  QByteArray halb = heil;
  for (qsizetype seite = 4096; seite < halb.size(); seite += 4096) {
    if (halb[seite] == '\x01' && halb.mid(seite, 4096).contains("Maier"))
      halb.replace(seite + 12, 2, "\xff\x7f");
  }
  ASSERT_NE(halb, heil);
  programm.dateien.anlegen(programm.werte.DatenbankPfad, halb);
  programm.jet.fremdeSchreibvorgaenge = 1;
  programm.jet.beimOeffnen = [&](int nummer) {
    // By the time the stamp is compared, the other program has finished.
    if (nummer > ersteOeffnung && programm.jet.fremdeSchreibvorgaenge == 0) {
      programm.dateien.anlegen(programm.werte.DatenbankPfad, heil);
    }
  };
  GetParam().ausfuehren(umgebung, seiten);
  EXPECT_EQ(meldung(), Meldung{});
  EXPECT_EQ(GetParam().liste(seiten).anzahl(), 2);
  EXPECT_TRUE(GetParam().weiter(seiten).ein);
}

INSTANTIATE_TEST_SUITE_P(Schritte, FremdesSchreibenTest, testing::ValuesIn(kSchritte),
                         [](const auto& fall) { return std::string("Schritt") + fall.param.name; });

}  // namespace
}  // namespace pelvanto
