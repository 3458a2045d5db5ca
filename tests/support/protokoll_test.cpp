#include "support/protokoll.h"

#include <gtest/gtest.h>

#include "common/ausgabe.h"
#include "common/dateiwelt.h"

namespace pelvanto::test {
namespace {

TEST(ProtokollTest, WithoutEarlierLogsTheDayStartsWithItsFirstLine) {
  Dateiwelt welt;
  welt.protokoll.schreiben(QStringLiteral("Übergröße – Őri"));
  welt.protokoll.schreiben(QStringLiteral("Einzelheit"), 4);

  EXPECT_EQ(welt.speicher.inhalt("/prog/26_03_16.txt"),
            QByteArray("K 08:09:10  \xDC"
                       "bergr\xF6\xDF"
                       "e \x96 Ori\r\nK 08:09:10      Einzelheit\r\n"));
  EXPECT_FALSE(welt.protokoll.neuerMonat());
  EXPECT_FALSE(welt.protokoll.neuesJahr());
}

TEST(ProtokollTest, ErrorLinesAreNumberedByTheCarriageReturnsAlreadyThere) {
  Dateiwelt welt;
  welt.speicher.anlegen("/prog/Fehlerprotokoll.txt", "1;alt\r\n2;alt\rmit zweien\r\n");
  welt.protokoll.fehler(QStringLiteral("Erster"));
  welt.protokoll.fehler(QStringLiteral("Zweiter"), 8);

  EXPECT_EQ(welt.speicher.inhalt("/prog/Fehlerprotokoll.txt"),
            QByteArray("1;alt\r\n2;alt\rmit zweien\r\n4;K 16.03.26 08:09:10  Erster\r\n"
                       "5;K 16.03.26 08:09:10          Zweiter\r\n"));
  EXPECT_EQ(welt.protokollzeilen(), QStringList({"Erster", "        Zweiter"}));
}

TEST(ProtokollTest, TheDayBeginsWithTheRecordOfThreeEarlierLogs) {
  Dateiwelt welt;
  welt.speicher.zeit = QDateTime(QDate(2026, 2, 20), QTime(7, 8, 9));
  welt.speicher.anlegen("/prog/26_02_20.txt", QByteArray(1234567, 'x'));
  welt.speicher.anlegen("/prog/26_02_19.txt");
  welt.speicher.anlegen("/prog/25_12_31.txt", "x");
  welt.speicher.anlegen("/prog/25_12_30.txt", "the fourth");
  welt.protokoll.schreiben(QStringLiteral("Zeile"));
  welt.protokoll.schreiben(QStringLiteral("Noch eine"));

  const QStringList zeilen = welt.protokollzeilen();
  ASSERT_EQ(zeilen.size(), 23);
  EXPECT_EQ(zeilen.mid(0, 8), QStringList({"<Gestern>", "    <Dateiname>/prog/26_02_20.txt</Dateiname>",
                                           "    <DateiGroesse>1.234.567</DateiGroesse>",
                                           "    <Erstellt>20.02.26 07:08:09</Erstellt>",
                                           "    <LetzterZugriff>20.02.26 07:08:09</LetzterZugriff>",
                                           "    <LetztesSchreiben>20.02.26 07:08:09</LetztesSchreiben>",
                                           "</Gestern>", "<VorGestern>"}));
  EXPECT_EQ(zeilen.mid(13, 3), QStringList({"</VorGestern>", "<VorVorGestern>",
                                            "    <Dateiname>/prog/25_12_31.txt</Dateiname>"}));
  EXPECT_EQ(zeilen.mid(20), QStringList({"</VorVorGestern>", "Zeile", "Noch eine"}));
  EXPECT_TRUE(welt.protokoll.neuerMonat());
  EXPECT_FALSE(welt.protokoll.neuesJahr());
}

TEST(ProtokollTest, NewMonthAndNewYearFollowFromTheNearestEarlierLog) {
  struct Fall {
    QDate heute;
    const char* frueher;
    bool monat, jahr;
  };
  const Fall faelle[] = {
      {{2026, 1, 1}, "/prog/25_12_30.txt", false, true},   {{2026, 3, 1}, "/prog/26_02_28.txt", true, false},
      {{2026, 3, 2}, "/prog/26_03_01.txt", false, false},  {{2026, 4, 9}, "/prog/25_12_31.txt", false, true},
      {{2026, 4, 10}, "/prog/25_12_31.txt", false, false},  // 100 days ago: not looked for
  };
  for (const Fall& fall : faelle) {
    Dateiwelt welt;
    welt.speicher.anlegen(fall.frueher);
    welt.uhr.stellen(QDateTime(fall.heute, QTime(12, 0)));
    welt.protokoll.schreiben(QStringLiteral("x"));
    EXPECT_EQ(welt.protokoll.neuerMonat(), fall.monat) << fall.frueher;
    EXPECT_EQ(welt.protokoll.neuesJahr(), fall.jahr) << fall.frueher;
  }
}

TEST(ProtokollTest, FailuresOfTheLogAreSwallowedAndUnreadableLogsShortenTheRecord) {
  Dateiwelt welt;
  welt.speicher.anlegen("/prog/26_03_15.txt", "abc");
  welt.stoerer.stoere("zeiten", {70, "Zugriff verweigert"});
  welt.protokoll.schreiben(QStringLiteral("Zeile"));
  EXPECT_EQ(welt.protokollzeilen(),
            QStringList({"<Gestern>", "    <Dateiname>/prog/26_03_15.txt</Dateiname>",
                         "    <DateiGroesse>3</DateiGroesse>", "</Gestern>", "Zeile"}));

  welt.stoerer.halbSchreiben = false;
  welt.stoerer.stoere("anhaengen", {61, "Datenträger voll"});
  welt.protokoll.fehler(QStringLiteral("verloren"));
  EXPECT_EQ(welt.protokollzeilen().size(), 5);
  EXPECT_TRUE(welt.meldungen.gezeigt.empty());
}

}  // namespace
}  // namespace pelvanto::test
