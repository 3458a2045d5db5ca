// What the builder of addresses does where something fails, and what outlives one address.
#include "lists/adressen_felder.h"
#include "lists/adressenwelt.h"
#include "sample/verbindo_schema.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

class AdressenTest : public Adressenwelt {
 protected:
  AdressenTest() {
    datenbank.vorname({.vorname = u"Johann", .maennlich = true}).vorname({.vorname = u"Maria"});
  }
  // A database of some tables only, with one person in the first of them.
  void anlegenMit(const std::vector<jet::create::TableSpec>& tabellen) {
    jet::create::DatabaseBuilder neue(datenbank.datei);
    for (const jet::create::TableSpec& tabelle : tabellen) {
      jet::create::TableBuilder& gebaut = neue.addTable(tabelle);
      if (tabelle.name != u"Namensliste") continue;
      std::vector<jet::Value> werte(tabelle.columns.size());
      werte[0] = std::int32_t{1};
      werte[1] = jet::Text(u"Huber Johann jun.");
      gebaut.insert(werte);
    }
    programm.ablegen(programm.werte.DatenbankPfad, neue.finish());
  }
  QStringList boxen() const { return programm.meldungen.texte(); }
  Anschrift anschrift(int id) { return umgebung.adressen.AnschriftErstellen(id).anschrift; }
};

TEST_F(AdressenTest, WerDieFrageAbbrichtWirdErstImNaechstenLaufWiederGefragt) {
  datenbank.person({.id = 1, .namen = u"Huber Johann und Maria"})
      .person({.id = 2, .namen = u"Mayr Maria u. Johann"});
  anlegen();
  programm.meldungen.antworten = {Antwort::Abbrechen};
  EXPECT_EQ(anschrift(1).GanzerName, u"Johann Huber");
  EXPECT_EQ(anschrift(2).GanzerName, u"Maria Mayr");
  EXPECT_EQ(boxen().size(), 1);

  Umgebung neuerLauf(umgebung.welt, umgebung.werte);
  programm.meldungen.antworten = {Antwort::Ja};
  EXPECT_EQ(neuerLauf.adressen.AnschriftErstellen(2).anschrift.GanzeAnrede, u"Familie");
}

TEST_F(AdressenTest, WasVerbindoWaehrendEinerFrageSchreibtWirdNichtUeberschrieben) {
  datenbank.person({.id = 1, .namen = u"Huber Johann und Maria"});
  anlegen();
  programm.meldungen.antworten = {Antwort::Ja};
  programm.meldungen.beimZeigen = [&](const Meldung& meldung) {
    if (meldung.symbol != Symbol::Frage) return;
    test::SpeicherJet fremd(programm.dateien);
    jet::FilePool dateien(fremd);
    Verbindung verbindung(dateien, programm.werte.DatenbankPfad, false);
    Tabelle person(verbindung, u"SELECT Telefon FROM Namensliste WHERE ID = 1"_s, [] {});
    person.setzen(u"Telefon", u"0664"_s);
    person.speichern();
  };
  EXPECT_EQ(anschrift(1).Anrede, u"Familie");
  EXPECT_EQ(zeilen(u"Telefon, Familie"_s, u"FROM Namensliste"_s), QStringList(u"0664|-"_s));
  EXPECT_TRUE(boxen().value(1).contains(u"inzwischen geändert"));
}

TEST_F(AdressenTest, EinVornameOhneZahlZaehltVonNullAn) {
  datenbank.vorname({.vorname = u"Eva", .anzahl = std::nullopt}).person({.id = 1, .namen = u"Huber Eva"});
  anlegen();
  anschrift(1);
  EXPECT_EQ(zeilen(u"Anzahl"_s, u"FROM Vornamen WHERE Vorname = 'Eva'"_s), QStringList(u"1"_s));
}

TEST_F(AdressenTest, OhneZeileNurDieNummer) {
  anlegen();
  const AnschriftErgebnis ergebnis = umgebung.adressen.AnschriftErstellen(9);
  EXPECT_EQ(ergebnis.anschrift.IDNummer, 9);
  EXPECT_EQ(ergebnis.anschrift.Sehr_geehr, QString());
  EXPECT_EQ(ergebnis.grund, QString());
  EXPECT_EQ(anschrift(-9).IDNummer, 0);
}

TEST_F(AdressenTest, DatenbankFehlt) {
  const AnschriftErgebnis ergebnis = umgebung.adressen.AnschriftErstellen(9);
  EXPECT_EQ(ergebnis.anschrift.IDNummer, 9);
  EXPECT_EQ(ergebnis.grund, u"Die Datenbank /prog/Verbindo.mdb konnte nicht geöffnet werden"_s);
}

TEST_F(AdressenTest, StammdatenNichtLesbar) {
  anlegenMit({beispiel::schemaAdressen()});
  const AnschriftErgebnis ergebnis = umgebung.adressen.AnschriftErstellen(1);
  EXPECT_EQ(ergebnis.anschrift.IDNummer, 1);
  EXPECT_EQ(ergebnis.grund, u"Die Stammdaten der Person konnten nicht gelesen werden (siehe Protokoll)"_s);
  EXPECT_EQ(boxen(), QStringList());
}

TEST_F(AdressenTest, UnerwarteterFehler) {
  jet::create::TableSpec ohneFax = beispiel::schemaNamensliste();
  std::erase_if(ohneFax.columns, [](const auto& spalte) { return spalte.name == u"FaxNummern"; });
  anlegenMit({ohneFax});
  const AnschriftErgebnis ergebnis = umgebung.adressen.AnschriftErstellen(1);
  EXPECT_EQ(ergebnis.anschrift.IDNummer, 0);
  const QString satz = u"Das Feld wurde in der Abfrage nicht gefunden: FaxNummern"_s;
  const QString text = u"Fehler 3265 ("_s + satz + u") in Prozedur AnschriftErstellen in Modul Adressen"_s;
  EXPECT_EQ(ergebnis.grund, satz);
  EXPECT_EQ(programm.meldungen.gezeigt, std::vector<Meldung>{Meldung{text}});
  EXPECT_EQ(programm.fehlerprotokoll(), (QStringList{text, u"    PersonenID: 1"_s}));
}

TEST_F(AdressenTest, WoerterDieSichNichtNachschlagenLassenFehlen) {
  anlegenMit({beispiel::schemaNamensliste()});
  const AnschriftErgebnis ergebnis = umgebung.adressen.AnschriftErstellen(1);
  EXPECT_EQ(ergebnis.grund, QString());
  EXPECT_EQ(ergebnis.anschrift.Famname, u"jun."_s);
  EXPECT_EQ(ergebnis.verworfeneWoerter, (QStringList{u"Huber"_s, u"Johann"_s}));
}

TEST_F(AdressenTest, EineAntwortDieSichNichtSpeichernLaesst) {
  datenbank.person(
      {.id = 1, .namen = u"Huber Johann und Maria", .adresse = u"CH-80001 Zürich, Weg 1", .telefon = u"1"});
  anlegen();
  programm.meldungen.antworten = {Antwort::Ja};
  programm.meldungen.eingaben = {u"CH-8001 Zürich, Weg 1"_s};
  programm.jet.schreibfehler = jet::ErrorKind::DiskFull;
  const AnschriftErgebnis ergebnis = umgebung.adressen.AnschriftErstellen(1);
  programm.jet.schreibfehler.reset();
  EXPECT_EQ(ergebnis.grund, QString());
  EXPECT_EQ(ergebnis.anschrift.Sehr_geehr, u"Sehr geehrte Familie Huber!"_s);
  const QString ende =
      u" konnte in den Stammdaten der PersonenID 1 (Huber Johann und Maria) nicht gespeichert werden: Auf "
      u"dem "
      u"Datenträger der Datei /prog/Verbindo.mdb ist kein Platz mehr frei, es wurde nichts gespeichert."
      u"\r\n\r\nDas Kopieren geht ohne diese Änderung weiter. Bitte tragen Sie sie in Verbindo selbst "
      u"ein."_s;
  ASSERT_EQ(boxen().size(), 3);
  EXPECT_EQ(boxen()[1], u"Das Merkmal 'Familie'"_s + ende);
  EXPECT_EQ(boxen()[2], u"Die Korrektur der Adresse auf 'CH-8001 Zürich, Weg 1'"_s + ende);
  EXPECT_EQ(zeilen(u"Familie, Adresse"_s, u"FROM Namensliste"_s), QStringList(u"-|CH-80001 Zürich, Weg 1"_s));
}

TEST_F(AdressenTest, EinVornameDerSichNichtZaehlenLaesstBleibtInDerAdresse) {
  datenbank.person({.id = 1, .namen = u"Huber Johann"});
  anlegen();
  programm.jet.schreibfehler = jet::ErrorKind::Io;
  EXPECT_EQ(anschrift(1).GanzerName, u"Johann Huber"_s);
  programm.jet.schreibfehler.reset();
  EXPECT_EQ(boxen(), QStringList());
  EXPECT_EQ(programm.fehlerprotokoll().value(1), u"    Der Vorname Johann wurde nicht gezählt."_s);
}

TEST_F(AdressenTest, GanzerNameHat130Zeichen) {
  Person person;
  person.id = 1;
  person.namen = u"Huber"_s;
  Adressfelder felder(programm.meldungen, person);
  felder.anschrift.Vorname = QString(40, u'v');
  felder.anschrift.Famname = QString(60, u'f');
  Namensteile name;
  name.titel = QString(28, u't');
  felder.uebrigesFuellen(name, {});
  EXPECT_EQ(boxen(), QStringList());
  EXPECT_EQ(felder.anschrift.GanzerName.size(), 130);
  name.titel += u'T';
  felder.uebrigesFuellen(name, {});
  EXPECT_EQ(boxen(), QStringList(u"Beim Anlegen des Adressen-Datensatzes für die PersonenID 1\n\nHuber\n\n"
                                 "musste das Feld 'GanzerName' gekürzt werden. Bitte prüfen Sie die "
                                 "Stammdatendaten"_s));
  EXPECT_EQ(felder.anschrift.GanzerName, name.titel + u' ' + QString(40, u'v') + u' ' + QString(59, u'f'));
}

}  // namespace
}  // namespace pelvanto
