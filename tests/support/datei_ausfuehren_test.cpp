#include "support/datei_ausfuehren.h"

#include <gtest/gtest.h>

#include "common/ausgabe.h"
#include "common/dateiwelt.h"

namespace pelvanto::test {
namespace {

struct Oeffnenwelt : Dateiwelt {
  FakeAnwendungen anwendungen;
  DateiAusfuehren ausfuehren{anwendungen, dateien, protokoll, meldungen, uhr};
  using Geoeffnet = std::vector<std::pair<QString, int>>;
};

TEST(DateiAusfuehrenTest, OpensTheFileByARepairedPath) {
  struct Fall {
    const char* gegeben;
    const char* geoeffnet;
  };
  const Fall faelle[] = {{"C:\\\\data\\\\x.csv", "C:\\data\\x.csv"},
                         {"\\\\server\\teil\\x.csv", nullptr},
                         {"//server//teil//x.csv", "//server/teil/x.csv"},
                         {"/data/x.csv", nullptr},
                         {"/data///x.csv", "/data//x.csv"}};
  for (const Fall& fall : faelle) {
    Oeffnenwelt welt;
    const QString name = fall.geoeffnet != nullptr ? fall.geoeffnet : fall.gegeben;
    welt.speicher.anlegen(name);
    welt.ausfuehren.ausfuehren(fall.gegeben, 1);
    EXPECT_EQ(welt.anwendungen.geoeffnet, Oeffnenwelt::Geoeffnet({{name, 1}}));
    QStringList korrektur;
    if (fall.geoeffnet != nullptr) {
      korrektur << QStringLiteral("DateiAusfuehren: Dateiname musste korrigiert werden von ") + fall.gegeben +
                       " auf " + name;
    }
    EXPECT_EQ(welt.fehlerzeilen(), korrektur);
    EXPECT_EQ(welt.protokollzeilen(), korrektur + QStringList("DateiAusfuehren gestartet für: " + name));
    EXPECT_TRUE(welt.meldungen.gezeigt.empty());
    EXPECT_TRUE(welt.uhr.wartezeiten.empty());
  }
  Oeffnenwelt welt;
  welt.ausfuehren.ausfuehren("   ", 1);
  EXPECT_TRUE(welt.speicher.pfade().isEmpty());
  welt.speicher.anlegen("/prog/hier.csv");
  welt.ausfuehren.ausfuehren("hier.csv", 3);
  EXPECT_EQ(welt.anwendungen.geoeffnet, Oeffnenwelt::Geoeffnet({{"/prog/hier.csv", 3}}));
}

TEST(DateiAusfuehrenTest, WaitsForTheFileElevenTimes) {
  Oeffnenwelt welt;
  welt.ausfuehren.ausfuehren("/data/fehlt.csv", 1);
  EXPECT_EQ(welt.uhr.wartezeiten, std::vector<int>(11, 1000));
  EXPECT_EQ(welt.meldungen.gezeigt,
            std::vector<Meldung>({{"Die Datei /data/fehlt.csv wurde nicht gefunden. Möglicherweise wurde sie "
                                   "verschoben oder gelöscht.",
                                   Symbol::Kritisch, Knoepfe::Ok, "Datei nicht gefunden"}}));
  EXPECT_TRUE(welt.anwendungen.geoeffnet.empty());

  Oeffnenwelt spaet;
  spaet.uhr.beimWarten = [&](int nummer) {
    if (nummer == 10) spaet.speicher.anlegen("/data/fehlt.csv");
  };
  spaet.ausfuehren.ausfuehren("/data/fehlt.csv", 1);
  EXPECT_EQ(spaet.uhr.wartezeiten.size(), 10U);
  EXPECT_EQ(spaet.anwendungen.geoeffnet.size(), 1U);
  EXPECT_TRUE(spaet.meldungen.gezeigt.empty());
}

TEST(DateiAusfuehrenTest, TellsWhyNothingWasOpened) {
  for (const int antwort : {0, 5, 30, 31, 32, 33}) {
    Oeffnenwelt welt;
    welt.speicher.anlegen("/data/x.csv");
    welt.anwendungen.antwort = antwort;
    welt.ausfuehren.ausfuehren("/data/x.csv", 1);
    std::vector<Meldung> erwartet;
    QStringList fehlerzeilen;
    if (antwort == 31) {
      erwartet = {{"Wahrscheinlich ist keine passende Anwendung vorhanden!", Symbol::Kritisch, Knoepfe::Ok,
                   "Fehler beim Aufruf"}};
      fehlerzeilen
          << "FunktionenFürAlle.DateiAusfuehren: Keine passende Anwendung für ShellExecute: /data/x.csv";
    } else if (antwort < 33) {
      erwartet = {
          {QStringLiteral("Fehler Nr. %1 beim Aufruf der Datei /data/x.csv").arg(antwort), Symbol::Kritisch}};
    }
    EXPECT_EQ(welt.meldungen.gezeigt, erwartet) << antwort;
    EXPECT_EQ(welt.fehlerzeilen(), fehlerzeilen) << antwort;
    EXPECT_EQ(welt.anwendungen.geoeffnet.size(), 1U);
  }
}

}  // namespace
}  // namespace pelvanto::test
