#include "sample/beispielordner.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <unistd.h>

#include "jet/check.h"
#include "jet/database.h"
#include "jet/page_file.h"

namespace {

namespace fs = std::filesystem;
using pelvanto::beispiel::beispielordnerAnlegen;

class Beispielordner : public ::testing::Test {
 protected:
  void SetUp() override { fs::create_directories(ordner_); }
  void TearDown() override { fs::remove_all(ordner_); }

  std::string inhalt(const std::string& name) const {
    std::ifstream datei(ordner_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(datei), {}};
  }
  void lege(const std::string& name, const std::string& text) const { std::ofstream(ordner_ / name) << text; }

  fs::path ordner_ = fs::temp_directory_path() / ("pelvanto-beispiel-" + std::to_string(getpid()));
};

TEST_F(Beispielordner, ErsetztZweiDateienUndSonstNichts) {
  lege("Verbindo.mdb", "alt");
  lege("verbindo.ini", "[Auszahlungen]\nGesamtBetrag=1\n");
  lege("UE26001.xml", "bezahlt");
  beispielordnerAnlegen(ordner_, 2026, 46000.5);
  std::set<std::string> namen;
  for (const fs::directory_entry& eintrag : fs::directory_iterator(ordner_)) {
    namen.insert(eintrag.path().filename().string());
  }
  EXPECT_EQ(namen, (std::set<std::string>{"UE26001.xml", "Verbindo.mdb", "verbindo.ini"}));
  EXPECT_EQ(inhalt("UE26001.xml"), "bezahlt");
  EXPECT_GT(inhalt("Verbindo.mdb").size(), 500000u);
  EXPECT_NE(inhalt("verbindo.ini").find("GesamtBetrag=125.000,00\r\n"), std::string::npos);

  const std::string erste = inhalt("Verbindo.mdb");
  beispielordnerAnlegen(ordner_, 2026, 46000.5);
  EXPECT_TRUE(inhalt("Verbindo.mdb") == erste) << "not the same every time";
}

TEST_F(Beispielordner, HatEineDatenbankMitSpurenDerJahre) {
  beispielordnerAnlegen(ordner_, 2026, 46000.5);
  jet::Database datenbank(jet::systemFiles(), ordner_ / "Verbindo.mdb");
  const jet::CheckReport bericht = jet::check(datenbank);
  EXPECT_TRUE(bericht.errors.empty()) << bericht.errors.front();
  const std::string datei = inhalt("Verbindo.mdb");
  int verschoben = 0, geloescht = 0;
  for (std::size_t seite = 4096; seite < datei.size(); seite += 4096) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(datei[seite + i]); };
    if (byte(0) != 1) continue;
    for (std::size_t zeile = 0; zeile < byte(12); ++zeile) {
      const unsigned merkmale = byte(15 + 2 * zeile) & 0xC0;
      verschoben += merkmale == 0x40;
      geloescht += merkmale == 0xC0;
    }
  }
  EXPECT_GT(verschoben, 50);
  EXPECT_GT(geloescht, 50);
}

TEST_F(Beispielordner, HatEineEinstellungsdateiInWindows1252) {
  beispielordnerAnlegen(ordner_, 2031, 46000.5);
  const std::string text = inhalt("verbindo.ini");
  for (const char* stueck :
       {"[Programm]\r\nLand=\xD6sterreich\r\n",
        "\r\n[Auszahlungen]\r\nUnterlieferungGruppe=Milchlieferanten\r\n",
        "GruppeNotwendig=Qualit\xE4tsprogramm\r\n", "WortlautUeberweisung=Qualit\xE4tsbonus 2030 - ",
        "EigeneBIC=HOFKAT2LXXX\r\n", "\r\n[Serienbrief]\r\n"}) {
    EXPECT_NE(text.find(stueck), std::string::npos) << stueck;
  }
  EXPECT_LT(text.find("[Programm]"), text.find("[Auszahlungen]"));
  EXPECT_LT(text.find("[Auszahlungen]"), text.find("[Serienbrief]"));
  for (std::size_t ende = text.find('\n'); ende != std::string::npos; ende = text.find('\n', ende + 1)) {
    EXPECT_EQ(text[ende - 1], '\r');
  }
}

}  // namespace
