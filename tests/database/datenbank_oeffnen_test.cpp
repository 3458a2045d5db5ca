#include "database/datenbankwelt.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

using test::kBAK;
using test::kDatenbank;

const QString kKOM = u"/prog/Verbindo.KOM"_s;

const QString kVersuchFehler =
    u") in Prozedur DatenbankOeffnenVersuch in Modul DatenbankRoutinen: "_s + kDatenbank;
const QString kGesperrt = u"Fehler 3045 (Die Datei "_s + kDatenbank +
                          u" wird von einem anderen Programm benutzt und ist zurzeit gesperrt"_s +
                          kVersuchFehler;
const QString kNichtGeoeffnet = u"Datenbank konnte nicht geöffnet werden: "_s + kDatenbank;
const QString kKeineJunge = u"Keine Wiederherstellung der Sicherungskopie von "_s + kDatenbank +
                            u", weil keine junge Datei vorhanden ist."_s;
const QString kWiederhergestellt =
    u" Die Datenbank wurde aus einer Sicherungskopie wiederhergestellt. Bitte prüfen Sie unbedingt in der "
    "Tageskontrolle oder aus dem Protokoll der Behandlungen, ob die zuletzt eingegebenen Behandlungen "
    "vorhanden sind."_s;

class DatenbankOeffnenTest : public testing::Test, protected test::Datenbankwelt {
 protected:
  DatenbankOeffnenTest() {
    datenbank.gruppe(1, u"Milchlieferanten").person({.id = 1, .namen = u"Maier Hans"}).mitglied(1, 1, 100);
    bytes = datenbank.bytes();
  }

  bool oeffnen(bool schreibgeschuetzt = false, bool meldungZeigen = false) {
    return routinen.DatenbankOeffnen(verbindung, kDatenbank, schreibgeschuetzt, meldungZeigen);
  }
  void beschaedigteDatenbank() { programm.dateien.anlegen(kDatenbank, QByteArray(100000, 'x')); }
  void kopie(const QString& name, const QDateTime& geschrieben) {
    programm.ablegen(name, bytes).zeiten.letztesSchreiben = geschrieben;
  }
  QString offerte(const QString& zeitpunkt) const {
    return u"Die Datenbank "_s + kDatenbank +
           u" kann nicht geöffnet werden. Vermutlich wurde sie beschädigt. Soll sie jetzt durch die "
           "Sicherungskopie vom Zeitpunkt "_s +
           zeitpunkt + u" ersetzt werden?"_s;
  }
  QDateTime vor(int tagen) const { return programm.uhr.jetzt().addDays(-tagen); }
  int zeilenMit(const QString& text) const {
    return static_cast<int>(programm.protokoll().filter(text).size());
  }

  test::VerbindoDatenbank datenbank;
  std::vector<std::uint8_t> bytes;
  std::unique_ptr<Verbindung> verbindung;
};

TEST_F(DatenbankOeffnenTest, AGoodFileOpensAtOnceAndWithoutALine) {
  programm.ablegen(kDatenbank, bytes);
  EXPECT_TRUE(oeffnen());
  ASSERT_TRUE(verbindung);
  EXPECT_FALSE(verbindung->schreibgeschuetzt());
  EXPECT_TRUE(programm.protokoll().isEmpty());
  EXPECT_TRUE(programm.uhr.wartezeiten.empty());
  EXPECT_EQ(programm.oberflaeche.verarbeitet, 1);

  EXPECT_TRUE(oeffnen(true));
  EXPECT_TRUE(verbindung->schreibgeschuetzt());
  EXPECT_EQ(programm.fehlerprotokoll(),
            QStringList(u"Datenbank soll schreibgeschützt geöffnet werden: "_s + kDatenbank));
}

TEST_F(DatenbankOeffnenTest, AMissingFileIsFalseWithoutAWord) {
  EXPECT_FALSE(oeffnen(false, true));
  EXPECT_TRUE(programm.protokoll().isEmpty());
  EXPECT_TRUE(programm.meldungen.gezeigt.empty());
  EXPECT_EQ(programm.oberflaeche.verarbeitet, 0);
}

TEST_F(DatenbankOeffnenTest, ABusyFileIsTriedFiveTimesAndNeverOfferedForReplacement) {
  programm.ablegen(kDatenbank, bytes);
  kopie(kBAK, vor(0));
  programm.jet.gesperrteOeffnungen = 1000;
  EXPECT_FALSE(oeffnen());
  EXPECT_FALSE(verbindung);
  QStringList erwartet;
  for (int versuch = 1; versuch <= 5; ++versuch) {
    erwartet << kGesperrt << u"    intZaehler = %1"_s.arg(versuch);
  }
  erwartet << kNichtGeoeffnet;
  EXPECT_EQ(programm.protokoll(), erwartet);
  EXPECT_EQ(programm.fehlerprotokoll(), erwartet) << "every line is an error line";
  EXPECT_EQ(programm.uhr.wartezeiten, std::vector<int>(5, 500));
  EXPECT_EQ(programm.oberflaeche.verarbeitet, 5);
  EXPECT_TRUE(programm.meldungen.gezeigt.empty());

  EXPECT_FALSE(oeffnen(false, true));
  EXPECT_EQ(programm.meldungen.gezeigt, std::vector<Meldung>({{kNichtGeoeffnet, Symbol::Kritisch}}));
}

TEST_F(DatenbankOeffnenTest, AFileThatComesFreeOpensAtTheThirdAttempt) {
  programm.ablegen(kDatenbank, bytes);
  programm.jet.gesperrteOeffnungen = 1000;
  programm.uhr.beimWarten = [&](int nummer) {
    if (nummer == 2) programm.jet.gesperrteOeffnungen = 0;
  };
  EXPECT_TRUE(oeffnen());
  EXPECT_TRUE(verbindung);
  EXPECT_EQ(programm.protokoll(),
            QStringList({kGesperrt, u"    intZaehler = 1"_s, kGesperrt, u"    intZaehler = 2"_s,
                         u"    Öffnen hat funktioniert bei lngZaehler = 3: "_s + kDatenbank}));
}

TEST_F(DatenbankOeffnenTest, ADamagedFileIsReplacedByTheYoungerCopy) {
  struct Fall {
    const char* name;
    int tageBAK, tageKOM;  // -1: there is none
    QString gewaehlt;
  };
  const Fall faelle[] = {
      {"the KOM copy is younger", 1, 0, kKOM},
      {"the BAK copy is younger", 0, 1, kBAK},
      {"equal times choose the BAK copy", 1, 1, kBAK},
      {"only a KOM copy", -1, 1, kKOM},
      {"only a BAK copy", 1, -1, kBAK},
  };
  for (const Fall& fall : faelle) {
    SCOPED_TRACE(fall.name);
    programm.meldungen.gezeigt.clear();
    programm.dateien.loeschen(kBAK);
    programm.dateien.loeschen(kKOM);
    programm.dateien.loeschen(u"/prog/26_03_16.txt"_s);
    beschaedigteDatenbank();
    if (fall.tageBAK >= 0) kopie(kBAK, vor(fall.tageBAK));
    if (fall.tageKOM >= 0) kopie(kKOM, vor(fall.tageKOM));
    programm.meldungen.antworten = {Antwort::Ja};

    EXPECT_TRUE(oeffnen());
    const QDateTime zeit = vor(fall.gewaehlt == kKOM ? fall.tageKOM : fall.tageBAK);
    const QString zeitpunkt = zeit.toString(u"dd.MM.yyyy HH:mm"_s);
    EXPECT_EQ(programm.meldungen.gezeigt,
              std::vector<Meldung>({{offerte(zeitpunkt), Symbol::Frage, Knoepfe::JaNein,
                                     u"Datenbank wiederherstellen aus Sicherungskopie"_s},
                                    {kWiederhergestellt, Symbol::Ausrufezeichen}}));
    EXPECT_FALSE(programm.dateien.existiert(fall.gewaehlt)) << "the copy has become the database";
    const QStringList zeilen = programm.protokoll();
    EXPECT_TRUE(zeilen.value(0).startsWith(u"Fehler 3343 (Nicht erkennbares Datenbankformat"_s))
        << zeilen.value(0).toStdString();
    EXPECT_EQ(zeilen.value(1), u"    intZaehler = 1"_s);
    for (const auto& [tage, datei, kopf] :
         {std::tuple{fall.tageBAK, kBAK, u"strBAK = "_s}, std::tuple{fall.tageKOM, kKOM, u"strKOM = "_s}}) {
      const QString zeile = u"    DatenbankRoutinen.DatenbankOeffnen: "_s + kopf + datei;
      EXPECT_EQ(zeilen.contains(zeile), tage >= 0) << datei.toStdString();
      if (tage >= 0) {
        EXPECT_EQ(zeilen.value(zeilen.indexOf(zeile) + 1),
                  u"        LastWrite: "_s + vor(tage).toString(u"dd.MM.yyyy HH:mm:ss"_s));
      }
    }
    EXPECT_EQ(zeilenMit(u"Wiederherstellung der Sicherungskopie von "_s + kDatenbank + u" aus "_s +
                        fall.gewaehlt + u"("_s + zeitpunkt + u") gewünscht!"_s),
              1);
    EXPECT_TRUE(zeilen.contains(u"    "_s + kDatenbank + u" gelöscht."_s));
    EXPECT_TRUE(zeilen.contains(u"    "_s + fall.gewaehlt + u" in "_s + kDatenbank + u" umbenannt."_s));
    EXPECT_EQ(zeilen.last(), u"    Öffnen hat funktioniert bei lngZaehler = 2: "_s + kDatenbank);
    verbindung.reset();
  }
}

TEST_F(DatenbankOeffnenTest, CopiesAreFoundInAnyLetterCase) {
  const QString bak = u"/prog/verbindo.Bak"_s;
  const QString kom = u"/prog/VERBINDO.kom"_s;
  beschaedigteDatenbank();
  kopie(bak, vor(0));
  kopie(kom, vor(1));
  programm.meldungen.antworten = {Antwort::Ja};
  EXPECT_TRUE(oeffnen());
  EXPECT_EQ(zeilenMit(u"strBAK = "_s + bak), 1);
  EXPECT_EQ(zeilenMit(u"strKOM = "_s + kom), 1);
  EXPECT_EQ(zeilenMit(bak + u" in "_s + kDatenbank + u" umbenannt."_s), 1);
  EXPECT_FALSE(programm.dateien.existiert(bak));
  EXPECT_TRUE(programm.dateien.existiert(kom));
}

TEST_F(DatenbankOeffnenTest, OldCopiesAreNotOffered) {
  beschaedigteDatenbank();
  kopie(kBAK, vor(3));
  kopie(kKOM, vor(2));  // two days to the second are too old
  EXPECT_FALSE(oeffnen());
  EXPECT_TRUE(programm.meldungen.gezeigt.empty());
  EXPECT_EQ(zeilenMit(kKeineJunge), 5);
  EXPECT_EQ(programm.protokoll().last(), kNichtGeoeffnet);
  EXPECT_TRUE(programm.dateien.existiert(kDatenbank));
}

TEST_F(DatenbankOeffnenTest, NoCopyAtAllIsLoggedAtEveryAttempt) {
  beschaedigteDatenbank();
  EXPECT_FALSE(oeffnen());
  EXPECT_EQ(zeilenMit(kKeineJunge), 5);
}

TEST_F(DatenbankOeffnenTest, NoRepeatsTheQuestionAtEveryAttempt) {
  beschaedigteDatenbank();
  kopie(kKOM, vor(1));
  programm.meldungen.antworten.assign(5, Antwort::Nein);
  EXPECT_FALSE(oeffnen());
  EXPECT_EQ(programm.meldungen.gezeigt.size(), 5U);
  EXPECT_EQ(zeilenMit(u"gewünscht!"_s), 0);
  EXPECT_TRUE(programm.dateien.existiert(kKOM));
  EXPECT_EQ(programm.dateien.inhalt(kDatenbank), QByteArray(100000, 'x'));
}

TEST_F(DatenbankOeffnenTest, NothingIsDeletedForACopyThatCannotBeRead) {
  beschaedigteDatenbank();
  struct Fall {
    const char* name;
    std::function<void()> vorbereiten;
  };
  const Fall faelle[] = {
      {"no database", [&] { programm.dateien.anlegen(kBAK, QByteArray(8192, '\0')); }},
      {"cut off", [&] { programm.dateien.anlegen(kBAK, programm.dateien.inhalt(kBAK).chopped(4096)); }},
      {"a page of noise",
       [&] {
         QByteArray inhalt = programm.dateien.inhalt(kBAK);
         // The last page of the rows, which opening alone would never look at.
         for (qsizetype seite = inhalt.size() - 4096; seite > 0; seite -= 4096) {
           if (inhalt[seite] != '\x01') continue;
           inhalt.replace(seite, 4096, QByteArray(4096, '\x7f'));
           break;
         }
         programm.dateien.anlegen(kBAK, inhalt);
       }},
  };
  for (const Fall& fall : faelle) {
    SCOPED_TRACE(fall.name);
    kopie(kBAK, vor(0));
    fall.vorbereiten();
    programm.dateien.loeschen(u"/prog/26_03_16.txt"_s);
    programm.meldungen.antworten.assign(5, Antwort::Ja);
    EXPECT_FALSE(oeffnen());
    EXPECT_EQ(programm.dateien.inhalt(kDatenbank), QByteArray(100000, 'x'));
    EXPECT_TRUE(programm.dateien.existiert(kBAK));
    EXPECT_EQ(
        zeilenMit(u"    Die Sicherungskopie "_s + kBAK + u" ist nicht lesbar, es wurde nichts gelöscht."_s),
        5);
    EXPECT_EQ(zeilenMit(u"umbenannt"_s), 0);
  }
}

TEST_F(DatenbankOeffnenTest, ADatabaseThatCannotBeDeletedStaysAndTheAttemptsGoOn) {
  beschaedigteDatenbank();
  kopie(kBAK, vor(0));
  programm.dateien.anlegen(kDatenbank, QByteArray(100000, 'x'));
  test::StoerDateisystem stoerung(programm.dateien);
  stoerung.stoere(u"loeschen"_s, {Dateifehlernummer::ZugriffVerweigert, u"Zugriff verweigert"_s});
  DateienFinden gestoert{stoerung,           protokoll,
                         programm.meldungen, programm.oberflaeche,
                         programm.uhr,       programm.werte.ProgrammOrdner};
  DatenbankRoutinen betroffen{jetDateien,           gestoert,    protokoll, programm.meldungen,
                              programm.oberflaeche, programm.uhr};
  programm.meldungen.antworten.assign(5, Antwort::Ja);
  EXPECT_FALSE(betroffen.DatenbankOeffnen(verbindung, kDatenbank, false, false));
  EXPECT_EQ(zeilenMit(u"gewünscht!"_s), 5);
  EXPECT_EQ(zeilenMit(u"umbenannt."_s), 0);
  EXPECT_TRUE(programm.dateien.existiert(kDatenbank));
  EXPECT_TRUE(programm.dateien.existiert(kBAK));
  for (const Meldung& meldung : programm.meldungen.gezeigt) EXPECT_NE(meldung.text, kWiederhergestellt);
}

TEST_F(DatenbankOeffnenTest, AFileThatIsBeingWrittenIsNotTakenForDamaged) {
  beschaedigteDatenbank();
  kopie(kBAK, vor(0));
  programm.jet.beimOeffnen = [&](int) { ++programm.jet.fremdeSchreibzeit; };
  EXPECT_FALSE(oeffnen());
  EXPECT_TRUE(programm.meldungen.gezeigt.empty());
  EXPECT_EQ(programm.protokoll().value(0), kGesperrt);

  programm.jet.beimOeffnen = {};
  EXPECT_FALSE(oeffnen());
  EXPECT_EQ(programm.meldungen.ungeplanteFragen, 5) << "once it rests, the same file is damaged";
}

}  // namespace
}  // namespace pelvanto
