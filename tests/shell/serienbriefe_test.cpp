// The mail-merge buttons, how far they are, and what cannot be done meanwhile.
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "seams/real/echte_meldungen.h"
#include "shell/fensterwelt.h"

namespace pelvanto::test {
namespace {

class SerienbriefeTest : public testing::Test {
 protected:
  SerienbriefeTest() {
    welt.vereinMitAusfaellenAnlegen();
    leereDatenbank = welt.lesen("Verbindo.mdb");
    if (!welt.starten()) throw std::runtime_error("the window does not start");
  }

  // The persons of the address file, in the order in which they came.
  std::vector<int> adressen() {
    const auto verbindung = welt.umgebung->datenbank.direktOeffnen(welt.pfad("Verbindo.mdb"), true);
    std::vector<int> nummern;
    for (Abfrage abfrage = verbindung->abfragen("SELECT IDNummer FROM Adressen"); !abfrage.amEnde();
         abfrage.weiter()) {
      nummern.push_back(std::get<int>(abfrage.feld(u"IDNummer")));
    }
    return nummern;
  }

  Fensterwelt welt;
  QByteArray leereDatenbank;
};

TEST_F(SerienbriefeTest, EveryButtonCopiesItsOwnList) {
  struct Fall {
    int seite;
    const char* knopf;
    std::vector<int> personen;
  };
  const Fall faelle[] = {
      {1, "cmdSerienbriefe2Ausgeschieden", {3}},  {2, "cmdSerienbriefe3", {1, 2, 5, 6, 7}},
      {2, "cmdSerienbriefe3Ausgeschieden", {4}},  {3, "cmdSerienbriefe3b", {1, 2, 6, 7}},
      {3, "cmdSerienbriefe3bAusgeschieden", {5}}, {4, "cmdSerienbriefe4", {1, 2, 7}},
      {4, "cmdSerienbriefe4Ausgeschieden", {6}},  {5, "cmdSerienbriefe5", {1, 2}},
      {5, "cmdSerienbriefe5Ausgeschieden", {7}},
  };
  int seite = -1;
  for (const Fall& fall : faelle) {
    SCOPED_TRACE(fall.knopf);
    if (fall.seite != seite) {
      const bool weiter = seite < 0 || welt.druecken(QStringList{"", "cmdWeiter2", "cmdWeiter3",
                                                                 "cmdWeiter3b", "cmdWeiter4"}[seite]);
      ASSERT_TRUE(weiter);
      welt.bisSeite(seite = fall.seite);
    }
    welt.schreiben("Verbindo.mdb", leereDatenbank);
    welt.oberflaeche.sanduhrFolge.clear();
    welt.oberflaeche.fortschritte.clear();
    ASSERT_TRUE(welt.druecken(fall.knopf));
    EXPECT_EQ(adressen(), fall.personen);
    EXPECT_TRUE(welt.finden<QAbstractButton>(fall.knopf)->isEnabled());
    EXPECT_EQ(welt.oberflaeche.sanduhrFolge, std::vector<bool>({true, false}));
    ASSERT_FALSE(welt.oberflaeche.fortschritte.empty());
    EXPECT_EQ(welt.oberflaeche.fortschritte.front().second, static_cast<int>(fall.personen.size()));
    EXPECT_EQ(welt.oberflaeche.fortschritte.back(), std::pair(0, 0));
    EXPECT_TRUE(welt.druecken(fall.knopf));
    EXPECT_EQ(adressen(), fall.personen) << "twice adds nothing";
  }
  EXPECT_EQ(welt.meldungen.texte(), QStringList());
}

TEST_F(SerienbriefeTest, NothingReachesTheWindowWhileItRunsAndAfterAFailureAllIsAsBefore) {
  welt.bisSeite(2);
  QFile::remove(welt.pfad("Verbindo.mdb"));
  QLineEdit* feld = welt.feld("txtGruppeNotwendig");
  auto* weiter = welt.finden<QAbstractButton>("cmdWeiter3");
  int boxen = 0;
  welt.meldungen.beimZeigen = [&](const Meldung&) {
    ++boxen;
    EXPECT_TRUE(welt.oberflaeche.sanduhrAn);
    EXPECT_FALSE(welt.finden<QAbstractButton>("cmdSerienbriefe3")->isEnabled());
    QTest::keyClicks(feld, "xyz");
    QTest::mouseClick(weiter, Qt::LeftButton);
    QTest::keyClick(welt.fenster.get(), Qt::Key_W, Qt::AltModifier);
  };
  EXPECT_TRUE(welt.druecken("cmdSerienbriefe3"));
  EXPECT_EQ(boxen, 1);
  EXPECT_EQ(feld->text(), QString("Bio"));
  EXPECT_EQ(welt.fenster->aktuelleSeite(), 2);
  EXPECT_TRUE(welt.finden<QAbstractButton>("cmdSerienbriefe3")->isEnabled());
  EXPECT_FALSE(welt.oberflaeche.sanduhrAn);
  EXPECT_TRUE(weiter->isEnabled());
  QTest::keyClicks(feld, "x");
  EXPECT_EQ(feld->text(), QString("Biox"));
  QTest::mouseClick(weiter, Qt::LeftButton);
  EXPECT_EQ(welt.fenster->aktuelleSeite(), 3);
}

TEST_F(SerienbriefeTest, ThePageShowsHowFarItIs) {
  auto* anzeige = welt.finden<QWidget>("Fortschritt");
  EXPECT_FALSE(anzeige->isVisible());
  for (const int nummer : {1, 300}) {
    welt.fenster->fortschrittZeigen(nummer, 300);
    EXPECT_TRUE(anzeige->isVisible());
    EXPECT_EQ(welt.text("lblFortschritt"), QString("Person %1 von 300").arg(nummer));
    EXPECT_GE(welt.finden<QLabel>("lblFortschritt")->width(),
              welt.finden<QLabel>("lblFortschritt")->sizeHint().width());
    EXPECT_TRUE(welt.fenster->rect().contains(anzeige->geometry()));
    EXPECT_FALSE(anzeige->accessibleName().isEmpty());
    EXPECT_EQ(anzeige->accessibleDescription(), welt.text("lblFortschritt"));
  }
  welt.fenster->fortschrittZeigen(0, 0);
  EXPECT_FALSE(anzeige->isVisible());
}

TEST_F(SerienbriefeTest, TheInputBoxTakesAnAddressAndEscapeCancels) {
  const Eingabe eingabe{
      "Beim Anlegen des Adressen-Datensatzes für die PersonenID 5\n\nMaier <b>Hans</b>\n\n"
      "ist ein mögliches Problem aufgetaucht. Postleitzahl und Ort sind zusammen länger als 40 "
      "Zeichen. Bitte korrigieren Sie die Stammdatendaten.\r\n\r\nDie Korrektur wird erst bei "
      "der nächsten Verwendung der Adresse wirksam).",
      "Adresse sollte korrigiert werden", "4020 Linz an der Donau im schönen Oberösterreich, Hauptstraße 12"};
  const auto mit = [&](const std::function<void(QDialog&)>& handlung) {
    QTimer::singleShot(0,
                       [&handlung] { handlung(dynamic_cast<QDialog&>(*QApplication::activeModalWidget())); });
    return EchteMeldungen().eingeben(eingabe);
  };
  const auto geaendert = mit([&](QDialog& kasten) {
    auto* feld = kasten.findChild<QLineEdit*>();
    const auto* frage = kasten.findChild<QLabel*>();
    EXPECT_EQ(kasten.windowTitle(), eingabe.titel);
    EXPECT_EQ(feld->text(), eingabe.vorgabe);
    EXPECT_GT(feld->width(), feld->fontMetrics().horizontalAdvance(eingabe.vorgabe) + 10);
    EXPECT_EQ(frage->textFormat(), Qt::PlainText);
    EXPECT_GE(frage->height(), frage->heightForWidth(frage->width()));
    QStringList knoepfe;
    for (const auto* knopf : kasten.findChildren<QAbstractButton*>()) knoepfe << knopf->text();
    knoepfe.sort();
    EXPECT_EQ(knoepfe, QStringList({"Abbrechen", "OK"}));
    QTest::keyClicks(feld, "a");
    QTest::keyClick(feld, Qt::Key_Return);
  });
  EXPECT_EQ(geaendert, eingabe.vorgabe + "a");
  EXPECT_EQ(mit([](QDialog& kasten) { QTest::keyClick(&kasten, Qt::Key_Escape); }), std::nullopt);
}

}  // namespace
}  // namespace pelvanto::test
