#include "lists/liste_drucken.h"

#include <cstring>
#include <gtest/gtest.h>

#include "common/ausgabe.h"
#include "common/druckwelt.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

using test::Druckseite;
using test::FakeDrucker;
using test::Gedrucktes;
using test::Textstelle;

std::vector<Spalte> spaltenDrucken(std::initializer_list<std::pair<int, Ausrichtung>> spalten) {
  std::vector<Spalte> alle{{u"ID"_s, u"ID"_s, 0}};
  for (const auto& [breite, ausrichtung] : spalten) {
    const QString name = u"S%1"_s.arg(alle.size());
    alle.push_back({name, name, breite, ausrichtung});
  }
  return alle;
}
constexpr auto L = Ausrichtung::Links, R = Ausrichtung::Rechts, M = Ausrichtung::Mitte;

// X and Druckbreite of each column between 20 and 277 mm.
std::vector<std::pair<int, int>> stellen(const std::vector<Spalte>& spalten) {
  std::vector<std::pair<int, int>> stellen;
  for (const DruckSpalte& spalte : druckSpalten(spalten, 20, 277)) {
    stellen.emplace_back(spalte.X, spalte.Druckbreite);
  }
  return stellen;
}
using Stellen = std::vector<std::pair<int, int>>;

TEST(DruckSpaltenTest, KeepTheProportionsOfTheScreen) {
  // 257 mm for 2570 twips: 100 twips are 10 mm.
  EXPECT_EQ(stellen(spaltenDrucken({{1000, L}, {500, L}, {1070, L}})),
            Stellen({{20, 0}, {20, 100}, {120, 50}, {170, 107}}));
  EXPECT_EQ(stellen(spaltenDrucken({{1000, L}, {500, R}, {0, L}, {1070, R}})),
            Stellen({{20, 0}, {20, 150}, {170, 150}, {170, 107}, {277, 107}}));
  EXPECT_EQ(stellen(spaltenDrucken({{1000, L}, {500, M}, {1070, M}})),
            Stellen({{20, 0}, {20, 100}, {120, 104}, {224, 0}}));  // 223.5
  std::vector<Spalte> ohneID = spaltenDrucken({{1000, M}, {500, R}, {1070, L}});
  ohneID.erase(ohneID.begin());
  EXPECT_EQ(stellen(ohneID), Stellen({{70, 0}, {170, 100}, {170, 107}}));
  ohneID[0].ausrichtung = R;
  EXPECT_EQ(stellen(ohneID), Stellen({{120, 100}, {170, 50}, {170, 107}}));
  // Half a millimetre goes to the even number.
  EXPECT_EQ(stellen(spaltenDrucken({{1005, L}, {510, L}, {1055, L}})),
            Stellen({{20, 0}, {20, 100}, {120, 52}, {172, 105}}));
  EXPECT_EQ(stellen(spaltenDrucken({{0, L}, {0, R}})), Stellen({{20, 0}, {20, 0}, {20, 0}}));
  EXPECT_EQ(druckSpalten({{u"K"_s, QString(60, u'x'), 100}}, 20, 277)[0].Text, QString(50, u'x'));
}

class ListeDruckenTest : public testing::Test {
 protected:
  ListeDruckenTest() { liste.spaltenSetzen(spaltenDrucken({{1000, L}, {500, R}, {1070, M}})); }

  void fuellen(int zeilen, const QStringList& texte = {u"Anna"_s, u"1,50"_s, u"ja"_s}) {
    for (int i = 0; i < zeilen; ++i) liste.hinzufuegen(zeilenschluessel(liste.anzahl() + 1), texte);
  }
  bool drucken(bool ohneFuenferabstand = true) {
    return welt.listen.ListeDrucken(liste, u"Titel"_s, u"Untertitel"_s, ohneFuenferabstand);
  }
  // What stands between header and footer.
  static std::vector<Textstelle> inhalt(const Druckseite& seite) {
    std::vector<Textstelle> texte;
    for (const Textstelle& text : seite.texte) {
      if (text.y > 21 && text.y < 190) texte.push_back(text);
    }
    return texte;
  }
  std::vector<Textstelle> inhalt(std::size_t seite = 0) {
    return inhalt(drucker.dokumente.back().seiten.at(seite));
  }
  // Where the rows of a page begin.
  std::vector<double> zeilen(std::size_t seite) {
    std::vector<double> hoehen;
    for (const Textstelle& text : inhalt(seite)) {
      if (text.x == 20 && !text.schrift.kursiv) hoehen.push_back(text.y);
    }
    return hoehen;
  }

  FakeDrucker drucker;
  test::Druckwelt welt{drucker};
  Liste liste{{}};
};

TEST_F(ListeDruckenTest, TheFrameOfEveryPage) {
  fuellen(40);
  ASSERT_TRUE(drucken());
  ASSERT_EQ(drucker.dokumente.size(), 1U);
  const Gedrucktes& dokument = drucker.dokumente[0];
  EXPECT_EQ(dokument.name, u"Titel");
  EXPECT_TRUE(dokument.beendet);
  ASSERT_EQ(dokument.seiten.size(), 2U);
  for (std::size_t i = 0; i < 2; ++i) {
    const Druckseite& seite = dokument.seiten[i];
    ASSERT_EQ(seite.striche.size(), 2U);
    for (const auto& [strich, y] : {std::pair(seite.striche[0], 21.0), std::pair(seite.striche[1], 190.0)}) {
      EXPECT_TRUE(strich.x1 == 20 && strich.x2 == 277 && strich.y1 == y && strich.y2 == y);
    }
    const QString seitentext = u"Seite   %1"_s.arg(i + 1);
    const QString zeile = u"Programmierung: Pelvanto-Team"_s;
    const double block = 277 - FakeDrucker::breite(u"Projekt: Milvarte"_s, {9});
    const std::vector<Textstelle> rahmen{
        {block, 11, u"Tolvana"_s, {9}},
        {block, 15, u"Projekt: Milvarte"_s, {9}},
        {20, 10, u"Titel"_s, {12}},
        {20, 16, u"Untertitel"_s, {9}},
        {20, 191, u"16.03.2026  08:09"_s, {8}},
        {148.5 - FakeDrucker::breite(seitentext, {8}) / 2, 191, seitentext, {8}},
        {277 - FakeDrucker::breite(zeile, {6}), 191, zeile, {6}}};
    for (std::size_t j = 0; j < rahmen.size(); ++j) {
      EXPECT_EQ(seite.texte[j].text, rahmen[j].text);
      EXPECT_NEAR(seite.texte[j].x, rahmen[j].x, 1e-9);
      EXPECT_EQ(seite.texte[j].y, rahmen[j].y);
      EXPECT_EQ(seite.texte[j].schrift, rahmen[j].schrift);
    }
  }
}

TEST_F(ListeDruckenTest, CaptionsAndCellsStandInTheirColumns) {
  std::vector<Spalte> spalten = spaltenDrucken({{1000, L}, {500, R}, {0, L}, {1070, M}});
  spalten[2].beschriftung = u" Betrag "_s;
  liste.spaltenSetzen(spalten);
  fuellen(1, {QString(100, u'n'), QString(100, u'9'), u"verborgen"_s, u"ja"_s});
  ASSERT_TRUE(drucken());
  const std::vector<Textstelle> texte = inhalt();
  const Druckschrift kopf{8, true}, zeile{9, false};
  // Each character is 1.6 mm wide in the captions and 1.8 mm in the rows: 83 of them fit into 150 mm. A text
  // that is shortened begins where the whole one would have begun.
  const std::vector<Textstelle> soll{{20, 22, u"S1"_s, kopf},
                                     {170 - 6 * 1.6, 22, u"Betrag"_s, kopf},
                                     {224 - 1.6, 22, u"S4"_s, kopf},
                                     {20, 30, QString(80, u'n') + u"..."_s, zeile},
                                     {170 - 100 * 1.8, 30, QString(80, u'9') + u"..."_s, zeile},
                                     {224 - 1.8, 30, u"ja"_s, zeile}};
  ASSERT_EQ(texte.size(), soll.size());
  for (std::size_t i = 0; i < soll.size(); ++i) {
    EXPECT_EQ(texte[i].text, soll[i].text);
    EXPECT_NEAR(texte[i].x, soll[i].x, 1e-9);
    EXPECT_EQ(texte[i].y, soll[i].y);
    EXPECT_EQ(texte[i].schrift, soll[i].schrift);
  }
}

TEST_F(ListeDruckenTest, ATextNeverRunsIntoTheAmountBesideIt) {
  // 150 mm to the right edge of the amount, 150 - 8 * 1.8 - 1 = 134.6 mm to its text.
  fuellen(1, {QString(80, u'n'), u"1.234,50"_s, {}});
  fuellen(1, {QString(70, u'n'), u"1.234,50"_s, {}});
  fuellen(1, {QString(80, u'n'), u" "_s, {}});
  fuellen(1, {QString(100, u'n'), u"1.234,50"_s, {}});
  fuellen(1, {QString(70, u'n'), QString(60, u'9'), {}});  // 41 mm
  ASSERT_TRUE(drucken());
  QStringList texte;
  for (const Textstelle& text : inhalt()) {
    if (text.x != 20 || text.schrift.kursiv) continue;
    texte << QString::number(text.schrift.punkte) + u' ' + text.text;
    const double mitte = text.y + FakeDrucker::hoehe(text.schrift) / 2;
    EXPECT_NEAR(mitte, 30 + 4 * static_cast<double>(texte.size() - 1) + 3.55 / 2, 1e-9);
  }
  EXPECT_EQ(texte, QStringList({u"8 "_s + QString(80, u'n'), u"9 "_s + QString(70, u'n'),
                                u"9 "_s + QString(80, u'n'), u"8 "_s + QString(80, u'n') + u"..."_s,
                                u"6 "_s + QString(31, u'n') + u"..."_s}));
}

TEST_F(ListeDruckenTest, RowsGoDownByTheHeightOfTheirLastCell) {
  fuellen(2);
  fuellen(1, {u"Anna"_s, u"1,50"_s, u" "_s});
  fuellen(38);
  ASSERT_TRUE(drucken(true));
  const std::vector<double> erste = zeilen(0), zweite = zeilen(1);
  ASSERT_EQ(erste.size(), 39U);
  EXPECT_NEAR(erste[2], 38.1, 1e-9);
  EXPECT_NEAR(erste[3], 42.1, 1e-9);     // 4 mm after a blank cell
  EXPECT_NEAR(erste[38], 183.85, 1e-9);  // the next one would begin below 185 mm
  ASSERT_EQ(zweite.size(), 2U);
  EXPECT_NEAR(zweite[0], 30, 1e-9);
}

TEST_F(ListeDruckenTest, AFurtherGapAfterEveryFifthRowOfTheList) {
  fuellen(40);
  ASSERT_TRUE(drucken(false));
  const std::vector<double> erste = zeilen(0), zweite = zeilen(1);
  ASSERT_EQ(erste.size(), 34U);
  EXPECT_NEAR(erste[4], 46.2, 1e-9);
  EXPECT_NEAR(erste[5], 53.25, 1e-9);
  EXPECT_NEAR(erste[33], 30 + 33 * 4.05 + 6 * 3, 1e-9);
  ASSERT_EQ(zweite.size(), 6U);
  EXPECT_NEAR(zweite[1], 30 + 4.05 + 3, 1e-9);  // the 35th row was the first of its page
}

TEST_F(ListeDruckenTest, EmptyListsAndListsWithoutColumnsAreTold) {
  EXPECT_FALSE(drucken());
  fuellen(1);
  liste.spaltenSetzen({});
  EXPECT_FALSE(drucken());
  EXPECT_EQ(welt.programm.meldungen.gezeigt,
            (std::vector<Meldung>{{u"Die Liste ist leer. Druck wird nicht durchgeführt!"_s,
                                   Symbol::Information, Knoepfe::Ok, u"Liste ist leer"_s},
                                  {u"Die Liste hat keine Spalten!"_s, Symbol::Information, Knoepfe::Ok,
                                   u"Liste unvollständig"_s}}));
  EXPECT_TRUE(drucker.dokumente.empty());
}

TEST_F(ListeDruckenTest, WithoutAPrinterNothingHappens) {
  fuellen(1);
  drucker.name.clear();
  EXPECT_FALSE(drucken());
  EXPECT_TRUE(drucker.dokumente.empty());
  EXPECT_TRUE(welt.programm.meldungen.gezeigt.empty());
  EXPECT_EQ(welt.programm.fehlerprotokoll(), QStringList());
}

Meldung druckfehlermeldung(int nummer, const QString& grund) {
  return {
      u"Die Liste Titel konnte nicht gedruckt werden: %1 (Fehler %2).\n\nEs wurde nichts oder nicht alles "
      "gedruckt. Bitte prüfen Sie den Drucker und drucken Sie die Liste noch einmal!"_s.arg(grund)
          .arg(nummer),
      Symbol::Kritisch, Knoepfe::Ok, u"Fehler"_s};
}

TEST_F(ListeDruckenTest, WhateverFailsTheListIsNotSentAndTheClerkIsTold) {
  fuellen(41);
  int vorgaenge = 0;
  drucker.stoerung = [&](const char*) { ++vorgaenge; };
  ASSERT_TRUE(drucken());
  ASSERT_GT(vorgaenge, 41 * 3);
  for (const int nummer : {kDruckerfehler, 57}) {
    for (int gestoert = 1; gestoert <= vorgaenge; ++gestoert) {
      SCOPED_TRACE(u"%1, %2"_s.arg(nummer).arg(gestoert).toStdString());
      int vorgang = 0;
      drucker.stoerung = [&](const char*) {
        if (++vorgang == gestoert) throw Druckfehler{nummer, u"Kein Papier"_s};
      };
      drucker.dokumente.clear();
      welt.programm.meldungen.gezeigt.clear();
      EXPECT_FALSE(drucken());
      for (const Gedrucktes& dokument : drucker.dokumente)
        EXPECT_TRUE(dokument.verworfen && !dokument.beendet);
      ASSERT_EQ(welt.programm.meldungen.gezeigt,
                std::vector<Meldung>{druckfehlermeldung(nummer, u"Kein Papier"_s)});
      const QStringList protokoll = welt.programm.fehlerprotokoll();
      EXPECT_EQ(
          protokoll.mid(protokoll.size() - 2),
          QStringList(
              {u"Fehler %1 (Kein Papier) in Prozedur ListeDrucken in Modul FunktionenDrucker"_s.arg(nummer),
               u"    Liste: Titel"_s}));
    }
  }
  drucker.stoerung = nullptr;
  EXPECT_TRUE(drucken());
}

TEST_F(ListeDruckenTest, APrinterThatVanishesMeanwhileIsTold) {
  fuellen(41);
  drucker.stoerung = [&](const char* vorgang) {
    if (std::strcmp(vorgang, "neueSeite") == 0) drucker.name.clear();
  };
  EXPECT_FALSE(drucken());
  EXPECT_EQ(welt.programm.meldungen.gezeigt,
            std::vector<Meldung>{druckfehlermeldung(kDruckerfehler, u"Der Drucker ist nicht mehr da"_s)});
  EXPECT_TRUE(drucker.dokumente[0].verworfen);
}

}  // namespace
}  // namespace pelvanto
