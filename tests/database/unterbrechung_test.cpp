// A save that was broken off, and what the next opening makes of it.
#include "database/datenbankwelt.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

using test::kBAK;
using test::kDatenbank;

class UnterbrechungTest : public testing::Test, protected test::Datenbankwelt {
 protected:
  UnterbrechungTest() {
    test::VerbindoDatenbank datenbank;
    datenbank.vorname({.vorname = u"Hans", .maennlich = true, .anzahl = 4});
    bytes = datenbank.bytes();
    programm.datenbankAnlegen(datenbank);
    vorher = inhalt();
    abstuerzen();
  }

  QByteArray inhalt() const { return programm.dateien.inhalt(kDatenbank); }
  QStringList journale() const { return programm.dateien.pfade().filter(u"journal"_s); }
  // The disk fails while the database is being written, and does not recover before the program ends.
  void abstuerzen() {
    const std::unique_ptr<Verbindung> verbindung = routinen.direktOeffnen(kDatenbank, false);
    std::optional<Tabelle> hans;
    ASSERT_TRUE(routinen.TabelleOeffnen(*verbindung, hans, u"Vornamen"_s, false));
    hans->setzen(u"Anzahl", 5);
    int seiten = 0;
    programm.jet.vorDemSchreiben = [&](const QString& datei) {
      if (datei == kDatenbank && ++seiten > 1) programm.jet.schreibfehler = jet::ErrorKind::Io;
    };
    hans->setzen(u"Vorname", u"Johann"_s);
    EXPECT_THROW(hans->speichern(), Datenbankfehler);
    EXPECT_THROW(verbindung->abfragen(u"SELECT * FROM Vornamen"_s), Datenbankfehler)
        << "nobody reads a half written file";
    programm.jet.vorDemSchreiben = {};
    programm.jet.schreibfehler.reset();
    ASSERT_NE(inhalt(), vorher);
    ASSERT_EQ(journale().size(), 1);
  }
  bool oeffnen() { return routinen.DatenbankOeffnen(verbindung, kDatenbank, false, false); }

  std::vector<std::uint8_t> bytes;
  QByteArray vorher;
  std::unique_ptr<Verbindung> verbindung;
};

TEST_F(UnterbrechungTest, TheNextOpeningUndoesItAndTheLogSaysSo) {
  EXPECT_TRUE(oeffnen());
  EXPECT_EQ(inhalt(), vorher);
  EXPECT_EQ(journale(), QStringList());
  EXPECT_TRUE(programm.meldungen.gezeigt.empty());
  EXPECT_EQ(programm.fehlerprotokoll(),
            QStringList({u"Ein unterbrochener Speichervorgang wurde rückgängig gemacht: "_s + kDatenbank,
                         u"    Die Datenbank ist wieder so, wie sie vor diesem Speichervorgang war."_s}));
  pruefen(kDatenbank);
}

TEST_F(UnterbrechungTest, ASaveUndoesWhatAnotherProgramLeftMeanwhileAndTheLogSaysSo) {
  const QString journal = journale().front();
  const QByteArray halb = inhalt(), aufzeichnung = programm.dateien.inhalt(journal);
  ASSERT_TRUE(oeffnen());
  programm.dateien.anlegen(kDatenbank, halb);
  programm.dateien.anlegen(journal, aufzeichnung);
  const auto meldungen = programm.fehlerprotokoll().size();

  std::optional<Tabelle> hans;
  ASSERT_TRUE(routinen.TabelleOeffnen(*verbindung, hans, u"Vornamen"_s, false));
  hans->setzen(u"Anzahl", 6);
  hans->speichern();
  EXPECT_EQ(journale(), QStringList());
  EXPECT_EQ(programm.fehlerprotokoll().size(), meldungen + 2);
  pruefen(kDatenbank);
  EXPECT_EQ(std::get<int>(verbindung->abfragen(u"SELECT Anzahl FROM Vornamen"_s).feld(u"Anzahl")), 6);
}

TEST_F(UnterbrechungTest, AsLongAsItCannotBeUndoneTheFileIsNotOpened) {
  const QByteArray halb = inhalt();
  programm.jet.besetzteVersuche = 1000;
  EXPECT_FALSE(oeffnen());
  EXPECT_EQ(inhalt(), halb);
  EXPECT_TRUE(programm.fehlerprotokoll().value(0).startsWith(u"Fehler 3045 ("_s));
  EXPECT_TRUE(programm.meldungen.gezeigt.empty()) << "a half written file is not damaged";
  programm.jet.besetzteVersuche = 0;
  EXPECT_TRUE(oeffnen());
  EXPECT_EQ(inhalt(), vorher);
}

TEST_F(UnterbrechungTest, ADatabaseThatWasReplacedIsLeftAsItIsAndTheUserIsToldOnce) {
  test::VerbindoDatenbank andere;
  andere.vorname({.vorname = u"Maria", .anzahl = 1}).person({.id = 1, .namen = u"Neu Eva"});
  andere.datei.created = 45001.5;
  programm.datenbankAnlegen(andere);
  const QByteArray ersetzt = inhalt();
  EXPECT_TRUE(oeffnen());
  EXPECT_EQ(inhalt(), ersetzt);
  ASSERT_EQ(programm.meldungen.gezeigt.size(), 1U);
  const Meldung& gezeigt = programm.meldungen.gezeigt.front();
  EXPECT_EQ(gezeigt.symbol, Symbol::Ausrufezeichen);
  EXPECT_EQ(gezeigt.knoepfe, Knoepfe::Ok);
  ASSERT_EQ(journale().size(), 1);
  EXPECT_TRUE(gezeigt.text.contains(journale().front())) << gezeigt.text.toStdString();
  EXPECT_EQ(programm.fehlerprotokoll().size(), 2);
  EXPECT_TRUE(programm.fehlerprotokoll().value(1).endsWith(u"Aufbewahrt als: "_s + journale().front()));

  EXPECT_TRUE(oeffnen());
  verbindung.reset();
  EXPECT_TRUE(oeffnen());
  EXPECT_EQ(programm.meldungen.gezeigt.size(), 1U);
}

TEST_F(UnterbrechungTest, ARestoredBackupCopyIsNotTouchedByTheJournalOfTheDamagedFile) {
  programm.dateien.anlegen(kDatenbank, QByteArray(100000, 'x'));
  programm.ablegen(kBAK, bytes).zeiten.letztesSchreiben = programm.uhr.jetzt();
  programm.meldungen.antworten = {Antwort::Ja};
  EXPECT_TRUE(oeffnen());
  EXPECT_EQ(inhalt(), vorher);
  ASSERT_EQ(programm.meldungen.gezeigt.size(), 3U);
  EXPECT_TRUE(programm.meldungen.gezeigt[0].text.contains(u"wurde unterbrochen"_s));
  EXPECT_EQ(programm.meldungen.gezeigt[1].knoepfe, Knoepfe::JaNein);
  EXPECT_TRUE(programm.meldungen.gezeigt[2].text.contains(u"wiederhergestellt"_s));
  pruefen(kDatenbank);
}

TEST_F(UnterbrechungTest, AFileThatAnotherConnectionHasOpenIsNotReplaced) {
  EXPECT_TRUE(oeffnen());
  programm.dateien.anlegen(kDatenbank, QByteArray(100000, 'x'));
  programm.ablegen(kBAK, bytes).zeiten.letztesSchreiben = programm.uhr.jetzt();
  programm.meldungen.antworten.assign(5, Antwort::Ja);
  std::unique_ptr<Verbindung> zweite;
  EXPECT_FALSE(routinen.DatenbankOeffnen(zweite, kDatenbank, false, false));
  EXPECT_EQ(inhalt(), QByteArray(100000, 'x'));
  EXPECT_TRUE(programm.dateien.existiert(kBAK));
}

}  // namespace
}  // namespace pelvanto
