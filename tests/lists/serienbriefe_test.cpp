// The copy of a list's persons into the address file for form letters.
#include "lists/adressenwelt.h"
#include "sample/verbindo_schema.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

const QString kAlleFelder =
    u"IDNummer, Anrede, Vorname, PLZOrt, Adresse, Sehr_geehr, Titel, Fax, Famname, TitelOben, "
    u"NamenZusatzZeile, "
    u"EMail, Telefon, Du, GanzeAnrede, GanzerName, PLZ, Ort, Straße, InternationaleFaxNummer, Kennzeichen"_s;

class SerienbriefeTest : public Adressenwelt {
 protected:
  SerienbriefeTest() {
    datenbank.vorname({.vorname = u"Johann", .maennlich = true, .anzahl = 7})
        .vorname({.vorname = u"Maria"})
        .vorname({.vorname = u"Dr.", .titel = true})
        .vorname({.vorname = u"Hofrat", .titelOben = true})
        .person({.id = 1,
                 .namen = u"Huber Hofrat Dr. Johann, vulgo Moar",
                 .adresse = u"A-4020 Linz, Hauptstraße 12",
                 .telefon = u"0664 1",
                 .eMail = u"j@example.at",
                 .faxNummern = u"0732 2",
                 .du = 1})
        .person({.id = 2, .namen = u"Mayr Maria und Johann", .adresse = u"4320 Perg"})
        .person({.id = 3, .namen = u"Milchhof"});
  }
  void kopieren(const QList<int>& ids) {
    Liste liste({});
    for (const int id : ids) liste.hinzufuegen(zeilenschluessel(id), {u"Person %1"_s.arg(id)});
    umgebung.serienbriefe.SerienbriefAdressenKopieren(liste);
  }
  QStringList adressen(const QString& felder) { return zeilen(felder, u"FROM Adressen ORDER BY IDNummer"_s); }
  QByteArray datei() const { return programm.dateien.inhalt(programm.werte.DatenbankPfad); }
  std::vector<std::pair<int, int>> fortschritte() const { return programm.oberflaeche.fortschritte; }
};

TEST_F(SerienbriefeTest, JedePersonMitAllenFeldern) {
  anlegen();
  programm.meldungen.antworten = {Antwort::Ja};
  kopieren({2, 1, 99});
  EXPECT_EQ(adressen(kAlleFelder),
            (QStringList{u"1|Herrn|Johann|4020 Linz|Hauptstraße 12|Sehr geehrter Herr Hofrat Dr. Huber!|Dr.|"
                         u"0732 2|Huber|Hofrat|vulgo Moar|j@example.at|0664 1|Wahr|Herrn Hofrat|"
                         u"Dr. Johann Huber|A-4020|Linz|Hauptstraße||neu"_s,
                         u"2|Familie||4320 Perg||Sehr geehrte Familie Mayr!|||Mayr|||||Falsch|Familie|Mayr|"
                         u"4320|Perg|||neu"_s,
                         u"99|||||||||||||Falsch|||||||neu"_s}));
  EXPECT_EQ(fortschritte(), (std::vector<std::pair<int, int>>{{1, 3}, {2, 3}, {3, 3}, {0, 0}}));
  EXPECT_EQ(zeilen(u"Anzahl"_s, u"FROM Vornamen WHERE Vorname = 'Johann'"_s), QStringList(u"8"_s));
  EXPECT_EQ(zeilen(u"ID, Familie"_s, u"FROM Namensliste"_s), (QStringList{u"1|-"_s, u"2|1"_s, u"3|-"_s}));
  EXPECT_EQ(programm.meldungen.gezeigt.size(), 1U);
  EXPECT_EQ(programm.protokoll(), QStringList(u"Das Merkmal 'Familie' der PersonenID 2 wurde gesetzt."_s));
}

TEST_F(SerienbriefeTest, WerDaIstBleibtWieErIst) {
  datenbank.anschrift({.idNummer = 1, .anrede = u"Frau", .vorname = u"Eva", .famname = u"Huber"});
  anlegen();
  kopieren({1, 3});
  const QStringList vorher = adressen(kAlleFelder);
  EXPECT_EQ(vorher.size(), 2);
  EXPECT_TRUE(vorher[0].startsWith(u"1|Frau|Eva|"));
  const QByteArray bytes = datei();
  kopieren({3, 1});
  EXPECT_EQ(datei(), bytes);
  EXPECT_EQ(zeilen(u"Anzahl"_s, u"FROM Vornamen WHERE Vorname = 'Johann'"_s), QStringList(u"7"_s));
  EXPECT_EQ(programm.meldungen.gezeigt.size(), 0U);
}

TEST_F(SerienbriefeTest, LeereListe) {
  anlegen();
  kopieren({});
  EXPECT_EQ(programm.jet.oeffnungen, 0);
  EXPECT_EQ(fortschritte().size(), 0U);
}

TEST_F(SerienbriefeTest, WerVerbindoOffenHatWirdVorDerErstenPersonGebeten) {
  anlegen();
  const QByteArray bytes = datei();
  programm.dateien.anlegen(u"/prog/Verbindo.ldb"_s);
  programm.jet.mitBenutzern.insert(u"/prog/Verbindo.ldb"_s);
  kopieren({1});
  EXPECT_EQ(datei(), bytes);
  EXPECT_EQ(
      programm.meldungen.gezeigt,
      (std::vector{Meldung{u"Die Serienbrief-Adressen können nicht kopiert werden: Die Datenbank "
                           u"/prog/Verbindo.mdb ist in Verbindo geöffnet und kann deshalb zurzeit nicht "
                           u"geändert werden; bitte Verbindo auf allen Arbeitsplätzen schließen und es "
                           u"noch einmal versuchen.\r\n\r\nEs wurde niemand in die "
                           u"Serienbrief-Adressendatei kopiert."_s,
                           Symbol::Kritisch}}));
  EXPECT_EQ(fortschritte(), (std::vector<std::pair<int, int>>{{0, 0}}));
}

TEST_F(SerienbriefeTest, FehlerMittenInDerListe) {
  anlegen();
  programm.jet.vorDemSchreiben = [&](const QString&) {
    if (fortschritte().size() == 2) programm.jet.schreibfehler = jet::ErrorKind::DiskFull;
  };
  kopieren({1, 3, 2});
  programm.jet.schreibfehler.reset();
  EXPECT_EQ(adressen(u"IDNummer"_s), QStringList(u"1"_s));
  const QString satz =
      u"Auf dem Datenträger der Datei /prog/Verbindo.mdb ist kein Platz mehr frei, es wurde nichts gespeichert"_s;
  const QString text =
      u"Die Serienbrief-Adresse für PersonenID 3 (Person 3) konnte nicht angelegt werden: "_s + satz + u'.';
  EXPECT_EQ(
      programm.meldungen.gezeigt,
      (std::vector{Meldung{text + u"\r\n\r\nDas Kopieren wurde beendet. Die Personen davor (1 von 3) sind "
                                  u"in der Serienbrief-Adressendatei und bleiben dort. Wiederholen Sie "
                                  u"das Kopieren, wenn der Grund behoben ist; es ergänzt dann nur, wer "
                                  u"noch fehlt."_s,
                           Symbol::Kritisch}}));
  EXPECT_EQ(programm.fehlerprotokoll(),
            (QStringList{u"Fehler 3026 ("_s + satz +
                             u") in Prozedur SerienbriefAdressenKopieren in Modul "
                             u"HauptFenster"_s,
                         text}));
  EXPECT_EQ(fortschritte(), (std::vector<std::pair<int, int>>{{1, 3}, {2, 3}, {0, 0}}));
}

TEST_F(SerienbriefeTest, EineAdresseDieNichtZustandeKommtWirdNichtGespeichert) {
  jet::create::DatabaseBuilder neue(datenbank.datei);
  neue.addTable(beispiel::schemaAdressen());
  programm.ablegen(programm.werte.DatenbankPfad, neue.finish());
  kopieren({1, 2});
  EXPECT_EQ(adressen(u"IDNummer"_s), QStringList());
  ASSERT_EQ(programm.meldungen.gezeigt.size(), 1U);
  EXPECT_TRUE(programm.meldungen.texte()[0].startsWith(
      u"Die Serienbrief-Adresse für PersonenID 1 (Person 1) konnte nicht angelegt werden: Die Stammdaten der "
      u"Person konnten nicht gelesen werden (siehe Protokoll).\r\n"));
}

TEST_F(SerienbriefeTest, FehlendeWoerterWerdenAmEndeGenannt) {
  jet::create::DatabaseBuilder neue(datenbank.datei);
  neue.addTable(beispiel::schemaAdressen());
  jet::create::TableBuilder& personen = neue.addTable(beispiel::schemaNamensliste());
  std::vector<jet::Value> werte(beispiel::schemaNamensliste().columns.size());
  QList<int> ids;
  for (int id = 1; id <= 12; ++id) {
    werte[0] = std::int32_t{id};
    werte[1] = jet::Text(u"Huber Johann");
    personen.insert(werte);
    ids << id;
  }
  programm.ablegen(programm.werte.DatenbankPfad, neue.finish());
  kopieren(ids);
  EXPECT_EQ(adressen(u"IDNummer"_s).size(), 12);
  ASSERT_EQ(programm.meldungen.gezeigt.size(), 1U);
  const QString text = programm.meldungen.texte()[0];
  EXPECT_TRUE(text.contains(u":\r\n\r\nPersonenID 1 (Person 1): Huber, Johann\r\nPersonenID 2 "));
  EXPECT_TRUE(
      text.endsWith(u"PersonenID 10 (Person 10): Huber, Johann\r\nund 2 weitere Personen (siehe "
                    u"Protokoll)"));
}

}  // namespace
}  // namespace pelvanto
