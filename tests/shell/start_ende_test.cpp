// Start-up, closing, the settings file, and the ends that come early.
#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QFileDialog>
#include <QMenu>
#include <QPrintDialog>
#include <QScreen>

#include <gtest/gtest.h>

#include "shell/deutsch.h"
#include "shell/fensterwelt.h"
#include "support/programm_ende.h"

namespace pelvanto::test {
namespace {

const QByteArray kFremdeIni =
    "; Verbindo\r\n[Programm]\r\nLand=AT\r\n\r\n[AUSZAHLUNGEN]\r\nunterlieferunggruppe=\"Lieferung\"\r\n"
    "Einzahlungen = Beitrag \r\n[Fenster]\r\nLinks=12\r\n";

TEST(StartUndEnde, SettingsComeFromAndGoIntoTheirSectionAlone) {
  Fensterwelt welt;
  welt.vereinAnlegen();
  welt.schreiben("VERBINDO.INI", kFremdeIni);
  ASSERT_TRUE(welt.starten());
  EXPECT_EQ(welt.feld("txtUnterlieferungGruppe")->text(), QString("Lieferung"));
  EXPECT_EQ(welt.feld("txtEinzahlungen")->text(), QString("Beitrag"));
  EXPECT_EQ(welt.feld("txtWortlautUeberweisung")->text(), QString("GS - Qualitätszuschlag Milvarte"));
  EXPECT_EQ(welt.feld("txtIBAN")->text(), QString());
  const QPoint mitte = welt.fenster->screen()->geometry().center();
  EXPECT_NEAR(welt.fenster->geometry().center().x(), mitte.x(), 2);
  const int titelleiste = welt.fenster->frameGeometry().height() - welt.fenster->height();
  EXPECT_NEAR(welt.fenster->geometry().center().y(), mitte.y() + titelleiste / 2, 2 + titelleiste / 2);

  welt.feld("txtEigenerName")->setText("  Müller ");
  welt.feld("txtGesamtbetrag")->setText(" 12000 ");
  EXPECT_TRUE(welt.fenster->close());
  EXPECT_EQ(
      QString::fromLatin1(welt.lesen("VERBINDO.INI")),
      QString(
          "; Verbindo\r\n[Programm]\r\nLand=AT\r\n\r\n[AUSZAHLUNGEN]\r\nunterlieferunggruppe=Lieferung\r\n"
          "Einzahlungen = Beitrag \r\nGruppeNotwendig=\r\nGruppeNotwendig3b=\r\nGesamtBetrag=12000\r\n"
          "WortlautUeberweisung=GS - Qualitätszuschlag Milvarte\r\nUIDTreuhaender=\r\nEigeneIBAN=\r\n"
          "EigeneBIC=\r\nEigenerName=Müller\r\nEigeneAdresse=\r\n[Fenster]\r\nLinks=12\r\n"));
  const QString protokoll = welt.protokoll();
  EXPECT_EQ(protokoll.count("INISpeichern: Auszahlungen / "), 11);
  EXPECT_TRUE(
      protokoll.contains("INISpeichern: Auszahlungen / EigenerName / Müller / " + welt.pfad("VERBINDO.INI"),
                         Qt::CaseInsensitive));
  EXPECT_LT(protokoll.indexOf("/ UnterlieferungGruppe /"), protokoll.indexOf("/ EigeneAdresse /"));
}

TEST(StartUndEnde, QtsOwnTextsAreGerman) {
  QObject solange;
  ASSERT_TRUE(qtTexteAufDeutsch(&solange));
  Fensterwelt welt;
  welt.vereinAnlegen();
  ASSERT_TRUE(welt.starten());
  const std::unique_ptr<QMenu> menue(welt.feld("txtEinzahlungen")->createStandardContextMenu());
  QStringList eintraege;
  for (const QAction* eintrag : menue->actions()) eintraege << eintrag->text().section('\t', 0, 0);
  EXPECT_EQ(eintraege.filter("Ausschneiden").size(), 1) << eintraege.join(" | ").toStdString();
#ifndef Q_OS_WIN  // there these two are the system's own
  EXPECT_EQ(QFileDialog().labelText(QFileDialog::Reject), "Abbrechen");
  QPrintDialog drucken;
  QStringList knoepfe;
  for (const QAbstractButton* knopf : drucken.findChildren<QAbstractButton*>()) knoepfe << knopf->text();
  EXPECT_TRUE(knoepfe.contains("&Drucken")) << knoepfe.join(" | ").toStdString();
#endif
}

TEST(StartUndEnde, LongStoredTextsSurviveTheirTextBox) {
  Fensterwelt welt;
  welt.vereinAnlegen();
  const QByteArray lang(80, 'x');
  welt.schreiben("verbindo.ini", "[Auszahlungen]\r\nWortlautUeberweisung=" + lang + "\r\n");
  ASSERT_TRUE(welt.starten());
  QLineEdit* feld = welt.feld("txtWortlautUeberweisung");
  EXPECT_EQ(feld->text().size(), 80);
  welt.fenster->close();
  EXPECT_TRUE(welt.lesen("verbindo.ini").contains("WortlautUeberweisung=" + lang + "\r\n"));
}

TEST(StartUndEnde, WithoutDatabaseTheProgramEndsAndSavesNothing) {
  Fensterwelt welt;
  welt.schreiben("verbindo.ini", kFremdeIni);
  EXPECT_FALSE(welt.starten());
  ASSERT_EQ(welt.meldungen.gezeigt.size(), 1U);
  EXPECT_EQ(
      welt.meldungen.gezeigt.front(),
      (Meldung{"Die Verbindo-Datenbank wurde nicht gefunden. Das Programm wird beendet.", Symbol::Kritisch}));
  EXPECT_FALSE(welt.fenster->isVisible());
  welt.fenster->close();
  welt.fenster.reset();
  EXPECT_EQ(welt.lesen("verbindo.ini"), kFremdeIni);
}

// A file where a folder is expected, say: the end comes in the middle of an action.
TEST(StartUndEnde, ProgrammEndeClosesTheWindowWithoutSaving) {
  Fensterwelt welt;
  welt.vereinAnlegen();
  welt.einstellungenAnlegen();
  ASSERT_TRUE(welt.starten());
  welt.bisSeite(0);
  const QByteArray vorher = welt.lesen("verbindo.ini");
  welt.feld("txtUnterlieferungGruppe")->setText("Geändert");
  welt.meldungen.beimZeigen = [](const Meldung&) { throw ProgrammEnde{}; };
  welt.rechtsklicken("cmdDrucken1");
  EXPECT_TRUE(welt.fenster->beendet());
  EXPECT_FALSE(welt.fenster->isVisible());
  EXPECT_EQ(welt.lesen("verbindo.ini"), vorher);
}

TEST(StartUndEnde, AnUnexpectedErrorIsReportedAndTheProgramGoesOn) {
  Fensterwelt welt;
  welt.vereinAnlegen();
  welt.einstellungenAnlegen();
  ASSERT_TRUE(welt.starten());
  welt.bisSeite(0);
  bool erste = true;
  welt.meldungen.beimZeigen = [&erste](const Meldung&) {
    if (std::exchange(erste, false)) throw Datenbankfehler{-2147467259, "Testfehler"};
  };
  welt.rechtsklicken("cmdDrucken1");
  const Meldung& meldung = welt.meldungen.gezeigt.back();
  EXPECT_EQ(meldung.titel, QString("Fehler"));
  EXPECT_TRUE(meldung.text.startsWith("Fehler -2147467259 (Testfehler) in Prozedur "));
  EXPECT_TRUE(meldung.text.endsWith("Bitte informieren Sie den Programmierer!"));
  EXPECT_TRUE(welt.namen().contains("Fehlerprotokoll.txt"));
  EXPECT_TRUE(welt.fenster->isVisible());
  EXPECT_FALSE(welt.druecken("cmdWeiter1")) << "nobody carries on what broke off";
  EXPECT_TRUE(welt.druecken("cmdErgebnisZeigen1"));
  EXPECT_TRUE(welt.druecken("cmdWeiter1"));
}

// While an action lets messages run, other buttons and the closing of the window wait.
TEST(StartUndEnde, NothingIntrudesIntoARunningAction) {
  Fensterwelt welt;
  welt.vereinAnlegen();
  welt.einstellungenAnlegen();
  ASSERT_TRUE(welt.starten());
  welt.bisSeite(0);
  welt.meldungen.beimZeigen = [&welt](const Meldung&) {
    welt.feld("txtUnterlieferungGruppe")->setText("inzwischen getippt");
    EXPECT_TRUE(welt.druecken("cmdWeiter1"));
    EXPECT_EQ(welt.fenster->aktuelleSeite(), 0);
    EXPECT_FALSE(welt.fenster->close());
  };
  welt.rechtsklicken("cmdDrucken1");
  EXPECT_FALSE(welt.fenster->isVisible()) << "closed after the action";
  EXPECT_TRUE(welt.lesen("verbindo.ini").contains("UnterlieferungGruppe=inzwischen getippt"));
}

}  // namespace
}  // namespace pelvanto::test
