#include "steps/start.h"

#include <gtest/gtest.h>

#include "common/ausgabe.h"
#include "common/testprogramm.h"
#include "support/pfade.h"

namespace pelvanto::test {
namespace {

TEST(StartTest, ACopyOfTheDatabaseThatWindowsKeepsForTheUserIsAskedAbout) {
  const QString eigene = "/nutzer/VirtualStore/prog/Verbindo.mdb";
  const auto bereit = [&](bool vorhanden, Antwort antwort, std::size_t fragen) {
    Testprogramm programm;
    programm.werte.EigeneFassung = eigene;
    programm.dateien.anlegen(programm.werte.DatenbankPfad);
    if (vorhanden) programm.dateien.anlegen(eigene);
    programm.meldungen.antworten = {antwort};
    Umgebung umgebung(programm.aussenwelt(programm.jet), programm.werte);
    const bool ergebnis = datenbankBereit(umgebung);
    EXPECT_EQ(programm.meldungen.gezeigt.size(), fragen);
    EXPECT_EQ(programm.fehlerprotokoll().size(), static_cast<qsizetype>(fragen));
    for (const QString& text : programm.meldungen.texte()) {
      EXPECT_TRUE(text.contains(eigene) && text.contains(programm.werte.DatenbankPfad)) << text.toStdString();
    }
    return ergebnis;
  };
  EXPECT_TRUE(bereit(false, Antwort::Nein, 0));
  EXPECT_TRUE(bereit(true, Antwort::Ja, 1));
  EXPECT_FALSE(bereit(true, Antwort::Nein, 1));
}

TEST(StartTest, TheCopyLiesBelowTheUsersOwnFolderByTheSamePath) {
  const QString eigener = R"(C:\Users\Eva Ä\AppData\Local)";
  EXPECT_EQ(umgeleiteterPfad(R"(C:\Program Files (x86)\Verbindo\Verbindo.mdb)", eigener).replace('/', '\\'),
            eigener + R"(\VirtualStore\Program Files (x86)\Verbindo\Verbindo.mdb)");
  EXPECT_EQ(umgeleiteterPfad(R"(\\server\verbindo\Verbindo.mdb)", eigener), QString());
  EXPECT_EQ(umgeleiteterPfad("/prog/Verbindo.mdb", eigener), QString());
  EXPECT_EQ(umgeleiteterPfad(R"(C:\Verbindo\Verbindo.mdb)", QString()), QString());
}

}  // namespace
}  // namespace pelvanto::test
