// The own IBAN in the real window: typed, pasted, corrected; its colours, and what the settings keep.
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QTest>

#include <gtest/gtest.h>

#include "demo/dunkle_palette.h"
#include "shell/farben.h"
#include "shell/fensterwelt.h"

namespace pelvanto::test {
namespace {

const QColor kWeiss(255, 255, 255), kGruen(192, 255, 192), kRot(255, 192, 192);

class IBANFeldTest : public testing::Test {
 protected:
  IBANFeldTest() {
    welt.vereinAnlegen(1);
    welt.schreiben("verbindo.ini",
                   "[Auszahlungen]\r\nUnterlieferungGruppe=Lieferung\r\nEinzahlungen=Beitrag\r\n"
                   "GesamtBetrag=1000\r\n");
    EXPECT_TRUE(welt.starten());
    welt.bisSeite(5);
    feld = welt.feld("txtIBAN");
    feld->setFocus();
  }
  void tippen(const QString& text) const {
    for (const QChar zeichen : text) {
      for (const auto art : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent taste(art, 0, Qt::NoModifier, QString(zeichen));
        QApplication::sendEvent(feld, &taste);
      }
    }
  }
  void taste(Qt::Key code, Qt::KeyboardModifiers zusatz = Qt::NoModifier) const {
    QTest::keyClick(feld, code, zusatz);
  }
  void einfuegen(const QString& text) const {
    QApplication::clipboard()->setText(text);
    taste(Qt::Key_A, Qt::ControlModifier);
    taste(Qt::Key_V, Qt::ControlModifier);
  }
  QColor grund() const { return feld->palette().color(QPalette::Base); }
  QString worte() const { return feld->accessibleDescription(); }

  Fensterwelt welt;
  QLineEdit* feld = nullptr;
};

TEST_F(IBANFeldTest, TypedLettersBecomeCapitalsInBlocksOfFour) {
  EXPECT_EQ(worte(), "IBAN: leer");
  struct Fall {
    QString getippt, bleibt;
    QColor farbe;
    QString worte;
  };
  const Fall faelle[] = {
      {"at6", "AT6", kWeiss, "IBAN: Prüfziffern nicht geprüft"},
      {"at61", "AT61 ", kWeiss, "IBAN: Prüfziffern nicht geprüft"},
      {"at61 1904-3002.34ß5€7é32Ä0@1", "AT61 1904 3002 3457 3201 ", kGruen, "IBAN: Prüfziffern richtig"},
      {"AT611904300234573210", "AT61 1904 3002 3457 3210 ", kRot, "IBAN: Prüfziffern falsch"},
      {"de89370400440532013000", "DE89 3704 0044 0532 0130 00", kGruen, "IBAN: Prüfziffern richtig"},
      {"DE89370400440532013001", "DE89 3704 0044 0532 0130 01", kRot, "IBAN: Prüfziffern falsch"},
      {"ch9300762011623852957", "CH93 0076 2011 6238 5295 7", kWeiss, "IBAN: Prüfziffern nicht geprüft"},
      {"FR1420041010050500013M02606", "FR14 2004 1010 0505 0001 3M", kWeiss,
       "IBAN: Prüfziffern nicht geprüft"}};
  for (const Fall& fall : faelle) {
    const QColor vorher = grund();
    taste(Qt::Key_A, Qt::ControlModifier);
    taste(Qt::Key_Delete);
    EXPECT_EQ(grund(), vorher) << "an empty text keeps the colour";
    EXPECT_EQ(worte(), "IBAN: leer");
    tippen(fall.getippt);
    EXPECT_EQ(feld->text(), fall.bleibt);
    EXPECT_EQ(feld->cursorPosition(), fall.bleibt.size());
    EXPECT_EQ(grund(), fall.farbe) << fall.getippt.toStdString();
    EXPECT_EQ(worte(), fall.worte);
  }
}

TEST_F(IBANFeldTest, NothingPassesTheFilter) {
  // Keys that overlap: the next one is down before the last one is up.
  for (const QChar zeichen : QStringLiteral("ch930076")) QTest::keyPress(feld, zeichen.toLatin1());
  EXPECT_EQ(feld->text(), "CH93 0076");
  QTest::keyRelease(feld, Qt::Key_6);
  EXPECT_EQ(feld->text(), "CH93 0076 ");
  QInputMethodEvent zusammengesetzt;
  zusammengesetzt.setCommitString("é2ö0");
  QApplication::sendEvent(feld, &zusammengesetzt);
  EXPECT_EQ(feld->text(), "CH93 0076 20");
  taste(Qt::Key_B, Qt::AltModifier);
  EXPECT_EQ(feld->text(), "CH93 0076 20") << "the letter of a shortcut";
}

TEST_F(IBANFeldTest, PastedTextIsCheckedAndStaysWhole) {
  einfuegen("at611904300234573201");
  EXPECT_EQ(feld->text(), "at611904300234573201") << "only typed letters become capitals";
  EXPECT_EQ(grund(), kWeiss);
  einfuegen("AT611904300234573201\n");
  EXPECT_EQ(feld->text(), "AT61 1904 3002 3457 3201 ");
  EXPECT_EQ(grund(), kGruen);
  // Pasted by the mouse, no key is released: the field checks when it is left.
  feld->selectAll();
  QApplication::clipboard()->setText("DE88370400440532013000");
  feld->paste();
  EXPECT_EQ(grund(), kGruen);
  taste(Qt::Key_Tab);
  EXPECT_EQ(grund(), kRot);
  feld->setFocus();
  // Longer than what can be typed: whole, and every character of it can be replaced.
  einfuegen("MT84 MALT 0110 0001 2345 MTLC AST0 01S");
  EXPECT_EQ(feld->text(), "MT84 MALT 0110 0001 2345 MTLC AST0 01S");
  taste(Qt::Key_Left, Qt::ShiftModifier);
  tippen("txy");
  EXPECT_EQ(feld->text(), "MT84 MALT 0110 0001 2345 MTLC AST0 01T");
  welt.fenster->close();
  EXPECT_TRUE(welt.lesen("verbindo.ini").contains("EigeneIBAN=MT84 MALT 0110 0001 2345 MTLC AST0 01T\r\n"));
}

TEST_F(IBANFeldTest, ACorrectionIsSeenAtOnce) {
  tippen("AT611904300234573210");
  EXPECT_EQ(grund(), kRot);
  taste(Qt::Key_Backspace);
  EXPECT_EQ(feld->text(), "AT61 1904 3002 3457 3210 ") << "the blank behind a block comes back";
  for (int i = 0; i < 3; ++i) taste(Qt::Key_Left, Qt::ShiftModifier);
  tippen("01");
  EXPECT_EQ(feld->text(), "AT61 1904 3002 3457 3201 ");
  EXPECT_EQ(grund(), kGruen);
  // In the middle: the caret stays where the correction was.
  taste(Qt::Key_Home);
  for (int i = 0; i < 5; ++i) taste(Qt::Key_Right);
  taste(Qt::Key_Right, Qt::ShiftModifier);
  tippen("2");
  EXPECT_EQ(grund(), kRot);
  EXPECT_EQ(feld->cursorPosition(), 6);
  taste(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(feld->text(), "AT61 1904 3002 3457 3201 ");
  EXPECT_EQ(grund(), kGruen);
  // A held Backspace passes the blanks: it is released once.
  taste(Qt::Key_End);
  for (int i = 0; i < 7; ++i) {
    QKeyEvent gehalten(QEvent::KeyPress, Qt::Key_Backspace, Qt::NoModifier, "\b", i > 0);
    QApplication::sendEvent(feld, &gehalten);
    QKeyEvent wiederholt(QEvent::KeyRelease, Qt::Key_Backspace, Qt::NoModifier, "\b", true);
    if (i < 6) QApplication::sendEvent(feld, &wiederholt);
  }
  QTest::keyRelease(feld, Qt::Key_Backspace);
  EXPECT_EQ(feld->text(), "AT61 1904 3002 345");
  EXPECT_EQ(grund(), kWeiss);
  // Grouping can be taken back, and what was pasted too.
  einfuegen("DE89370400440532013000");
  EXPECT_EQ(feld->text(), "DE89 3704 0044 0532 0130 00");
  taste(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(feld->text(), "DE89370400440532013000");
  taste(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(feld->text(), "AT61 1904 3002 345");
}

TEST_F(IBANFeldTest, SettingsKeepTheTextAndBringItBack) {
  tippen("ch9300762011623852957");
  welt.fenster->close();
  EXPECT_TRUE(welt.lesen("verbindo.ini").contains("EigeneIBAN=CH93 0076 2011 6238 5295 7\r\n"));
  welt.schreiben("verbindo.ini", "[Auszahlungen]\r\nEigeneIBAN=AT611904300234573201\r\n");
  ASSERT_TRUE(welt.starten());
  feld = welt.feld("txtIBAN");
  EXPECT_EQ(feld->text(), "AT61 1904 3002 3457 3201 ");
  EXPECT_EQ(grund(), kGruen);
  welt.fenster->close();
  EXPECT_TRUE(welt.lesen("verbindo.ini").contains("EigeneIBAN=AT61 1904 3002 3457 3201\r\n"));
}

TEST_F(IBANFeldTest, EveryColourReadsWellOnLightAndDarkDesktops) {
  const QPalette helle = QApplication::palette();
  for (const QPalette& palette : {helle, vorfuehrung::dunklePalette()}) {
    QApplication::setPalette(palette);
    for (const char* iban : {"CH9300762011623852957", "AT611904300234573201", "AT611904300234573210"}) {
      einfuegen(iban);
      const QPalette& farben = feld->palette();
      EXPECT_GE(kontrast(farben.color(QPalette::Text), grund()), 4.5);
      EXPECT_GE(kontrast(farben.color(QPalette::HighlightedText), farben.color(QPalette::Highlight)), 4.5);
      feld->home(false);  // the caret away from where the ground is looked at
      EXPECT_EQ(feld->grab().toImage().pixelColor(feld->width() - 6, feld->height() / 2), grund());
    }
  }
  QApplication::setPalette(helle);
}

}  // namespace
}  // namespace pelvanto::test
