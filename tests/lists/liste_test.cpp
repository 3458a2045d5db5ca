#include "lists/liste.h"

#include <chrono>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

QStringList namen(const Liste& liste) {
  QStringList namen;
  for (const Zeile& zeile : liste.zeilen()) namen << zeile.texte.value(0);
  return namen;
}

std::vector<Spalte> spalten(std::initializer_list<QString> schluessel) {
  std::vector<Spalte> spalten{{u"ID"_s, u"ID"_s, 0}};
  for (const QString& name : schluessel) spalten.push_back({name, name, 1000});
  return spalten;
}

class ListeTest : public testing::Test {
 protected:
  ListeTest() { liste.spaltenSetzen(spalten({u"Name"_s, u"Adresse"_s, u"Netto"_s})); }

  void fuellen(std::initializer_list<QStringList> zeilen) {
    for (const QStringList& texte : zeilen) liste.hinzufuegen(zeilenschluessel(++id), texte);
  }

  Liste liste{{u"Name"_s, u"Adresse"_s}};
  int id = 0;
};

TEST_F(ListeTest, KeepsTheOrderOfFillingUntilAHeadingIsClicked) {
  fuellen({{u"b"_s}, {u"c"_s}, {u"a"_s}});
  EXPECT_EQ(namen(liste), QStringList({"b", "c", "a"}));
  EXPECT_EQ(liste.sortierspalte(), std::nullopt);
}

TEST_F(ListeTest, ThreeClicksOnOneHeadingSortUpDownUp) {
  fuellen({{u"b"_s}, {u"c"_s}, {u"a"_s}});
  liste.spalteAngeklickt(1);
  EXPECT_EQ(namen(liste), QStringList({"a", "b", "c"}));
  EXPECT_TRUE(liste.aufsteigend());
  liste.spalteAngeklickt(1);
  EXPECT_EQ(namen(liste), QStringList({"c", "b", "a"}));
  EXPECT_FALSE(liste.aufsteigend());
  liste.spalteAngeklickt(1);
  EXPECT_EQ(namen(liste), QStringList({"a", "b", "c"}));
}

TEST_F(ListeTest, ASecondColumnAlwaysStartsAscending) {
  fuellen({{u"a"_s, u"2"_s}, {u"b"_s, u"3"_s}, {u"c"_s, u"1"_s}});
  liste.spalteAngeklickt(1);
  liste.spalteAngeklickt(1);
  liste.spalteAngeklickt(2);
  EXPECT_EQ(namen(liste), QStringList({"c", "a", "b"}));
  EXPECT_EQ(liste.sortierspalte(), 2);
}

TEST_F(ListeTest, AColumnThatDoesNotSortMakesTheListForgetTheLastOne) {
  fuellen({{u"b"_s, {}, u"1"_s}, {u"a"_s, {}, u"2"_s}});
  for (const int unsortierbar : {3, 0}) {
    SCOPED_TRACE(unsortierbar);
    liste.spalteAngeklickt(1);
    ASSERT_EQ(namen(liste), QStringList({"a", "b"}));
    liste.spalteAngeklickt(unsortierbar);
    EXPECT_EQ(namen(liste), QStringList({"a", "b"}));
    EXPECT_EQ(liste.sortierspalte(), 1);
    liste.spalteAngeklickt(1);
    EXPECT_EQ(namen(liste), QStringList({"a", "b"}));
    // The next click is one on the same column again.
    liste.spalteAngeklickt(1);
    EXPECT_EQ(namen(liste), QStringList({"b", "a"}));
    liste.spalteAngeklickt(unsortierbar);
  }
}

TEST_F(ListeTest, ClicksBesideTheColumnsAreIgnored) {
  fuellen({{u"b"_s}, {u"a"_s}});
  liste.spalteAngeklickt(-1);
  liste.spalteAngeklickt(4);
  EXPECT_EQ(namen(liste), QStringList({"b", "a"}));
}

TEST_F(ListeTest, RowsThatComeLaterTakeTheirPlace) {
  fuellen({{u"d"_s}, {u"b"_s}});
  liste.spalteAngeklickt(1);
  fuellen({{u"c"_s}});
  EXPECT_EQ(namen(liste), QStringList({"b", "c", "d"}));
  liste.spalteAngeklickt(1);
  liste.hinzufuegen({{zeilenschluessel(90), {u"a"_s}}, {zeilenschluessel(91), {u"e"_s}}});
  EXPECT_EQ(namen(liste), QStringList({"e", "d", "c", "b", "a"}));

  // A step that runs again: new columns, no rows, new rows.
  liste.spaltenSetzen(spalten({u"Name"_s, u"Adresse"_s}));
  liste.leeren();
  fuellen({{u"x"_s}, {u"z"_s}, {u"y"_s}});
  EXPECT_EQ(namen(liste), QStringList({"z", "y", "x"}));
}

TEST_F(ListeTest, SortsAsTheDatabaseDoes) {
  fuellen({{u"Zauner"_s},
           {u"Muller"_s},
           {u"müller"_s},
           {u"Mueller"_s},
           {u"Straß"_s},
           {u"Strasser"_s},
           {u"3 Bauern"_s},
           {u"Äcker"_s},
           {u"Ab-Hof"_s},
           {u"Abhof"_s},
           {QString()}});
  liste.spalteAngeklickt(1);
  EXPECT_EQ(namen(liste), QStringList({"", "3 Bauern", "Abhof", "Ab-Hof", u"Äcker"_s, "Mueller", "Muller",
                                       u"müller"_s, u"Straß"_s, "Strasser", "Zauner"}));
}

TEST_F(ListeTest, EqualTextsKeepTheirOrderInBothDirections) {
  fuellen({{u"Huber"_s, u"1"_s}, {u"huber "_s, u"2"_s}, {u"Aigner"_s, u"3"_s}, {u"HUBER"_s, u"4"_s}});
  const auto adressen = [&] {
    QString folge;
    for (const Zeile& zeile : liste.zeilen()) folge += zeile.texte[1];
    return folge;
  };
  liste.spalteAngeklickt(1);
  EXPECT_EQ(adressen(), u"3124"_s);
  liste.spalteAngeklickt(1);
  EXPECT_EQ(adressen(), u"1243"_s);
}

TEST_F(ListeTest, NumbersSortAsText) {
  Liste beitraege{{u"Erste Einzahlung"_s}};
  beitraege.spaltenSetzen(spalten({u"Erste Einzahlung"_s}));
  beitraege.hinzufuegen(u"Msg_1"_s, {u"nur 2026 bezahlt"_s});
  beitraege.hinzufuegen(u"Msg_2"_s, {u"nicht bezahlt"_s});
  beitraege.hinzufuegen(u"Msg_3"_s, {u"10"_s});
  beitraege.hinzufuegen(u"Msg_4"_s, {u"9"_s});
  beitraege.spalteAngeklickt(1);
  EXPECT_EQ(namen(beitraege), QStringList({"10", "9", "nicht bezahlt", "nur 2026 bezahlt"}));
}

TEST_F(ListeTest, KeysAreUnique) {
  EXPECT_TRUE(liste.hinzufuegen(zeilenschluessel(7), {u"erste"_s}));
  EXPECT_FALSE(liste.hinzufuegen(zeilenschluessel(7), {u"zweite"_s}));
  EXPECT_EQ(liste.hinzufuegen({{zeilenschluessel(8), {u"acht"_s}}, {zeilenschluessel(7), {u"dritte"_s}}}), 1);
  EXPECT_EQ(namen(liste), QStringList({"erste", "acht"}));
  liste.leeren();
  EXPECT_TRUE(liste.hinzufuegen(zeilenschluessel(7), {u"wieder da"_s}));
}

TEST_F(ListeTest, TheKeyCarriesTheId) {
  for (const int nummer : {1, 1234, -5, 2147483647, -2147483647}) {
    EXPECT_EQ((Zeile{zeilenschluessel(nummer), {}}.id()), nummer);
  }
  EXPECT_EQ(zeilenschluessel(1234), u"Msg_1234"_s);
}

TEST_F(ListeTest, DeletesTheSelectedRowsOnly) {
  EXPECT_EQ(liste.MarkierteLoeschen(), 0);
  fuellen({{u"d"_s}, {u"b"_s}, {u"c"_s}, {u"a"_s}});
  liste.spalteAngeklickt(1);
  const int stand = liste.stand();
  EXPECT_EQ(liste.MarkierteLoeschen(), 0);
  EXPECT_EQ(liste.stand(), stand);
  liste.markieren(0, true);
  liste.markieren(2, true);
  liste.markieren(3, true);
  liste.markieren(3, false);
  EXPECT_EQ(liste.MarkierteLoeschen(), 2);
  EXPECT_EQ(namen(liste), QStringList({"b", "d"}));
  EXPECT_NE(liste.stand(), stand);
  EXPECT_TRUE(liste.hinzufuegen(zeilenschluessel(4), {u"a"_s})) << "the key of a deleted row is free again";
}

TEST_F(ListeTest, ATextIsSetInTheRowThatIsShownThere) {
  fuellen({{u"b"_s, {}, {}}, {u"a"_s, {}, {}}});
  liste.spalteAngeklickt(1);
  liste.textSetzen(0, 2, u"1,00"_s);
  EXPECT_EQ(liste.zeilen()[0].texte, QStringList({"a", "", "1,00"}));
  EXPECT_EQ(liste.zeilen()[1].texte, QStringList({"b", "", ""}));
}

TEST_F(ListeTest, ManyRowsAreAddedSortedAndDeletedInNoTime) {
  constexpr int kZeilen = 40000;
  const auto anfang = std::chrono::steady_clock::now();
  liste.spalteAngeklickt(1);
  for (int i = 0; i < kZeilen; ++i) {
    liste.hinzufuegen(zeilenschluessel(i), {QString::number((i * 7919LL) % kZeilen).rightJustified(6, u'0')});
  }
  EXPECT_EQ(liste.zeilen().front().texte[0], u"000000"_s);
  EXPECT_EQ(liste.zeilen().back().texte[0], u"039999"_s);
  for (int i = 0; i < kZeilen; ++i) liste.markieren(i, true);
  EXPECT_EQ(liste.MarkierteLoeschen(), kZeilen);
  const std::chrono::duration<double> dauer = std::chrono::steady_clock::now() - anfang;
  EXPECT_LT(dauer.count(), 5.0);  // some tenths of a second; anything quadratic takes minutes
}

}  // namespace
}  // namespace pelvanto
