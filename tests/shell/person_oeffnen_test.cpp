// Double click and Enter key in the lists of steps 4 and 5: the person in Verbindo.
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTest>

#include <gtest/gtest.h>
#include <utility>

#include "common/verbindo_datenbank.h"
#include "shell/fensterwelt.h"

namespace pelvanto::test {
namespace {

using Gestartet = std::vector<std::pair<QString, QString>>;

class PersonOeffnenTest : public testing::Test {
 protected:
  // Persons 11 and 12 are paid, 13 has delivered nothing, 14 has no bank.
  PersonOeffnenTest() {
    VerbindoDatenbank datenbank;
    datenbank.gruppe(1, u"Lieferung").gruppe(2, u"Beitrag 2025").gruppe(3, u"Beitrag 2026");
    for (const int id : {11, 12, 13, 14}) {
      VerbindoDatenbank::Person person{.id = id, .namen = u"Person " + std::u16string(1, u'0' + id % 10)};
      if (id != 14) person.iban = u"AT611904300234573201";
      if (id != 14) person.bic = u"MUSTAT2LXXX";
      datenbank.person(person).mitglied(id, 2).mitglied(id, 3).mitglied(id, 1, id == 13 ? 0 : 1000);
    }
    datenbank.schreiben(std::filesystem::path(welt.pfad("Verbindo.mdb").toStdU16String()));
    welt.einstellungenAnlegen();
    EXPECT_TRUE(welt.starten());
  }
  void doppelklick(const QString& liste, QPoint stelle) const {
    QTest::mouseClick(welt.liste(liste)->viewport(), Qt::LeftButton, {}, stelle);
    QTest::mouseDClick(welt.liste(liste)->viewport(), Qt::LeftButton, {}, stelle);
  }
  QPoint zeile(const QString& liste, int nummer) const {
    const ListenAnsicht* ansicht = welt.liste(liste);
    return ansicht->visualRect(ansicht->model()->index(nummer, 1)).center();
  }
  void eingabetaste(const QString& liste, Qt::Key taste = Qt::Key_Return) const {
    welt.liste(liste)->setFocus();
    QTest::keyClick(welt.liste(liste), taste);
  }
  // What was started since the last question.
  Gestartet gestartet() { return std::exchange(welt.anwendungen.gestartet, {}); }
  Gestartet verbindo(std::initializer_list<const char*> argumente) const {
    Gestartet starts;
    for (const char* argument : argumente) starts.emplace_back(welt.pfad("Verbindo2.exe"), argument);
    return starts;
  }

  Fensterwelt welt;
};

TEST_F(PersonOeffnenTest, StartsVerbindoWithThePersonOfTheRow) {
  welt.bisSeite(4);
  doppelklick("lvwListe4", zeile("lvwListe4", 1));
  doppelklick("lvwListe4", zeile("lvwListe4", 1));
  EXPECT_EQ(gestartet(), verbindo({"ID12", "ID12"})) << "every double click starts it anew";
  // The order shown counts; the heading itself starts nothing.
  ListenAnsicht* liste = welt.liste("lvwListe4");
  const QPoint kopf(liste->header()->sectionViewportPosition(1) + 20, 5);
  QTest::mouseClick(liste->header()->viewport(), Qt::LeftButton, {}, kopf);
  QTest::mouseDClick(liste->header()->viewport(), Qt::LeftButton, {}, kopf);
  EXPECT_TRUE(liste->header()->isSortIndicatorShown());
  EXPECT_EQ(gestartet(), Gestartet());
  emit liste->spalteAngeklickt(2);
  emit liste->spalteAngeklickt(1);
  emit liste->spalteAngeklickt(1);
  doppelklick("lvwListe4", zeile("lvwListe4", 2));
  EXPECT_EQ(gestartet(), verbindo({"ID11"}));
  QTest::mouseDClick(liste->viewport(), Qt::RightButton, {}, zeile("lvwListe4", 0));
  EXPECT_EQ(gestartet(), Gestartet());
  // The Enter key: the row with the frame, once however long it is held.
  liste->setFocus();
  QTest::keyClick(liste, Qt::Key_Home);
  QTest::keyClick(liste, Qt::Key_Down, Qt::ShiftModifier);
  eingabetaste("lvwListe4", Qt::Key_Enter);
  QKeyEvent gehalten(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
  QApplication::sendEvent(liste, &gehalten);
  EXPECT_EQ(gestartet(), verbindo({"ID12"}));
  eingabetaste("lvwAusgeschieden4");
  ASSERT_TRUE(welt.druecken("cmdWeiter4"));
  eingabetaste("lvwListe5");
  EXPECT_EQ(gestartet(), verbindo({"ID13"})) << "an empty list does nothing";
  welt.bisSeite(5);
  doppelklick("lvwAusgeschieden5", zeile("lvwAusgeschieden5", 0));
  eingabetaste("lvwListe5");
  EXPECT_EQ(gestartet(), verbindo({"ID14", "ID12"}));
  EXPECT_EQ(welt.meldungen.texte(), QStringList());
}

TEST_F(PersonOeffnenTest, FailuresNameTheList) {
  welt.anwendungen.startfehler = {53, "Datei nicht gefunden"};
  welt.bisSeite(3);
  doppelklick("lvwListe3b", zeile("lvwListe3b", 0));
  eingabetaste("lvwListe3b");
  ASSERT_TRUE(welt.druecken("cmdWeiter3b"));
  doppelklick("lvwListe4", {20, 20});
  EXPECT_EQ(welt.meldungen.gezeigt, std::vector<Meldung>()) << "other lists, and empty ones";
  welt.bisSeite(4);
  doppelklick("lvwListe4", zeile("lvwListe4", 0));
  doppelklick("lvwAusgeschieden4", {20, 90});  // below the rows
  ASSERT_TRUE(welt.druecken("cmdWeiter4"));
  welt.bisSeite(5);
  eingabetaste("lvwListe5");
  eingabetaste("lvwAusgeschieden5");
  const char* erwartet[] = {
      "Error 53 (Datei nicht gefunden) in procedure lvwListe4_DblClick of Formular Form1",
      "Error 91 (Objektvariable oder With-Blockvariable nicht festgelegt) in procedure "
      "lvwAusgeschieden4_DblClick of Formular Form1",
      "Error 53 (Datei nicht gefunden) in procedure lvwListe5_DblClick of Formular Form1",
      "Error 53 (Datei nicht gefunden) in procedure lvwAusgeschieden5_DblClick of Formular Form1"};
  std::vector<Meldung> meldungen;
  for (const char* text : erwartet) meldungen.push_back({text, Symbol::Keines, Knoepfe::Ok});
  EXPECT_EQ(welt.meldungen.gezeigt, meldungen);
}

}  // namespace
}  // namespace pelvanto::test
