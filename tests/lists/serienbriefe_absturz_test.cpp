// The mail merge of 20 persons on a disk that loses its power, and on one that fails.
#include <cstdio>
#include <gtest/gtest.h>

#include "common/testprogramm.h"
#include "crash/engine_scenarios.h"
#include "crash/scenario.h"
#include "jet/page_file.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

using jet::test::CrashFiles;

#ifdef __SANITIZE_ADDRESS__
constexpr int kPersonen = 4;  // many times slower
#else
constexpr int kPersonen = 20;
#endif

// Every name with two first names to count and every fifth with a question to answer, so that one person
// takes several saves in three tables.
jet::Bytes datenbank() {
  test::VerbindoDatenbank datenbank;
  datenbank.vorname({.vorname = u"Johann", .maennlich = true}).vorname({.vorname = u"Maria"});
  for (int id = 1; id <= kPersonen; ++id) {
    const QString namen = (id % 5 == 0 ? u"Huber%1 Johann und Maria"_s : u"Huber%1 Johann Maria"_s).arg(id);
    const QString adresse = u"40%1 Linz, Hauptstraße %1"_s.arg(id + 10);
    datenbank.person({.id = id, .namen = namen.toStdU16String(), .adresse = adresse.toStdU16String()});
  }
  return datenbank.bytes();
}

// A press on the button, in a program of its own whose database lies in `dateien`.
QStringList kopieren(jet::FileSystem& dateien) {
  test::Testprogramm programm;
  programm.werte.DatenbankPfad = QString::fromLatin1(jet::test::databaseName);
  programm.dateien.anlegen(programm.werte.DatenbankPfad);
  programm.meldungen.antworten.assign(kPersonen, Antwort::Ja);
  Umgebung umgebung(programm.aussenwelt(dateien), programm.werte);
  Liste liste({});
  for (int id = 1; id <= kPersonen; ++id) liste.hinzufuegen(zeilenschluessel(id), {u"Person %1"_s.arg(id)});
  umgebung.serienbriefe.SerienbriefAdressenKopieren(liste);
  QStringList texte;
  for (const Meldung& meldung : programm.meldungen.gezeigt) {
    if (meldung.symbol != Symbol::Frage) texte << meldung.text;
  }
  return texte;
}

// As the next opening finds it.
std::string inhalt(CrashFiles& dateien) {
  const jet::PageFile geoeffnet(dateien, jet::test::databaseName, 1u << 16);
  return jet::test::contentOf(dateien.now().at(jet::test::databaseName).content);
}

// The letter addresses in a content: nothing else has such a salutation.
int adressen(const std::string& inhalt) {
  int anzahl = 0;
  for (std::size_t stelle = 0; (stelle = inhalt.find("Sehr geehrte", stelle)) != std::string::npos;
       ++stelle) {
    ++anzahl;
  }
  return anzahl;
}

TEST(SerienbriefeAbsturz, NachStromausfallWieVorOderNachEinemSpeichern) {
  const jet::test::FreeRun lauf{"mail merge of 20 persons", datenbank(),
                                [](jet::FileSystem& dateien) { kopieren(dateien); }, jet::test::contentOf};
  const jet::test::CrashCounts zahlen = jet::test::loseThePower(lauf, {.seeds = 1, .recoverySample = 50});
  std::printf("mail merge of %d: %llu states, %llu of them in the recovery; %llu rolled back\n", kPersonen,
              static_cast<unsigned long long>(zahlen.states),
              static_cast<unsigned long long>(zahlen.recoveryStates),
              static_cast<unsigned long long>(zahlen.rolledBack));
  for (const std::string& fehler : zahlen.faults) ADD_FAILURE() << fehler;
  // Two counters or one flag and one address for each person.
  EXPECT_GT(zahlen.states, 3u * 10u * 2u * kPersonen);
  EXPECT_GT(zahlen.rolledBack, 25u * kPersonen);
}

TEST(SerienbriefeAbsturz, WasAuchScheitertWirdGesagtUndDieDateiBleibtHeil) {
  const jet::test::Disk anfang{{jet::test::databaseName, {datenbank(), 1}}};
  CrashFiles ungestoert(anfang);
  EXPECT_EQ(kopieren(ungestoert), QStringList());
  const std::string vollstaendig = inhalt(ungestoert);
  const std::uint64_t vorgaenge = ungestoert.operations();
  EXPECT_FALSE(vollstaendig.starts_with("damaged")) << vollstaendig.substr(0, 300);

  int fehlende = 0;
  for (std::uint64_t nummer = 1; nummer <= vorgaenge; nummer += 5) {
    for (const bool fortan : {false, true}) {
      CrashFiles dateien(anfang);
      dateien.failure = {nummer, fortan, jet::ErrorKind::DiskFull, true, false};
      const QStringList meldungen = kopieren(dateien);
      dateien.failure.reset();
      const std::string gestoert = inhalt(dateien);
      EXPECT_FALSE(gestoert.starts_with("damaged")) << nummer << ": " << gestoert.substr(0, 300);
      // A counter that could not be raised is told by the log alone; a person who is missing is not.
      if (adressen(gestoert) < kPersonen || (fortan && gestoert != vollstaendig)) {
        EXPECT_FALSE(meldungen.isEmpty()) << nummer;
      }
      fehlende += kPersonen - adressen(gestoert);
      // Once the disk is well again the copy can be repeated, and nobody is missing or there twice.
      EXPECT_EQ(kopieren(dateien), QStringList()) << nummer;
      const std::string wiederholt = inhalt(dateien);
      EXPECT_FALSE(wiederholt.starts_with("damaged")) << nummer << ": " << wiederholt.substr(0, 300);
      EXPECT_EQ(adressen(wiederholt), kPersonen) << nummer;
    }
  }
  EXPECT_GT(fehlende, 0) << "the failures had no consequences";
}

}  // namespace
}  // namespace pelvanto
