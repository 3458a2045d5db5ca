// F1 and the box about the program.
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTest>

#include <gtest/gtest.h>
#include <utility>

#include "shell/fensterwelt.h"

namespace pelvanto::test {
namespace {

class HilfeTest : public testing::Test {
 protected:
  HilfeTest() {
    welt.vereinAnlegen(3);
    welt.einstellungenAnlegen();
    EXPECT_TRUE(welt.starten());
  }
  // What was opened since the last question, without the folder.
  QStringList geoeffnet() {
    QStringList namen;
    for (const auto& [datei, art] : std::exchange(welt.anwendungen.geoeffnet, {}))
      namen << QString(datei).remove(welt.ordner.path() + u'/');
    return namen;
  }
  void f1(Qt::KeyboardModifiers zusatz = Qt::NoModifier) const {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1, zusatz);
  }

  Fensterwelt welt;
};

TEST_F(HilfeTest, F1OpensTheHandbookWhereverTheFocusIs) {
  welt.schreiben("Pelvanto-Handbuch.html", "<html>");
  welt.schreiben("Pelvanto-Handbuch.pdf", "%PDF");
  welt.bisSeite(3);
  ASSERT_TRUE(welt.druecken("cmdWeiter3b"));
  welt.feld("txtGesamtbetrag")->setText("12");  // in the middle of typing
  f1();
  EXPECT_EQ(welt.feld("txtGesamtbetrag")->text(), QString("12")) << "not taken for entered";
  welt.liste("lvwListe4")->setFocus();
  f1();
  EXPECT_EQ(geoeffnet(), QStringList({"Pelvanto-Handbuch.html", "Pelvanto-Handbuch.html"}));
  EXPECT_EQ(welt.meldungen.texte(), QStringList());
}

TEST_F(HilfeTest, WhatIsMissingIsTold) {
  f1();
  EXPECT_EQ(geoeffnet(), QStringList());
  welt.schreiben("Pelvanto-Handbuch.pdf", "%PDF");
  f1();
  EXPECT_EQ(geoeffnet(), QStringList("Pelvanto-Handbuch.pdf"));
  welt.schreiben("Pelvanto-Handbuch.html", "<html>");
  welt.anwendungen.antwort = kKeineAnwendung;
  f1();
  EXPECT_EQ(geoeffnet(), QStringList({"Pelvanto-Handbuch.html", "Pelvanto-Handbuch.pdf"}));
  EXPECT_EQ(
      welt.meldungen.texte(),
      QStringList({"Das Handbuch wurde nicht gefunden. Kopieren Sie die Datei Pelvanto-Handbuch.html in den "
                   "Ordner des Programms:\n" +
                       welt.ordner.path(),
                   "Das Handbuch konnte nicht geöffnet werden (Fehler Nr. 31). Wahrscheinlich ist keine "
                   "passende Anwendung vorhanden. Öffnen Sie selbst diese Datei:\n" +
                       welt.pfad("Pelvanto-Handbuch.html")}));
}

TEST_F(HilfeTest, WhileAStepRunsThereIsNoHelp) {
  welt.schreiben("Pelvanto-Handbuch.html", "<html>");
  int boxen = 0;
  welt.meldungen.beimZeigen = [&](const Meldung&) {
    ++boxen;
    f1();
    f1(Qt::ControlModifier);
  };
  welt.feld("txtUnterlieferungGruppe")->setText("gibt es nicht");
  welt.druecken("cmdErgebnisZeigen1");
  EXPECT_GT(boxen, 0);
  EXPECT_EQ(geoeffnet(), QStringList());
  EXPECT_EQ(welt.fenster->findChild<QWidget*>("UeberKasten"), nullptr);
}

TEST_F(HilfeTest, TheBoxIsReachedReadAndClosedByKeys) {
  const QSize groesse = welt.fenster->size();
  f1(Qt::ControlModifier);
  auto* kasten = welt.finden<QWidget>("UeberKasten");
  kasten->activateWindow();
  QApplication::processEvents();
  EXPECT_EQ(QApplication::focusWidget(), welt.finden<QWidget>("cmdSchliessen"));
  EXPECT_EQ(welt.text("lblName"), QString("Pelvanto " PELVANTO_VERSION));
  for (const char* teil :
       {"Qt " QT_VERSION_STR " (Lizenz: LGPL 3)", "GCC", "mingw-w64", "Pelvanto-Lizenzen.txt"})
    EXPECT_TRUE(welt.text("lblLizenzen").contains(teil)) << teil;
  for (const char* taste : {"F1: Handbuch", "Strg+F1"}) EXPECT_TRUE(welt.text("lblTasten").contains(taste));
  EXPECT_EQ(welt.feld("txtProtokollordner")->text(), welt.ordner.path());

  QTest::keyClick(kasten, Qt::Key_O, Qt::AltModifier);
  QTest::qWait(130);
  EXPECT_EQ(geoeffnet(), QStringList(welt.ordner.path()));
  welt.schreiben("Pelvanto-Handbuch.html", "<html>");
  f1();
  EXPECT_EQ(geoeffnet(), QStringList("Pelvanto-Handbuch.html"));
  welt.anwendungen.antwort = 5;
  EXPECT_TRUE(welt.druecken("cmdOrdner"));
  EXPECT_EQ(welt.meldungen.texte(),
            QStringList("Der Ordner konnte nicht geöffnet werden (Fehler Nr. 5). Öffnen Sie "
                        "ihn selbst:\n" +
                        welt.ordner.path()));
  QTest::keyClick(kasten, Qt::Key_Escape);
  QTest::qWait(0);
  EXPECT_EQ(welt.fenster->findChild<QWidget*>("UeberKasten"), nullptr);
  EXPECT_EQ(welt.fenster->size(), groesse);
}

// On the ground, and by the menu key on a button without a meaning of its own; never on a button that is off.
TEST_F(HilfeTest, TheContextMenuNamesBothKeys) {
  const auto menue = [this](const char* wo, QContextMenuEvent::Reason anlass) {
    auto* steuerelement = welt.finden<QWidget>(wo);
    QContextMenuEvent gewuenscht(anlass, {9, 9}, steuerelement->mapToGlobal(QPoint(9, 9)));
    QApplication::sendEvent(steuerelement, &gewuenscht);
    QStringList eintraege;
    auto* gezeigt = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!gezeigt) return eintraege;
    for (const QAction* eintrag : gezeigt->actions())
      eintraege << eintrag->text() << eintrag->shortcut().toString();
    gezeigt->close();
    return eintraege;
  };
  const QStringList beide{"&Handbuch öffnen", "F1", "&Über Pelvanto", "Ctrl+F1"};
  EXPECT_EQ(menue("Frame1", QContextMenuEvent::Mouse), beide);
  EXPECT_EQ(menue("cmdErgebnisZeigen1", QContextMenuEvent::Keyboard), beide);
  EXPECT_EQ(menue("cmdWeiter1", QContextMenuEvent::Mouse), QStringList());
}

}  // namespace
}  // namespace pelvanto::test
