// The print buttons: the left mouse button prints, the right one and the menu key save CSV files.
#include <QApplication>
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>
#include <utility>

#include "shell/fensterwelt.h"

namespace pelvanto::test {
namespace {

Meldung csvFrage(const QString& text) { return {text, Symbol::Frage, Knoepfe::JaNein}; }

class DruckenTest : public testing::Test {
 protected:
  DruckenTest() {
    welt.vereinMitAusfaellenAnlegen();
    QDir(welt.ordner.path()).mkdir("Tisch");
    welt.anwendungen.schreibtischordner = welt.pfad("Tisch");
    if (!welt.starten()) throw std::runtime_error("the window does not start");
  }

  QAbstractButton* knopf(const QString& name) const { return welt.finden<QAbstractButton>(name); }
  QStringList dokumente() const {
    QStringList namen;
    for (const Gedrucktes& dokument : welt.drucker.dokumente) namen << dokument.name;
    return namen;
  }
  QStringList csvDateien() const { return QDir(welt.pfad("Tisch")).entryList(QDir::Files, QDir::Name); }
  // As the window system hands the menu key on.
  void menuetaste() const {
    QContextMenuEvent taste(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(welt.fenster->windowHandle(), &taste);
  }
  // Pulls the edge between two columns of the list, which is at `x`, to another place.
  void kanteZiehen(const QHeaderView* kopf, int x, int nach) const {
    QWindow* fenster = welt.fenster->windowHandle();
    const auto stelle = [&](int wo) {
      return kopf->viewport()->mapTo(welt.fenster.get(), QPoint(wo, kopf->height() / 2));
    };
    QTest::mousePress(fenster, Qt::LeftButton, {}, stelle(x));
    QTest::mouseMove(fenster, stelle(nach));
    QTest::mouseRelease(fenster, Qt::LeftButton, {}, stelle(nach));
  }
  QString fokus() const {
    return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
  }

  Fensterwelt welt;
};

// A list of a page: its title on paper, its CSV file (none: empty name) with the captions, the last digits of
// the names in it and what stands in each row after name and address.
struct Ausgabe {
  QString titel, datei;
  QByteArray koepfe, hoefe, rest;
};
struct Fall {
  const char* schritt;
  std::vector<Ausgabe> listen;
};

QByteArray csvBytes(const Ausgabe& liste) {
  QByteArray bytes = liste.koepfe + "\r\n";
  for (const char hof : liste.hoefe)
    bytes += "Hof" + QByteArray(1, hof) + ";4360 Gr\xF6\xDF 5;" + liste.rest + "\r\n";
  return bytes;
}

std::vector<Fall> faelle() {
  const QByteArray person = "Name;Adresse;Telefon";
  const QByteArray bezahlt = "Name;Adresse;Telefon;Beitrag";
  return {
      {"1",
       {{"Schritt 1: Mitglieder der Gruppe Lieferung", "Schritt 1  Mitglieder der Gruppe Lieferung.csv",
         person, "1234567", " "}}},
      {"2",
       {{"Schritt 2: 2025 und 2026 bezahlt", "Schritt 2  2025 und 2026 bezahlt.csv", bezahlt, "124567",
         " ;2025 u. 2026 bezahlt"},
        {"Schritt 2: AUSGESCHIEDEN - 2025 und/oder 2026 nicht bezahlt",
         "Schritt 2  AUSGESCHIEDEN - 2025 und oder 2026 nicht bezahlt.csv", bezahlt, "3",
         " ;nicht bezahlt"}}},
      {"3",
       {{"Schritt 3: Enthalten in Bio", "Schritt 3  Enthalten in Bio.csv", person, "12567", " "},
        {"Schritt 3: AUSGESCHIEDEN - weil nicht enthalten in Bio",
         "Schritt 3  AUSGESCHIEDEN - weil nicht enthalten in Bio.csv", person, "4", " "}}},
      {"3b",
       {{"Schritt 3b: Enthalten in Kurs", {}, {}, {}, {}},
        {"Schritt 3b: AUSGESCHIEDEN - weil nicht enthalten in Kurs", {}, {}, {}, {}}}},
      {"4",
       {{"Schritt 4: Auszahlung berechnen      1.000,00 €  /  3.000 kg Milch = 33,3333 Cent pro kg",
         "Schritt 4  Auszahlung berechnen      1.000,00 €     3.000 kg Milch = 33,3333 Cent pro kg.csv",
         "Name;Adresse;Gesamt;Basis;Netto;Ust.", "127", "1.000;1.000;333,33 \x80;13"},
        {"Schritt 4: AUSGESCHIEDEN - keine Milchmenge", "Schritt 4  AUSGESCHIEDEN - keine Milchmenge.csv",
         person, "6", " "}}},
      {"5",
       {{"Schritt 5: Datenträger erstellen:  Netto: 666,66 €,  Steuer: 86,66 €,  Brutto: 753,32 €",
         "Schritt 5  Datenträger erstellen   Netto  666,66 €,  Steuer  86,66 €,  Brutto  753,32 €.csv",
         "Name;Adresse;BIC;IBAN;Netto;Ust.;Steuer;Brutto", "12",
         "MUSTAT2LXXX;AT611904300234573201;333,33 \x80;13%;43,33 \x80;376,66 \x80"},
        {"Schritt 5: AUSGESCHIEDEN - keine Bankverbindung",
         "Schritt 5  AUSGESCHIEDEN - keine Bankverbindung.csv", person, "7", " "}}},
  };
}

TEST_F(DruckenTest, EveryButtonPrintsAndSavesTheListsOfItsPage) {
  for (const Fall& fall : faelle()) {
    SCOPED_TRACE(fall.schritt);
    QStringList titel, csv;
    for (const Ausgabe& liste : fall.listen) {
      titel << liste.titel;
      if (!liste.datei.isEmpty()) csv << liste.datei;
    }
    const QString name = QString("cmdDrucken") + fall.schritt;
    ASSERT_TRUE(welt.druecken(QString("cmdErgebnisZeigen") + fall.schritt));
    welt.oberflaeche.sanduhrFolge.clear();
    welt.drucker.dokumente.clear();
    ASSERT_TRUE(welt.druecken(name));
    EXPECT_EQ(dokumente(), titel);
    for (const Gedrucktes& dokument : welt.drucker.dokumente) EXPECT_TRUE(dokument.beendet);
    EXPECT_EQ(welt.oberflaeche.sanduhrFolge, std::vector<bool>({true, false}));
    EXPECT_TRUE(knopf(name)->isEnabled());
    EXPECT_TRUE(welt.meldungen.gezeigt.empty());

    // No, then Yes.
    welt.rechtsklicken(name);
    EXPECT_EQ(csvDateien(), QStringList());
    welt.meldungen.antworten = {Antwort::Ja};
    welt.rechtsklicken(name);
    if (csv.isEmpty()) {
      EXPECT_TRUE(welt.meldungen.gezeigt.empty());
    } else {
      const QString frage = csv.size() == 1 ? "CSV-Datei erstellen" : "CSV-Dateien erstellen";
      ASSERT_EQ(welt.meldungen.gezeigt.size(), 2U + fall.listen.size());
      EXPECT_EQ(welt.meldungen.gezeigt[0], csvFrage(frage));
      EXPECT_EQ(welt.meldungen.gezeigt[1], csvFrage(frage));
    }
    for (qsizetype i = 0; i < csv.size(); ++i) {
      EXPECT_TRUE(welt.meldungen.gezeigt[static_cast<std::size_t>(2 + i)].text.contains(csv[i])) << i;
      EXPECT_EQ(welt.lesen("Tisch/" + csv[i]), csvBytes(fall.listen[static_cast<std::size_t>(i)]));
    }
    csv.sort();
    EXPECT_EQ(csvDateien(), csv);
    for (const QString& datei : csvDateien()) QFile::remove(welt.pfad("Tisch/" + datei));
    welt.meldungen.gezeigt.clear();
    welt.meldungen.antworten.clear();
    if (fall.schritt != QString("5")) {
      ASSERT_TRUE(welt.druecken(QString("cmdWeiter") + fall.schritt));
    }
  }
}

TEST_F(DruckenTest, AButtonThatIsOffDoesNothing) {
  ASSERT_FALSE(knopf("cmdDrucken1")->isEnabled());
  welt.rechtsklicken("cmdDrucken1");
  QTest::mouseClick(knopf("cmdDrucken1"), Qt::LeftButton);
  EXPECT_TRUE(welt.meldungen.gezeigt.empty() && welt.drucker.dokumente.empty());
}

TEST_F(DruckenTest, TheFocusStaysAndTheMenuKeyIsTheRightButton) {
  welt.bisSeite(0);
  knopf("cmdDrucken1")->setFocus();
  QTest::keyClick(knopf("cmdDrucken1"), Qt::Key_Return);
  EXPECT_EQ(dokumente().size(), 1);
  EXPECT_EQ(fokus(), QString("cmdDrucken1"));
  welt.meldungen.antworten = {Antwort::Ja};
  menuetaste();
  EXPECT_EQ(csvDateien(), QStringList("Schritt 1  Mitglieder der Gruppe Lieferung.csv"));
  EXPECT_EQ(fokus(), QString("cmdDrucken1"));
}

TEST_F(DruckenTest, WhatTheUserNarrowedDeletedAndSortedIsPrintedAndSavedSo) {
  welt.bisSeite(0);
  const QHeaderView* kopf = welt.liste("lvwListe1")->header();
  const auto rechts = [kopf](int spalte) {
    return kopf->sectionViewportPosition(spalte) + kopf->sectionSize(spalte) - 1;
  };
  kanteZiehen(kopf, rechts(2), 1);
  kanteZiehen(kopf, rechts(3), rechts(3) - kopf->sectionSize(3) + 13);  // 195 twips: on paper only
  QTest::keyClick(welt.liste("lvwListe1"), Qt::Key_Home);
  QTest::keyClick(welt.liste("lvwListe1"), Qt::Key_Delete);
  for (int i = 0; i < 2; ++i) QTest::keyClick(welt.liste("lvwListe1"), Qt::Key_1, Qt::ControlModifier);

  ASSERT_TRUE(welt.druecken("cmdDrucken1"));
  QStringList koepfe;
  QStringList namen;
  QString untertitel;
  for (const Textstelle& stelle : welt.drucker.dokumente.at(0).seiten.at(0).texte) {
    if (stelle.y == 22) koepfe << stelle.text;
    if (stelle.y >= 30 && stelle.y < 190) namen << stelle.text;
    if (stelle.y == 16) untertitel = stelle.text;
  }
  EXPECT_EQ(koepfe, QStringList({"Name", "Telefon"}));
  EXPECT_EQ(namen, QStringList({"Hof7", "Hof6", "Hof5", "Hof4", "Hof3", "Hof2"}));
  EXPECT_EQ(untertitel, QString("Anzahl der Personen: 6  (1 gelöscht)"));

  welt.meldungen.antworten = {Antwort::Ja};
  welt.rechtsklicken("cmdDrucken1");
  EXPECT_EQ(welt.lesen("Tisch/Schritt 1  Mitglieder der Gruppe Lieferung.csv"),
            QByteArray("Name\r\nHof7\r\nHof6\r\nHof5\r\nHof4\r\nHof3\r\nHof2\r\n"));

  // What was pushed together can be pulled out again.
  ASSERT_EQ(kopf->sectionSize(2), 0);
  const int kante = kopf->sectionViewportPosition(2) + 1;
  kanteZiehen(kopf, kante, kante + 100);
  EXPECT_EQ(kopf->sectionSize(2), 100);
}

TEST_F(DruckenTest, NothingGetsThroughWhileItPrints) {
  welt.bisSeite(1);
  welt.druecken("cmdDrucken2");
  welt.drucker.dokumente.clear();
  int gestoert = 0;
  welt.drucker.stoerung = [&](const char* vorgang) {
    if (vorgang != QString("beenden")) return;
    ++gestoert;
    EXPECT_TRUE(welt.oberflaeche.sanduhrAn);
    EXPECT_FALSE(knopf("cmdDrucken2")->isEnabled());
    EXPECT_TRUE(knopf("cmdWeiter2")->isEnabled()) << "only the pressed button is off";
    for (const char* name : {"cmdDrucken2", "cmdWeiter2"}) QTest::mouseClick(knopf(name), Qt::LeftButton);
    welt.rechtsklicken("cmdDrucken2");
  };
  ASSERT_TRUE(welt.druecken("cmdDrucken2"));
  EXPECT_EQ(gestoert, 2);
  EXPECT_EQ(dokumente().size(), 2);
  EXPECT_TRUE(welt.meldungen.gezeigt.empty());
  EXPECT_EQ(welt.fenster->aktuelleSeite(), 1);
  EXPECT_TRUE(knopf("cmdDrucken2")->isEnabled());

  // A printer that fails is told, and the other list is printed all the same.
  welt.drucker.stoerung = [&](const char* vorgang) {
    if (vorgang == QString("beenden") && std::exchange(gestoert, 0) > 0) throw Druckfehler{482, "Papierstau"};
  };
  welt.drucker.dokumente.clear();
  ASSERT_TRUE(welt.druecken("cmdDrucken2"));
  ASSERT_EQ(welt.drucker.dokumente.size(), 2U);
  EXPECT_TRUE(welt.drucker.dokumente[0].verworfen && welt.drucker.dokumente[1].beendet);
  EXPECT_EQ(welt.meldungen.gezeigt.size(), 1U);
  EXPECT_FALSE(welt.oberflaeche.sanduhrAn);
  EXPECT_TRUE(knopf("cmdDrucken2")->isEnabled());
}

TEST_F(DruckenTest, BeforeAStepHasRunTheListsAreEmpty) {
  welt.bisSeite(3);
  for (const char* weiter : {"cmdWeiter3b", "cmdWeiter4"}) {
    ASSERT_TRUE(welt.druecken(weiter));
    const QString name = QString("cmdDrucken%1").arg(welt.fenster->aktuelleSeite());
    welt.meldungen.gezeigt.clear();
    ASSERT_TRUE(welt.druecken(name));
    const Meldung druck{"Die Liste ist leer. Druck wird nicht durchgeführt!", Symbol::Information,
                        Knoepfe::Ok, "Liste ist leer"};
    EXPECT_EQ(welt.meldungen.gezeigt, std::vector<Meldung>({druck, druck}));
    welt.meldungen.gezeigt.clear();
    welt.meldungen.antworten = {Antwort::Ja};
    welt.rechtsklicken(name);
    const Meldung csv{"Die Liste ist leer. Erstellung der CSV wird nicht durchgeführt!", Symbol::Information,
                      Knoepfe::Ok, "Liste ist leer"};
    EXPECT_EQ(welt.meldungen.gezeigt, std::vector<Meldung>({csvFrage("CSV-Dateien erstellen"), csv, csv}));
  }
  EXPECT_TRUE(welt.drucker.dokumente.empty() && csvDateien().isEmpty());
}

}  // namespace
}  // namespace pelvanto::test
