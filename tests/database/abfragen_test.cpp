#include "database/datenbankwelt.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

using test::kDatenbank;

class AbfragenTest : public testing::Test, protected test::Datenbankwelt {
 protected:
  AbfragenTest() {
    test::VerbindoDatenbank datenbank;
    datenbank.gruppe(3, u"Kunden")
        .gruppe(4, u"Lieferanten")
        .gruppe(5, u"Lieferanten")
        .gruppe(6, std::nullopt);
    datenbank.person({.id = 1, .namen = u"Maier Hans"});
    programm.datenbankAnlegen(datenbank);
    verbindung = routinen.direktOeffnen(kDatenbank, true);
  }
  bool snapshot(const QString& sql, bool meldungZeigen = false, bool nurMitDatensaetzen = false) {
    return routinen.SnapshotOeffnen(*verbindung, abfrage, sql, meldungZeigen, nurMitDatensaetzen, fehler);
  }

  std::unique_ptr<Verbindung> verbindung;
  std::optional<Abfrage> abfrage;
  std::optional<Tabelle> tabelle;
  bool fehler = false;
};

TEST_F(AbfragenTest, ASnapshotIsWalkedFromItsFirstRow) {
  ASSERT_TRUE(snapshot(u"SELECT ID, Bezeichnung FROM PersonenGruppenBezeichnungen"_s));
  EXPECT_EQ(abfrage->anzahl(), 4);
  QStringList gelesen;
  for (; !abfrage->amEnde(); abfrage->weiter()) {
    const Feldwert bezeichnung = abfrage->feld(u"BEZEICHNUNG");
    gelesen << QString::number(std::get<int>(abfrage->feld(u"id"))) +
                   (bezeichnung.index() == 0 ? u"-"_s : std::get<QString>(bezeichnung));
  }
  EXPECT_EQ(gelesen, QStringList({"3Kunden", "4Lieferanten", "5Lieferanten", "6-"}));
  EXPECT_THROW(abfrage->feld(u"ID"), Datenbankfehler) << "there is no current row any more";
  EXPECT_THROW(abfrage->feld(u"Namen"), Datenbankfehler);
  EXPECT_FALSE(fehler);
}

TEST_F(AbfragenTest, AnEmptyQueryIsRefusedAndTouchesNothing) {
  ASSERT_TRUE(snapshot(u"SELECT ID FROM Namensliste"_s));
  EXPECT_FALSE(snapshot(u"   "_s));
  EXPECT_EQ(programm.meldungen.gezeigt,
            std::vector<Meldung>(
                {{u"Die Abfrage ist leer. Bitte informieren Sie den Programmierer!"_s, Symbol::Kritisch}}));
  EXPECT_TRUE(abfrage.has_value());
  EXPECT_FALSE(fehler);
  EXPECT_TRUE(programm.protokoll().isEmpty());
}

TEST_F(AbfragenTest, NoRowsAreAFailureOnlyWhereRowsAreWanted) {
  const QString sql = u"SELECT ID FROM Namensliste WHERE ID = 99"_s;
  EXPECT_TRUE(snapshot(sql));
  EXPECT_TRUE(abfrage->amEnde());
  EXPECT_FALSE(snapshot(sql, true, true));
  EXPECT_FALSE(abfrage.has_value());
  EXPECT_FALSE(fehler);
  EXPECT_TRUE(programm.protokoll().isEmpty());
  EXPECT_TRUE(programm.meldungen.gezeigt.empty());
}

TEST_F(AbfragenTest, AFailedSnapshotLeavesThreeLinesAndABoxOnRequest) {
  const QString sql = u"SELECT ID FROM Gibtsnicht"_s;
  EXPECT_FALSE(snapshot(sql));
  EXPECT_TRUE(fehler);
  EXPECT_FALSE(abfrage.has_value());
  EXPECT_TRUE(programm.meldungen.gezeigt.empty());
  const QStringList zeilen = programm.fehlerprotokoll();
  ASSERT_EQ(zeilen.size(), 3);
  const QString anfang = u"Fehler beim Öffnen eines Snapshots: "_s;
  ASSERT_TRUE(zeilen[0].startsWith(anfang));
  const QString nummerUndText = u"Fehler 3078 ("_s + zeilen[0].mid(anfang.size()) + u") "_s;
  EXPECT_TRUE(nummerUndText.contains(u"Gibtsnicht"_s)) << nummerUndText.toStdString();
  EXPECT_EQ(zeilen[1], nummerUndText + u"in Prozedur SnapshotOeffnen in DatenbankRoutinen."_s);
  EXPECT_EQ(zeilen[2], u"    "_s + sql);

  EXPECT_FALSE(snapshot(sql, true));
  EXPECT_EQ(
      programm.meldungen.gezeigt,
      std::vector<Meldung>({{nummerUndText + u"in Prozedur SnapshotOeffnen in Modul DatenbankRoutinen"_s}}));
}

TEST_F(AbfragenTest, ATableIsOpenedByItsNameOrAQuery) {
  const std::pair<QString, int> quellen[] = {
      {u"PersonenGruppenBezeichnungen"_s, 4},
      {u"[PersonenGruppenBezeichnungen]"_s, 4},
      {u" personengruppenbezeichnungen "_s, 4},
      {u"select ID FROM PersonenGruppenBezeichnungen WHERE Bezeichnung = 'lieferanten'"_s, 2},
  };
  for (const auto& [quelle, anzahl] : quellen) {
    SCOPED_TRACE(quelle.toStdString());
    ASSERT_TRUE(routinen.TabelleOeffnen(*verbindung, tabelle, quelle, true));
    EXPECT_EQ(tabelle->anzahl(), anzahl);
  }
  EXPECT_TRUE(programm.protokoll().isEmpty());
}

TEST_F(AbfragenTest, ATableThatIsNotThereLeavesTwoLinesAndABoxOnRequest) {
  EXPECT_FALSE(routinen.TabelleOeffnen(*verbindung, tabelle, u"SELECTION"_s, true));
  EXPECT_FALSE(tabelle.has_value());
  const QStringList zeilen = programm.fehlerprotokoll();
  ASSERT_EQ(zeilen.size(), 2);
  const QString anfang = u"Fehler beim Öffnen einer Tabelle: "_s;
  ASSERT_TRUE(zeilen[0].startsWith(anfang));
  EXPECT_EQ(zeilen[1], u"    SELECTION"_s);
  EXPECT_EQ(programm.meldungen.gezeigt,
            std::vector<Meldung>(
                {{u"Fehler 3078 ("_s + zeilen[0].mid(anfang.size()) +
                  u") in Prozedur TabelleOeffnen in Modul DatenbankRoutinen\r\n\r\nSELECTION"_s}}));
}

TEST_F(AbfragenTest, WrongQueriesAreNamedByTheirKindAndInGerman) {
  const QString unverstaendlich = u"Die Abfrage ist nicht verständlich: "_s;
  const QString typen = u"Die Datentypen in der Abfrage passen nicht zueinander: "_s;
  const std::tuple<QString, int, QString> abfragen[] = {
      {u"SELECT ID FROM Namensliste WHERE Namen = 'd'Arc'"_s, 3075,
       unverstaendlich + u"Arc bei Zeichen 45; erwartet wird AND, ORDER BY oder das Ende"_s},
      {u"SELECT ID FROM Namensliste WHERE Namen = 'd''"_s, 3075,
       unverstaendlich + u"'d'' bei Zeichen 42; das schließende Anführungszeichen fehlt"_s},
      {u"SELECT ID FROM"_s, 3075,
       unverstaendlich +
           u"sie endet zu früh, nämlich bei Zeichen 15; erwartet wird der Name einer Tabelle"_s},
      {u"DELETE FROM Namensliste"_s, 3075,
       unverstaendlich + u"DELETE bei Zeichen 1; eine Abfrage beginnt mit SELECT"_s},
      {u"SELECT ID FROM Namensliste ORDER BY ID Namen"_s, 3075,
       unverstaendlich + u"Namen bei Zeichen 40; erwartet wird ein Komma, ASC, DESC oder das Ende"_s},
      {u"SELECT Gibtsnicht FROM Namensliste"_s, 3265,
       u"Das Feld wurde in der Abfrage nicht gefunden: Gibtsnicht"_s},
      {u"SELECT ID FROM Gibtsnicht"_s, 3078,
       u"Die Tabelle wurde in der Datenbank nicht gefunden: Gibtsnicht"_s},
      {u"SELECT ID FROM Namensliste WHERE ID = 'eins'"_s, 3464,
       typen + u"das Feld ID lässt sich nicht mit 'eins' vergleichen"_s},
  };
  for (const auto& [sql, nummer, beschreibung] : abfragen) {
    SCOPED_TRACE(sql.toStdString());
    try {
      verbindung->abfragen(sql);
      ADD_FAILURE() << "no error";
    } catch (const Datenbankfehler& gefangen) {
      EXPECT_EQ(gefangen.nummer, nummer);
      EXPECT_EQ(gefangen.beschreibung, beschreibung) << gefangen.beschreibung.toStdString();
      EXPECT_EQ(verbindung->letzteAbfrage(), sql);
    }
  }
}

TEST_F(AbfragenTest, AStaleCountOfRowsIsOneGermanLineInTheLog) {
  verbindung.reset();
  const std::uint32_t seite =
      jet::Database(programm.jet, alsDateipfad(kDatenbank)).table(u"Namensliste").definition().page;
  constexpr qsizetype zaehler = 16;  // where a table definition keeps its count
  QByteArray bytes = programm.dateien.inhalt(kDatenbank);
  bytes[qsizetype(seite) * 4096 + zaehler] = 5;
  programm.dateien.anlegen(kDatenbank, bytes);
  verbindung = routinen.direktOeffnen(kDatenbank, true);
  ASSERT_TRUE(snapshot(u"SELECT ID FROM Namensliste"_s));
  EXPECT_EQ(abfrage->anzahl(), 1);
  EXPECT_EQ(programm.protokoll(),
            QStringList(u"Hinweis zur Datenbank: Die Tabelle Namensliste hat 1 Datensätze, ihr Zähler nennt "
                        "5; ein Index bestätigt die Datensätze."_s));
  EXPECT_TRUE(programm.fehlerprotokoll().isEmpty());
}

TEST_F(AbfragenTest, DirectOpeningThrowsTheTypedError) {
  verbindung.reset();
  programm.jet.gesperrteOeffnungen = 1;
  try {
    routinen.direktOeffnen(kDatenbank, true);
    ADD_FAILURE() << "no error";
  } catch (const Datenbankfehler& gefangen) {
    EXPECT_EQ(gefangen.nummer, 3045);
  }
  EXPECT_TRUE(programm.protokoll().isEmpty());
}

TEST_F(AbfragenTest, TheStampTellsWhetherSomebodyWrote) {
  EXPECT_EQ(routinen.stand(kDatenbank), verbindung->anfangsstand());
  EXPECT_EQ(verbindung->stand(), verbindung->anfangsstand());
  ++programm.jet.fremdeSchreibzeit;
  EXPECT_NE(routinen.stand(kDatenbank), verbindung->anfangsstand());
  programm.jet.gesperrteOeffnungen = 1;
  EXPECT_NE(routinen.stand(kDatenbank), std::nullopt) << "this program has it open already";
  verbindung.reset();
  EXPECT_EQ(routinen.stand(kDatenbank), std::nullopt);
}

}  // namespace
}  // namespace pelvanto
