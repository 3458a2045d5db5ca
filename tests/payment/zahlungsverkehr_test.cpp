#include "payment/zahlungsverkehr.h"

#include <gtest/gtest.h>
#include <limits>

#include "common/ausgabe.h"
#include "payment/zahlungsdatei.h"
#include "payment/zahlungswelt.h"

namespace pelvanto::test {
namespace {

const QString kDatei = "/prog/UE26001.xml";

struct Schreibwelt : Zahlungswelt {
  QString pfad;
  bool erstellen(const UeberweisungT& tabelle, const QString& bic = " MUSTAT2LXXX ") {
    return zahlungsverkehr.UeberweisungDateiErstellen(tabelle, "AT611904300234573201", bic, pfad);
  }
};

TEST(ZahlungsverkehrTest, RefusesWhatCannotBePaidWithItsMessage) {
  const Waehrung groesste = Waehrung::ausZehntausendsteln(std::numeric_limits<qint64>::max());
  Ueberweisung riese = ueberweisung(0);
  riese.EinzelBetrag = groesste;
  struct Fall {
    UeberweisungT tabelle;
    const char* bic;
    const char* organisation;
    const char* meldung;
  };
  const Fall faelle[] = {
      {{ueberweisung(100)},
       "MUSTAT2L",
       "Tol  ",
       "Die Bezeichnung des Absenders kann nicht kürzer als 5 Zeichen sein!"},
      {{ueberweisung(100)},
       " MUST   ",
       "Tolvana",
       "Offensichtlich wurde die BIC des Auftraggebers nicht erfasst."},
      {{ueberweisung(100)}, "", "Tolvana", "Offensichtlich wurde die BIC des Auftraggebers nicht erfasst."},
      {{ueberweisung(100), ueberweisung(-100)},
       "MUSTAT2L",
       "Tolvana",
       "Die Gesamtsumme beträgt 0,00 €, ein Erstellen der Datei ist nicht möglich!"},
      {{ueberweisung(-123456)},
       "MUSTAT2L",
       "Tolvana",
       "Die Gesamtsumme beträgt -1.234,56 €, ein Erstellen der Datei ist nicht möglich!"},
      {{riese, ueberweisung(1)},
       "MUSTAT2L",
       "Tolvana",
       "Die Gesamtsumme ist zu groß, ein Erstellen der Datei ist nicht möglich!"},
  };
  for (const Fall& fall : faelle) {
    Schreibwelt welt;
    welt.werte.OrganisationsName = fall.organisation;
    EXPECT_FALSE(welt.erstellen(fall.tabelle, fall.bic)) << fall.meldung;
    EXPECT_EQ(welt.meldungen.gezeigt, std::vector<Meldung>({{fall.meldung, Symbol::Kritisch}}));
    EXPECT_TRUE(welt.andereDateien().isEmpty());
    EXPECT_TRUE(welt.pfad.isEmpty());
  }
}

TEST(ZahlungsverkehrTest, AnEmptyTableLeavesOnlyALogLine) {
  Schreibwelt welt;
  EXPECT_FALSE(welt.erstellen({}));
  EXPECT_EQ(welt.protokollzeilen(), QStringList("UeberweisungT hat keine Datensätze."));
  EXPECT_TRUE(welt.meldungen.gezeigt.empty());
  EXPECT_TRUE(welt.andereDateien().isEmpty());
}

TEST(ZahlungsverkehrTest, WritesTheFileOnceAndDurably) {
  Schreibwelt welt;
  ASSERT_TRUE(welt.erstellen({ueberweisung(123450)}));
  EXPECT_EQ(welt.pfad, kDatei);
  EXPECT_EQ(welt.andereDateien(), QStringList(kDatei));
  EXPECT_TRUE(welt.meldungen.gezeigt.empty());
  EXPECT_TRUE(welt.stoerer.vorgaenge.contains("ordnerSpuelen /prog"));
  EXPECT_EQ(
      welt.protokollzeilen(),
      QStringList({"Datei wird jetzt geschrieben: /prog/UE26001.xml",
                   "        Datei wird mit Name umbenannt: /prog/UE26001.xml.tmp --> /prog/UE26001.xml",
                   "        Datei wurde mit Name umbenannt: /prog/UE26001.xml.tmp --> /prog/UE26001.xml",
                   "    /prog/UE26001.xml geschrieben."}));
}

TEST(ZahlungsverkehrTest, TakesTheSmallestFreeNumberOfTheYear) {
  Schreibwelt welt;
  welt.speicher.anlegen("/prog/UE26001.xml", "bezahlt");
  welt.speicher.anlegen("/prog/UE26002.xml", "bezahlt");
  welt.speicher.anlegen("/prog/UE26004.xml", "bezahlt");
  welt.speicher.anlegen("/prog/UE25003.xml", "bezahlt");
  ASSERT_TRUE(welt.erstellen({ueberweisung(100)}));
  EXPECT_EQ(welt.pfad, "/prog/UE26003.xml");
  const QByteArray inhalt = welt.speicher.inhalt(welt.pfad);
  EXPECT_TRUE(inhalt.contains("<MsgId>UE26003</MsgId>"));
  EXPECT_TRUE(inhalt.contains("<PmtInfId>UE26003</PmtInfId>"));

  ASSERT_TRUE(welt.erstellen({ueberweisung(100)}));
  EXPECT_EQ(welt.pfad, "/prog/UE26005.xml");
  welt.uhr.stellen(QDateTime(QDate(2027, 1, 1), QTime(0, 0)));
  ASSERT_TRUE(welt.erstellen({ueberweisung(100)}));
  EXPECT_EQ(welt.pfad, "/prog/UE27001.xml");
}

TEST(ZahlungsverkehrTest, NamesInUseThatCannotBeOpenedAreTakenToo) {
  Schreibwelt welt;
  welt.speicher.anlegen("/prog/UE26001.xml", "bezahlt").gesperrt = true;
  welt.speicher.ordner("/prog/UE26002.xml");
  ASSERT_TRUE(welt.erstellen({ueberweisung(100)}));
  EXPECT_EQ(welt.pfad, "/prog/UE26003.xml");
  EXPECT_EQ(welt.speicher.inhalt("/prog/UE26001.xml"), QByteArray("bezahlt"));
}

TEST(ZahlungsverkehrTest, After999FilesOfAYearTheFolderIsNamedAndNothingWritten) {
  Schreibwelt welt;
  for (int nummer = 1; nummer <= 999; ++nummer) {
    welt.speicher.anlegen(QString("/prog/UE26%1.xml").arg(nummer, 3, 10, QChar(u'0')), "bezahlt");
  }
  EXPECT_FALSE(welt.erstellen({ueberweisung(100)}));
  ASSERT_EQ(welt.meldungen.gezeigt.size(), 1U);
  EXPECT_EQ(welt.meldungen.gezeigt[0].symbol, Symbol::Kritisch);
  EXPECT_TRUE(welt.meldungen.gezeigt[0].text.startsWith(
      "Im Ordner /prog sind alle 999 Nummern für Zahlungsdateien des Jahres 2026 vergeben."));
  EXPECT_EQ(welt.andereDateien().size(), 999);
  for (const QString& pfad : welt.andereDateien()) {
    EXPECT_EQ(welt.speicher.inhalt(pfad), QByteArray("bezahlt")) << pfad.toStdString();
  }
}

TEST(ZahlungsverkehrTest, AFailureAtAnyFileOperationLeavesNothingBehindAndNamesTheFile) {
  int durchlaufen = 0;
  for (int nummer = 1;; ++nummer) {
    Schreibwelt welt;
    welt.speicher.anlegen("/prog/26_03_16.txt");  // the log's own operations are not counted
    welt.speicher.anlegen("/prog/UE26001.xml", "bezahlt");
    welt.stoerer.stoereNummer(nummer, {57, "Ein-/Ausgabefehler"});
    const bool erstellt = welt.erstellen({ueberweisung(100), ueberweisung(250)});
    if (welt.stoerer.gestoert() == 0) {
      EXPECT_TRUE(erstellt);
      break;
    }
    const std::string vorgang = welt.stoerer.vorgaenge.at(nummer - 1).toStdString();
    EXPECT_EQ(welt.speicher.inhalt("/prog/UE26001.xml"), QByteArray("bezahlt")) << vorgang;
    if (erstellt) {
      // Only a log line is lost, or the look for a free number met a file that cannot be opened.
      EXPECT_TRUE(vorgang.starts_with("anhaengen") || vorgang.ends_with(".xml")) << vorgang;
      EXPECT_EQ(welt.andereDateien(), QStringList({"/prog/UE26001.xml", "/prog/UE26002.xml"})) << vorgang;
      continue;
    }
    ++durchlaufen;
    EXPECT_EQ(welt.andereDateien(), QStringList("/prog/UE26001.xml")) << vorgang;
    ASSERT_EQ(welt.meldungen.gezeigt.size(), 1U) << vorgang;
    const Meldung& meldung = welt.meldungen.gezeigt[0];
    EXPECT_EQ(meldung.symbol, Symbol::Kritisch);
    EXPECT_TRUE(meldung.text.startsWith("Die Datei /prog/UE26002.xml konnte nicht erstellt werden: "))
        << vorgang;
    EXPECT_TRUE(meldung.text.endsWith(
        "Bitte führen Sie Schritt 5 noch einmal aus und erstellen Sie die Datei dann neu."));
    EXPECT_TRUE(welt.pfad.isEmpty());
  }
  EXPECT_GE(durchlaufen, 6);  // write, read back, test, rename, flush the folder, read again
}

TEST(ZahlungsverkehrTest, WhatCannotBeRemovedIsNamedToo) {
  Schreibwelt welt;
  welt.stoerer.stoere("umbenennen", {70, "Zugriff verweigert"});
  welt.stoerer.stoere("loeschen", {70, "Zugriff verweigert"});
  EXPECT_FALSE(welt.erstellen({ueberweisung(100)}));
  EXPECT_EQ(
      welt.meldungen.gezeigt.back().text,
      "Die Datei /prog/UE26001.xml konnte nicht erstellt werden: Die Datei konnte nicht umbenannt "
      "werden, Fehler 70 (Zugriff verweigert).\n\nBitte führen Sie Schritt 5 noch einmal aus und erstellen "
      "Sie die Datei dann neu.\n\n"
      "Die unbrauchbare Datei /prog/UE26001.xml.tmp ließ sich nicht löschen. Löschen Sie sie bitte selbst "
      "und übergeben Sie sie keinesfalls der Bank!");
}

TEST(ZahlungsverkehrTest, FilesOfOthersAreNeverReplacedOrRemoved) {
  Schreibwelt welt;
  const QStringList fremde{kDatei + ".tmp", kDatei + ".tmp2"};
  for (const QString& datei : fremde) welt.speicher.anlegen(datei, "fremd");
  EXPECT_TRUE(welt.erstellen({ueberweisung(100)}));
  EXPECT_EQ(welt.andereDateien(), QStringList(kDatei) + fremde);
  welt.speicher.loeschen(kDatei);
  // Another program takes the name: after the number was chosen, and in the very moment of the renaming.
  for (const QString& moment : {"lesen " + kDatei + ".tmp3", "umbenennen " + kDatei + ".tmp3"}) {
    welt.stoerer.vorVorgang = [&](const QString& vorgang) {
      if (vorgang == moment) welt.speicher.anlegen(kDatei, "fremd");
    };
    EXPECT_FALSE(welt.erstellen({ueberweisung(100)}));
    EXPECT_TRUE(welt.meldungen.gezeigt.back().text.contains("umbenannt werden, Fehler 58 ("));
    EXPECT_EQ(welt.andereDateien(), QStringList(kDatei) + fremde);
    for (const QString& datei : welt.andereDateien()) EXPECT_EQ(welt.speicher.inhalt(datei), "fremd");
    welt.speicher.loeschen(kDatei);
  }
  welt.stoerer.vorVorgang = {};
  // Where no name is free nothing is written.
  for (int i = 3; i <= 99; ++i) welt.speicher.anlegen(kDatei + QString(".tmp%1").arg(i), "fremd");
  EXPECT_FALSE(welt.erstellen({ueberweisung(100)}));
  EXPECT_EQ(welt.andereDateien().size(), 99);
  for (const QString& datei : welt.andereDateien()) EXPECT_EQ(welt.speicher.inhalt(datei), "fremd");
}

TEST(ZahlungsverkehrTest, BytesThatTheDiskChangedAreNotedAndRemoved) {
  for (const char* nach : {"lesen /prog/UE26001.xml.tmp", "ordnerSpuelen /prog"}) {
    Schreibwelt welt;
    welt.stoerer.vorVorgang = [&](const QString& vorgang) {
      if (vorgang == nach) {
        const QString datei = welt.speicher.existiert(kDatei) ? kDatei : kDatei + ".tmp";
        welt.speicher.anlegen(datei, welt.speicher.inhalt(datei).replace("1.00", "9.00"));
      }
    };
    EXPECT_FALSE(welt.erstellen({ueberweisung(100)})) << nach;
    EXPECT_TRUE(welt.andereDateien().isEmpty()) << nach;
    EXPECT_TRUE(welt.meldungen.gezeigt.back().text.contains("zurückgelesen")) << nach;
  }
}

TEST(ZahlungsverkehrTest, AnAmountWithFractionsOfACentIsNotWritten) {
  Schreibwelt welt;
  Ueberweisung bruch = ueberweisung(100);
  bruch.EinzelBetrag = Waehrung::ausZehntausendsteln(10050);
  EXPECT_FALSE(welt.erstellen({ueberweisung(100), bruch}));
  EXPECT_TRUE(welt.andereDateien().isEmpty());
  ASSERT_EQ(welt.meldungen.gezeigt.size(), 1U);
  EXPECT_TRUE(welt.meldungen.gezeigt[0].text.contains("Der Betrag der 2. Überweisung stimmt nicht"));
}

TEST(ZahlungsverkehrTest, WritesTimesInIsoForm) {
  EXPECT_EQ(DatumZeitISO(QDateTime(QDate(2026, 3, 6), QTime(0, 5, 9))), "2026-03-06T00:05:09");
  EXPECT_EQ(DatumZeitISO(QDateTime(QDate(2026, 12, 31), QTime(23, 59, 59))), "2026-12-31T23:59:59");
}

}  // namespace
}  // namespace pelvanto::test
