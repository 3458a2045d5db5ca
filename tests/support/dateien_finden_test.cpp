#include "support/dateien_finden.h"

#include <gtest/gtest.h>

#include "common/ausgabe.h"
#include "common/dateiwelt.h"
#include "support/pfade.h"
#include "support/programm_ende.h"

namespace pelvanto::test {
namespace {

using Optionen = DateienFinden::Kopieroptionen;

TEST(FileExistsTest, AnswersSilentlyWhereTheFileIsMissing) {
  Dateiwelt welt;
  welt.speicher.anlegen("/prog/da.txt");
  EXPECT_TRUE(welt.dateien.FileExists("/prog/da.txt"));
  EXPECT_FALSE(welt.dateien.FileExists("/prog/fehlt.txt"));
  EXPECT_FALSE(welt.dateien.FileExists("/weg/fehlt.txt"));
  EXPECT_FALSE(welt.dateien.FileExists("/prog"));
  for (const int nummer : {52, 57, 71}) {
    Dateiwelt gestoert;
    gestoert.stoerer.stoere("oeffnenPruefen", {nummer, "x"});
    EXPECT_FALSE(gestoert.dateien.FileExists("/prog/da.txt"));
    EXPECT_TRUE(gestoert.speicher.pfade().isEmpty());
  }
  welt.stoerer.stoere("oeffnenPruefen", {55, "Datei schon offen"});
  EXPECT_TRUE(welt.dateien.FileExists("/prog/da.txt"));
  EXPECT_TRUE(welt.meldungen.gezeigt.empty());
  EXPECT_EQ(welt.andereDateien(), welt.speicher.pfade());  // nothing was logged
}

TEST(FileExistsTest, LogsNamesThatAreNone) {
  Dateiwelt welt;
  EXPECT_FALSE(welt.dateien.FileExists(""));
  EXPECT_FALSE(welt.dateien.FileExists("/prog/a*.txt"));
  EXPECT_EQ(welt.fehlerzeilen(),
            QStringList({"DateienFinden.FileExists: Kein Dateiname übermittelt.",
                         "DateienFinden.FileExists: * im Dateinamen gefunden:", "    /prog/a*.txt"}));
  EXPECT_TRUE(welt.meldungen.gezeigt.empty());
}

TEST(FileExistsTest, AFileHeldExclusivelyIsReportedAsError70) {
  Dateiwelt welt;
  welt.speicher.anlegen("/prog/Verbindo.mdb").gesperrt = true;
  EXPECT_FALSE(welt.dateien.FileExists("/prog/Verbindo.mdb"));
  EXPECT_EQ(welt.fehlerzeilen(),
            QStringList("Fehler 70 (auf Datei kann nicht zugegriffen werden): /prog/Verbindo.mdb"));
  EXPECT_EQ(
      welt.meldungen.gezeigt,
      std::vector<Meldung>({{"/prog/Verbindo.mdb\nAuf diese Datei kann nicht zugegriffen werden! Sie "
                             "sollten das Programm beenden und nach der Ursache suchen.\n\nInformieren Sie "
                             "den Programmierer, sollte das Problem häufiger auftauchen!",
                             Symbol::Kritisch}}));
}

TEST(FileExistsTest, AnUnknownErrorEndsTheProgram) {
  Dateiwelt welt;
  welt.stoerer.stoere("oeffnenPruefen", {61, "Datenträger voll"});
  EXPECT_THROW(welt.dateien.FileExists("/prog/x"), ProgrammEnde);
  EXPECT_EQ(welt.meldungen.gezeigt,
            std::vector<Meldung>({{"Fehler Nr. 61 - unbekannter Fehler - Programm wird beendet",
                                   Symbol::Ausrufezeichen, Knoepfe::Ok, "Fehler"}}));
  EXPECT_EQ(welt.protokollzeilen(), QStringList("undefinierter Fehler Nr. 61 bei FileExists: /prog/x"));
}

TEST(DateienFindenTest, ABareNameIsCompletedByTheProgramFolder) {
  Dateiwelt welt;
  welt.speicher.anlegen("/prog/a.txt");
  welt.speicher.ordner("/prog/unter");
  QString name = "a.txt";
  EXPECT_TRUE(welt.dateien.DateiVorhanden(name));
  EXPECT_EQ(name, "/prog/a.txt");
  for (const char* fehlt : {"", "b.txt", "unter", "/prog/unter", "/a.txt", "x\\a.txt"}) {
    EXPECT_FALSE(welt.dateien.DateiVorhanden(QString(fehlt))) << fehlt;
  }
  EXPECT_TRUE(welt.dateien.PfadExistiert("/prog/unter"));
  EXPECT_FALSE(welt.dateien.PfadExistiert("/prog/weg"));
  EXPECT_FALSE(welt.dateien.PfadExistiert("  "));
}

TEST(DateienFindenTest, CreatePathMakesEveryMissingFolder) {
  Dateiwelt welt;
  EXPECT_TRUE(welt.dateien.CreatePath("/prog/a/b/c"));
  EXPECT_TRUE(welt.speicher.istOrdner("/prog/a/b/c"));
  EXPECT_TRUE(welt.dateien.CreatePath("/prog/a/b/c/"));
  EXPECT_EQ(welt.oberflaeche.sanduhrFolge, std::vector<bool>({true, false, true, false}));

  welt.speicher.anlegen("/prog/datei");
  EXPECT_FALSE(welt.dateien.CreatePath("/prog/datei/d"));
  welt.stoerer.stoere("ordnerAnlegen", {70, "Zugriff verweigert"}, 0, "/prog/x");
  EXPECT_FALSE(welt.dateien.CreatePath("/prog/x/y"));
  EXPECT_FALSE(welt.oberflaeche.sanduhrAn);
  EXPECT_EQ(welt.fehlerzeilen(),
            QStringList({"DateienFinden.bas.CreatePath: Fehler beim Anlegen von /prog/datei/d",
                         "DateienFinden.bas.CreatePath: Fehler beim Anlegen von /prog/x/y"}));
}

TEST(DateiLoeschenTest, WaitsUntilTheFileIsGone) {
  Dateiwelt welt;
  welt.speicher.anlegen("/prog/a.txt").nurLesen = true;
  EXPECT_TRUE(welt.dateien.DateiLoeschen("a.txt", 4));
  EXPECT_TRUE(welt.andereDateien().isEmpty());
  EXPECT_EQ(welt.uhr.wartezeiten, std::vector<int>({500}));
  EXPECT_EQ(welt.oberflaeche.verarbeitet, 3);
  EXPECT_EQ(welt.protokollzeilen(),
            QStringList({"    Datei wird jetzt gelöscht: /prog/a.txt", "        /prog/a.txt gelöscht."}));
}

TEST(DateiLoeschenTest, ChecksAtMostTenTimesForAFileThatStays) {
  Dateiwelt welt;
  welt.speicher.anlegen("/prog/a.txt");
  welt.oberflaeche.beimVerarbeiten = [&] { welt.speicher.anlegen("/prog/a.txt"); };
  EXPECT_TRUE(welt.dateien.DateiLoeschen("/prog/a.txt", 0));
  EXPECT_EQ(welt.uhr.wartezeiten, std::vector<int>(10, 500));
}

TEST(DateiLoeschenTest, AMissingFileIsDeletedAlreadyAndNotLogged) {
  Dateiwelt welt;
  EXPECT_TRUE(welt.dateien.DateiLoeschen("/prog/a.txt", 0));
  EXPECT_TRUE(welt.speicher.pfade().isEmpty());
  EXPECT_TRUE(welt.uhr.wartezeiten.empty());
}

TEST(DateiLoeschenTest, SettingsFilesOfTheProgramFolderAreKept) {
  Dateiwelt welt;
  welt.speicher.anlegen("/prog/x.InI", "wichtig");
  welt.speicher.anlegen("/anders/x.INI");
  EXPECT_FALSE(welt.dateien.DateiLoeschen("/prog/x.InI", 4));
  EXPECT_FALSE(welt.dateien.DateiLoeschen("x.InI", 0));
  EXPECT_EQ(welt.fehlerzeilen().first(),
            "    DateienFinden.General.DateiLoeschen: INI-Datei soll gelöscht werden. Wird verweigert: "
            "/prog/x.InI");
  EXPECT_TRUE(welt.dateien.DateiLoeschen("/anders/x.INI", 0));
  EXPECT_EQ(welt.andereDateien(), QStringList("/prog/x.InI"));
}

TEST(DateiLoeschenTest, AFailureIsLoggedAndShown) {
  Dateiwelt welt;
  welt.speicher.anlegen("/prog/a.txt");
  welt.stoerer.stoere("loeschen", {70, "Zugriff verweigert"});
  EXPECT_FALSE(welt.dateien.DateiLoeschen("a.txt", 0));
  EXPECT_EQ(welt.meldungen.gezeigt,
            std::vector<Meldung>(
                {{"Fehler 70 (Zugriff verweigert) in Prozedur DateiLoeschen in Modul DateienFinden\n"
                  "beim Löschen von\n/prog/a.txt\n"
                  "Sollte das Problem öfters auftauchen, informieren Sie bitten den Programmierer!\n"
                  "Möglicherweise funktionieren einige Teile des Programms nicht mehr richtig.",
                  Symbol::Keines, Knoepfe::Ok, "Eine Datei konnte nicht gelöscht werden"}}));
  EXPECT_EQ(
      welt.protokollzeilen(),
      QStringList({"Datei wird jetzt gelöscht: /prog/a.txt",
                   "DateinameLoeschen: Fehler Nr. 70 (Zugriff verweigert) beim Löschen von /prog/a.txt in "
                   "procedure DateiLoeschen of Modul DateienFinden",
                   "        DateinameOriginal: a.txt"}));
  EXPECT_EQ(welt.fehlerzeilen().size(), 1);
}

TEST(DateiKopierenTest, LogsSizesAndComparesThem) {
  Dateiwelt welt;
  welt.speicher.anlegen("/prog/a.mdb", QByteArray(1234567, 'x'));
  EXPECT_TRUE(
      welt.dateien.DateiKopieren("/prog/a.mdb", "/prog/b.mdb", {.weg = DateienFinden::Kopierweg::Alt}));
  EXPECT_EQ(welt.protokollzeilen(),
            QStringList({"DateiKopieren aufgerufen: /prog/a.mdb ---> /prog/b.mdb",
                         "    FileCopy wird jetzt gestartet: /prog/a.mdb ---> /prog/b.mdb",
                         "        1.234.567, /prog/a.mdb", "        Variante 1 (alte Methode) wird verwendet",
                         "    FileCopy wurde fehlerfrei ausgeführt.", "        1.234.567, /prog/b.mdb"}));
  EXPECT_EQ(welt.uhr.wartezeiten, std::vector<int>({0}));
  EXPECT_EQ(welt.oberflaeche.sanduhrFolge, std::vector<bool>({true, false}));
  EXPECT_EQ(welt.speicher.inhalt("/prog/b.mdb").size(), 1234567);

  // Someone shortens the copy before its size is read.
  welt.stoerer.vorVorgang = [&](const QString& vorgang) {
    if (vorgang == "groesse /prog/c.mdb") {
      welt.speicher.anlegen("/prog/c.mdb", "kurz");
    }
  };
  EXPECT_FALSE(welt.dateien.DateiKopieren("/prog/a.mdb", "/prog/c.mdb", {.sanduhrAus = true}));
  EXPECT_TRUE(welt.protokollzeilen().contains("        Variante 2 (neue Methode) wird verwendet"));
  EXPECT_EQ(welt.fehlerzeilen(),
            QStringList("    DateiKopieren hat nicht funktioniert weil unterschiedliche Dateigrößen: "
                        "/prog/a.mdb ---> /prog/c.mdb"));
  EXPECT_TRUE(welt.meldungen.gezeigt.empty());
}

TEST(DateiKopierenTest, TodaysLogIsNeverACertainCopy) {
  Dateiwelt welt;
  welt.speicher.anlegen("/prog/26_03_16.txt", "x\r\n");
  EXPECT_FALSE(welt.dateien.DateiKopieren("/prog/26_03_16.txt", "/prog/kopie.txt", {}));
  EXPECT_TRUE(welt.speicher.existiert("/prog/kopie.txt"));
  EXPECT_TRUE(welt.fehlerzeilen().isEmpty());
}

TEST(DateiKopierenTest, EveryRefusalHasItsLinesAndMessages) {
  const QString namen = "/prog/a ---> /prog/b";
  struct Fall {
    const char* was;
    std::function<void(Dateiwelt&)> vorbereiten;
    const char* ziel;
    Optionen optionen;
    QStringList zeilen;
    QString meldung;
  };
  const Fall faelle[] = {
      {"no source",
       [](Dateiwelt& w) { w.speicher.loeschen("/prog/a"); },
       "/prog/b",
       {},
       {"DateienFinden.bas.FileLenVerursachtFehler: FileLen verursacht Fehler: /prog/a",
        "    DateiKopieren hat nicht funktioniert: " + namen},
       {}},
      {"no folder",
       [](Dateiwelt&) {},
       "/weg/b",
       {},
       {"    DateiKopieren abgebrochen, weil Zielordner nicht existiert."},
       "Der Ordner /weg existiert nicht! Kopieren der Datei ist nicht möglich!"},
      {"exists",
       [](Dateiwelt& w) { w.speicher.anlegen("/prog/b", "alt"); },
       "/prog/b",
       {.meldungenZeigen = true},
       {"    DateiKopieren abgebrochen, weil die Zieldatei /prog/a mit gleichem Namen schon vorhanden ist.",
        "        /prog/b"},
       "Das Kopieren der Datei wurde abgebrochen, weil die Zieldatei /prog/b mit gleichem Namen schon "
       "vorhanden "
       "ist!"},
      {"cannot be deleted",
       [](Dateiwelt& w) { w.speicher.anlegen("/prog/b.ini", "alt"); },
       "/prog/b.ini",
       {.meldungenZeigen = true, .ueberschreiben = true},
       {"    DateienFinden.General.DateiLoeschen: INI-Datei soll gelöscht werden. Wird verweigert: "
        "/prog/b.ini",
        "    DateiKopieren abgebrochen, weil die Zieldatei nicht gelöscht werden konnte.",
        "        /prog/b.ini"},
       "Das Kopieren der Datei /prog/b.ini konnte nicht durchgeführt werden, weil die schon existierende "
       "Datei "
       "nicht gelöscht werden konnte."},
      {"in use",
       [](Dateiwelt& w) { w.speicher.anlegen("/prog/a", "neu").gesperrt = true; },
       "/prog/b",
       {},
       {"    DateiKopieren abgebrochen, weil die Quelldatei benutzt wird."},
       {}},
      {"copy fails",
       [](Dateiwelt& w) {
         w.stoerer.stoere("kopieren", {61, "Datenträger voll"});
       },
       "/prog/b",
       {},
       {"    FileCopy wird jetzt gestartet: " + namen, "        3, /prog/a",
        "        Variante 2 (neue Methode) wird verwendet",
        "    DateiKopieren hat nicht funktioniert: " + namen},
       {}},
  };
  for (const Fall& fall : faelle) {
    Dateiwelt welt;
    welt.speicher.anlegen("/prog/a", "neu");
    fall.vorbereiten(welt);
    EXPECT_FALSE(welt.dateien.DateiKopieren("/prog/a", fall.ziel, fall.optionen)) << fall.was;
    EXPECT_EQ(welt.protokollzeilen().mid(1), fall.zeilen) << fall.was;
    EXPECT_EQ(welt.meldungen.texte(), fall.meldung.isEmpty() ? QStringList() : QStringList(fall.meldung));
    EXPECT_FALSE(welt.oberflaeche.sanduhrAn) << fall.was;
    EXPECT_NE(welt.speicher.inhalt(fall.ziel), QByteArray("neu")) << fall.was;
  }
}

TEST(DateiKopierenTest, WithoutMessagesARefusalIsSilentAndOverwritingReplaces) {
  Dateiwelt welt;
  welt.speicher.anlegen("/prog/a", "neu");
  welt.speicher.anlegen("/prog/b", "alt");
  EXPECT_FALSE(welt.dateien.DateiKopieren("/prog/a", "/prog/b", {}));
  EXPECT_TRUE(welt.meldungen.gezeigt.empty());
  EXPECT_TRUE(welt.dateien.DateiKopieren("/prog/a", "/prog/b", {.ueberschreiben = true}));
  EXPECT_EQ(welt.speicher.inhalt("/prog/b"), QByteArray("neu"));
}

TEST(DateiUmbenennenTest, RenamesWithinAFolder) {
  Dateiwelt welt;
  welt.speicher.anlegen("/prog/Verbindo.BAK", "kopie");
  EXPECT_TRUE(welt.dateien.DateiUmbenennen("/prog/Verbindo.BAK", "/prog/Verbindo.mdb", false));
  EXPECT_EQ(welt.andereDateien(), QStringList("/prog/Verbindo.mdb"));
  EXPECT_EQ(
      welt.protokollzeilen(),
      QStringList({"        Datei wird mit Name umbenannt: /prog/Verbindo.BAK --> /prog/Verbindo.mdb",
                   "        Datei wurde mit Name umbenannt: /prog/Verbindo.BAK --> /prog/Verbindo.mdb"}));
}

TEST(DateiUmbenennenTest, RefusesSilentlyAndReportsErrors) {
  Dateiwelt welt;
  welt.speicher.anlegen("/prog/a", "a");
  welt.speicher.anlegen("/prog/b", "b");
  EXPECT_FALSE(welt.dateien.DateiUmbenennen("/prog/a", "/prog/b", false));
  EXPECT_FALSE(welt.dateien.DateiUmbenennen("/prog/fehlt", "/prog/c", false));
  EXPECT_EQ(welt.andereDateien(), welt.speicher.pfade());

  welt.stoerer.stoere("umbenennen", {75, "Pfadfehler"});
  EXPECT_FALSE(welt.dateien.DateiUmbenennen("/prog/a", "/prog/c", false));
  EXPECT_EQ(welt.fehlerzeilen(),
            QStringList({"Error 75 (Pfadfehler) in procedure DateiUmbenennen of Modul DateienFinden",
                         "    bisher: /prog/a", "    neu   : /prog/c"}));
  welt.stoerer.nichtMehrStoeren();
  EXPECT_TRUE(welt.dateien.DateiUmbenennen("/prog/a", "/prog/b", true));
  EXPECT_EQ(welt.speicher.inhalt("/prog/b"), QByteArray("a"));
}

TEST(DateiUmbenennenTest, WaitsForTheOldNameToAppear) {
  // A share whose list of names lags behind: the file can be opened before it is seen.
  struct TraegerOrdner : SpeicherDateisystem {
    Dateifehler oeffnenPruefen(const QString&) const override { return {}; }
  };
  Dateiwelt welt;
  TraegerOrdner traege;
  traege.ordner("/prog");
  DateienFinden dateien(traege, welt.protokoll, welt.meldungen, welt.oberflaeche, welt.uhr, "/prog");
  EXPECT_FALSE(dateien.DateiUmbenennen("/prog/a", "/prog/b", false));
  EXPECT_EQ(welt.uhr.wartezeiten, std::vector<int>(4, 1000));

  welt.uhr.beimWarten = [&](int) { traege.anlegen("/prog/a", "a"); };
  EXPECT_TRUE(dateien.DateiUmbenennen("/prog/a", "/prog/b", false));
  EXPECT_EQ(welt.uhr.wartezeiten.size(), 5U);
  EXPECT_EQ(traege.inhalt("/prog/b"), QByteArray("a"));
}

TEST(DateiVerschiebenTest, CopiesAndDeletesAcrossFolders) {
  Dateiwelt welt;
  welt.speicher.anlegen("/prog/a", "a");
  EXPECT_TRUE(welt.dateien.DateiUmbenennen("/prog/a", "/neu/ordner/b", false));
  EXPECT_EQ(welt.andereDateien(), QStringList("/neu/ordner/b"));

  welt.speicher.anlegen("/prog/c", "c");
  EXPECT_FALSE(welt.dateien.DateiVerschieben("/prog/c", "/neu/ordner/b"));
  welt.stoerer.stoere("kopieren", {61, "Datenträger voll"});
  EXPECT_FALSE(welt.dateien.DateiVerschieben("/prog/c", "/neu/c"));
  EXPECT_EQ(welt.fehlerzeilen().mid(1),
            QStringList({"DateiVerschieben fehlgeschlagen, weil Kopieren der Datei nicht funktioniert hat!",
                         "    Quelle: /prog/c", "    Ziel: /neu/c"}));
  welt.stoerer.nichtMehrStoeren();
  welt.stoerer.stoere("loeschen", {70, "Zugriff verweigert"});
  EXPECT_FALSE(welt.dateien.DateiVerschieben("/prog/c", "/neu/c"));
  EXPECT_EQ(welt.fehlerzeilen().last(),
            "DateiLoeschen fehlgeschlagen bei Aufruf aus DateiVerschieben: /prog/c ---> /neu/c");
  EXPECT_EQ(welt.speicher.inhalt("/prog/c"), QByteArray("c"));
}

TEST(PfadteileTest, SplitsPathsAtTheirSeparators) {
  struct Fall {
    const char *pfad, *ordner, *name;
  };
  const Fall faelle[] = {{R"(C:\a\b.txt)", R"(C:\a)", "b.txt"},
                         {R"(C:\b.txt)", "C:", "b.txt"},
                         {"C:b.txt", "C", "b.txt"},
                         {"/a/b.txt", "/a", "b.txt"},
                         {R"(/a\b/)", R"(/a\b)", ""},
                         {"b.txt", "", ""},
                         {"", "", ""}};
  for (const Fall& fall : faelle) {
    EXPECT_EQ(OrdnerAusPfad(fall.pfad), QString(fall.ordner)) << fall.pfad;
    EXPECT_EQ(DateinameAusPfad(fall.pfad), QString(fall.name)) << fall.pfad;
  }
  EXPECT_EQ(DateinameBereinigen(R"(C:\x\a.b'c&d".e.ini)"), "abcde.ini");
  EXPECT_EQ(DateinameBereinigen("/x/ohne"), "ohne");
}

TEST(PfadteileTest, TheSharedFilesAreFoundInAnyLetterCase) {
  SpeicherDateisystem speicher;
  speicher.anlegen("/prog/VERBINDO.INI");
  speicher.anlegen("/prog/verbindo.mdb");
  speicher.anlegen("/prog/VERBINDO.MDB");
  Prozesswerte werte = prozesswerteFuer("/prog/", speicher);
  EXPECT_EQ(werte.ProgrammOrdner, "/prog");
  EXPECT_EQ(werte.INIDatei, "/prog/VERBINDO.INI");
  EXPECT_EQ(werte.DatenbankPfad, "/prog/VERBINDO.MDB");
  speicher.anlegen("/prog/Verbindo.mdb");
  EXPECT_EQ(prozesswerteFuer("/prog", speicher).DatenbankPfad, "/prog/Verbindo.mdb");
  werte = prozesswerteFuer("/leer", speicher);
  EXPECT_EQ(werte.INIDatei, "/leer/verbindo.ini");
  EXPECT_EQ(werte.DatenbankPfad, "/leer/Verbindo.mdb");
}

}  // namespace
}  // namespace pelvanto::test
