// Text boxes and keys: the key filter, the amount, and the whole wizard without a mouse.
#include <QApplication>
#include <QInputMethodEvent>
#include <QTest>

#include <gtest/gtest.h>

#include "shell/fensterwelt.h"

namespace pelvanto::test {
namespace {

class TastaturTest : public testing::Test {
 protected:
  TastaturTest() {
    welt.vereinAnlegen(3);
    welt.einstellungenAnlegen();
    EXPECT_TRUE(welt.starten());
  }
  QWidget* fokus() const { return QApplication::focusWidget(); }
  QString fokusname() const { return fokus() ? fokus()->objectName() : QString("nothing"); }
  void taste(int code, Qt::KeyboardModifiers zusatz = Qt::NoModifier) const {
    QTest::keyClick(fokus(), static_cast<Qt::Key>(code), zusatz);
  }
  // Alt and a letter press a button only after a moment.
  void alt(int code) const {
    taste(code, Qt::AltModifier);
    QTest::qWait(130);
  }

  Fensterwelt welt;
};

TEST_F(TastaturTest, GroupNameTakesOnlyItsCharacters) {
  QLineEdit* feld = welt.feld("txtUnterlieferungGruppe");
  feld->clear();
  feld->setFocus();
  struct Fall {
    QString getippt, bleibt;
  };
  const Fall faelle[] = {{"Milch 2-.+:", "Milch 2-.+:"},
                         {"'\"#;<>*@{}[]\\|^~€é", ""},
                         {"ÄÖÜäöüß§´°`", "ÄÖÜäöüß§´°`"},
                         {"!$%&(),/=?_", "!$%&(),/=?_"}};
  for (const Fall& fall : faelle) {
    feld->clear();
    for (const QChar zeichen : fall.getippt) {
      QKeyEvent druck(QEvent::KeyPress, 0, Qt::NoModifier, QString(zeichen));
      QApplication::sendEvent(feld, &druck);
    }
    EXPECT_EQ(feld->text(), fall.bleibt);
  }
  feld->setText("Abc");
  taste(Qt::Key_Return);
  taste(Qt::Key_Backspace);
  EXPECT_EQ(feld->text(), QString("Ab"));
  taste(Qt::Key_Home);
  taste(Qt::Key_Delete);
  EXPECT_EQ(feld->text(), QString("b"));
  // The letter of a shortcut whose button is off is not typed.
  taste(Qt::Key_W, Qt::AltModifier);
  EXPECT_EQ(feld->text(), QString("b"));
  // Composed characters pass the filter too; what is pasted does not.
  feld->clear();
  QInputMethodEvent zusammengesetzt;
  zusammengesetzt.setCommitString("'ä");
  QApplication::sendEvent(feld, &zusammengesetzt);
  EXPECT_EQ(feld->text(), QString("ä"));
  feld->clear();
  feld->insert("O'Neil");
  EXPECT_EQ(feld->text(), QString("O'Neil"));
}

TEST_F(TastaturTest, TextBoxesHaveTheirLengths) {
  const std::pair<const char*, int> laengen[] = {
      {"txtUnterlieferungGruppe", 40}, {"txtEinzahlungen", 40},  {"txtGruppeNotwendig", 40},
      {"txtGruppeNotwendig3b", 40},    {"txtGesamtbetrag", 40},  {"txtWortlautUeberweisung", 57},
      {"txtEigenerName", 35},          {"txtEigeneAdresse", 35}, {"txtBIC", 11},
      {"txtUIDTreuhaender", 8}};
  for (const auto& [name, laenge] : laengen) EXPECT_EQ(welt.feld(name)->maxLength(), laenge) << name;
}

TEST_F(TastaturTest, WhatIsTypedInTheMiddleStaysThereAndCanBeTakenBack) {
  QLineEdit* feld = welt.feld("txtUnterlieferungGruppe");
  feld->setText("xy");
  feld->setCursorPosition(1);
  QTest::keyClicks(feld, "ab");
  EXPECT_EQ(feld->text(), "xaby");
  taste(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(feld->text(), "xy");
  // A text from the settings that is too long can only become shorter; the caret stays there as well.
  feld->setMaxLength(60);
  feld->setText(QString(60, u'x'));
  feld->setCursorPosition(1);
  taste(Qt::Key_Delete);
  EXPECT_EQ(feld->cursorPosition(), 1);
  EXPECT_EQ(feld->maxLength(), 59);
}

TEST_F(TastaturTest, AmountIsSelectedOnArrivalAndFormattedOnLeaving) {
  welt.bisSeite(3);
  ASSERT_TRUE(welt.druecken("cmdWeiter3b"));
  QLineEdit* feld = welt.feld("txtGesamtbetrag");
  EXPECT_EQ(fokusname(), QString("txtGesamtbetrag"));
  EXPECT_EQ(feld->selectedText(), QString("1000"));
  EXPECT_TRUE(feld->alignment() & Qt::AlignRight);
  QTest::keyClicks(feld, "12000,5");
  taste(Qt::Key_Tab);
  EXPECT_EQ(feld->text(), QString("12.000,50 €"));
  // A shortcut does what leaving does before it runs the step.
  feld->setFocus();
  feld->setText("600");
  alt(Qt::Key_E);
  EXPECT_EQ(feld->text(), QString("600,00 €"));
  EXPECT_EQ(welt.text("lblVerteilt"), QString("600,00 €"));
}

TEST_F(TastaturTest, TheWholeWizardWithoutAMouse) {
  EXPECT_EQ(fokusname(), QString("txtUnterlieferungGruppe"));
  alt(Qt::Key_E);
  EXPECT_EQ(welt.text("lblErgebnis1"), QString("3"));
  alt(Qt::Key_L);
  ASSERT_EQ(fokusname(), QString("lvwListe1"));
  taste(Qt::Key_1, Qt::ControlModifier);
  taste(Qt::Key_1, Qt::ControlModifier);
  EXPECT_EQ(welt.zeilen("lvwListe1").front().front(), QString("Person 00003"));
  taste(Qt::Key_Home);
  taste(Qt::Key_Down, Qt::ShiftModifier);
  taste(Qt::Key_Delete, Qt::ShiftModifier);
  EXPECT_EQ(welt.text("lblErgebnis1"), QString("1"));
  EXPECT_EQ(welt.text("lblErgebnis1Geloescht"), QString("2"));
  EXPECT_TRUE(welt.finden<QLabel>("lblErgebnis1GeloeschtLabel")->isVisible());
  alt(Qt::Key_W);
  EXPECT_EQ(fokusname(), QString("txtEinzahlungen"));
  for (const char* erwartet :
       {"txtGruppeNotwendig", "txtGruppeNotwendig3b", "txtGesamtbetrag", "cmdErgebnisZeigen5"}) {
    alt(Qt::Key_E);
    alt(Qt::Key_W);
    EXPECT_EQ(fokusname(), QString(erwartet));
  }
  taste(Qt::Key_Return);
  EXPECT_EQ(welt.text("lblErgebnis5"), QString("1"));
  alt(Qt::Key_T);
  EXPECT_EQ(welt.meldungen.texte(),
            QStringList("Die Datei " + welt.pfad("UE26001.xml") +
                        " wurde erstellt. Soll eine Liste über alle Überweisungen in dieser Datei erstellt "
                        "werden?"));
  EXPECT_TRUE(welt.lesen("UE26001.xml").contains("<NbOfTxs>1</NbOfTxs>"));
}

TEST_F(TastaturTest, TabGoesThroughThePageInReadingOrder) {
  welt.bisSeite(1);
  welt.feld("txtEinzahlungen")->setFocus();
  QStringList folge;
  for (int i = 0; i < 8; ++i) {
    folge << fokusname();
    taste(Qt::Key_Tab);
  }
  EXPECT_EQ(folge,
            QStringList({"txtEinzahlungen", "cmdErgebnisZeigen2", "cmdDrucken2", "cmdWeiter2", "lvwListe2",
                         "cmdSerienbriefe2Ausgeschieden", "lvwListeAusgeschieden2", "txtEinzahlungen"}));
}

}  // namespace
}  // namespace pelvanto::test
