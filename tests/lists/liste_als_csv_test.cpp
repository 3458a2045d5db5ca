#include "lists/liste_als_csv.h"

#include <gtest/gtest.h>

#include "common/ausgabe.h"
#include "payment/zahlungswelt.h"

namespace pelvanto::test {
namespace {

const QString kName = "Schritt 2: AUSGESCHIEDEN - 2024 und/oder 2025 nicht bezahlt.csv";
const QString kDatei = "Schritt 2  AUSGESCHIEDEN - 2024 und oder 2025 nicht bezahlt.csv";
const QString kPfad = "/tisch/" + kDatei;

Liste dreiPersonen() {
  Liste liste({"Name"});
  liste.spaltenSetzen(
      {{"ID", "ID", 0}, {"Name", " Name ", 3000}, {"Adresse", "Adresse", 201}, {"Telefon", "Telefon", 900}});
  liste.hinzufuegen("Msg_3", {"Őri; Ádám", "4320 Perg", " 07262 1 "});
  liste.hinzufuegen("Msg_1", {"Žižek", "Hof\r\n5", ""});
  liste.hinzufuegen("Msg_2", {"Adler 5 €", "  ", "\t"});
  return liste;
}

struct CSVWelt : Zahlungswelt {
  FakeAnwendungen anwendungen;
  DateiAusfuehren ausfuehren{anwendungen, dateien, protokoll, meldungen, uhr};
  CSVAusgabe csv{anwendungen, dateien, ausfuehren, protokoll, meldungen, oberflaeche, typen};
  CSVWelt() { speicher.ordner("/tisch"); }

  QByteArray text(const Liste& liste) const { return csvText(liste, typen); }
  void ausgeben(const QString& name = kName) { csv.ListeAlsCSV(dreiPersonen(), name); }
};

Meldung erstellt() {
  return {"Die Datei   '" + kDatei +
              "'   wurde auf den Desktop gelegt.\r\n\r\nSoll die Datei jetzt gleich geöffnet werden?",
          Symbol::Frage, Knoepfe::JaNein, "Datei wurde erstellt"};
}
Meldung unmoeglich(const QString& text) {
  return {text, Symbol::Kritisch, Knoepfe::Ok, "Funktion nicht möglich"};
}
Meldung unloeschbar() {
  return unmoeglich(
      "Eine ältere Datei auf dem Desktop kann nicht gelöscht werden. Daher kann keine neue CSV-Datei "
      "erstellt werden!\r\n\r\n" +
      kPfad);
}

TEST(ListeAlsCSVTest, WritesTheWideColumnsOfAllRowsAsTheListShowsThem) {
  const CSVWelt welt;
  Liste liste = dreiPersonen();
  EXPECT_EQ(welt.text(liste), QByteArray("Name;Adresse;Telefon\r\n"
                                         "Ori; \xC1"
                                         "d\xE1m;4320 Perg;07262 1\r\n"
                                         "\x8Ei\x9E"
                                         "ek;Hof\r\n5; \r\n"
                                         "Adler 5 \x80; ;\t\r\n"));
  liste.markieren(1, true);
  liste.spalteAngeklickt(1);
  liste.spaltenbreiteSetzen(2, 200);
  EXPECT_EQ(welt.text(liste), QByteArray("Name;Telefon\r\nAdler 5 \x80;\t\r\nOri; \xC1"
                                         "d\xE1m;07262 1\r\n\x8Ei\x9E"
                                         "ek; \r\n"));
  // The hidden column made wide, all others narrow.
  liste.spaltenbreiteSetzen(0, 201);
  for (const int spalte : {1, 3}) liste.spaltenbreiteSetzen(spalte, 0);
  EXPECT_EQ(welt.text(liste), QByteArray("ID\r\n \r\n \r\n \r\n"));
}

TEST(ListeAlsCSVTest, PutsTheFileOnTheDesktopAndOpensItWhenAsked) {
  CSVWelt welt;
  welt.ausgeben();
  EXPECT_EQ(welt.meldungen.gezeigt, std::vector<Meldung>({erstellt()}));
  EXPECT_TRUE(welt.anwendungen.geoeffnet.empty());
  EXPECT_EQ(welt.speicher.inhalt(kPfad), welt.text(dreiPersonen()));

  welt.meldungen.antworten = {Antwort::Ja};
  int verarbeitetVorDerFrage = 0;
  welt.meldungen.beimZeigen = [&](const Meldung&) { verarbeitetVorDerFrage = welt.oberflaeche.verarbeitet; };
  Liste kuerzer = dreiPersonen();
  kuerzer.spaltenbreiteSetzen(3, 0);
  welt.csv.ListeAlsCSV(kuerzer, kName);
  EXPECT_EQ(welt.speicher.inhalt(kPfad), welt.text(kuerzer));
  EXPECT_EQ(welt.andereDateien(), QStringList(kPfad));
  EXPECT_EQ(welt.oberflaeche.verarbeitet, verarbeitetVorDerFrage + 1);
  EXPECT_EQ(welt.anwendungen.geoeffnet, (std::vector<std::pair<QString, int>>{{kPfad, 1}}));
  EXPECT_TRUE(welt.stoerer.vorgaenge.contains("ordnerSpuelen /tisch"));

  const QString vorlaeufig = kPfad + ".tmp";
  const QString umbenannt = vorlaeufig + " --> " + kPfad;
  EXPECT_EQ(welt.protokollzeilen(),
            QStringList({"Datei wird jetzt geschrieben: " + kPfad,
                         "        Datei wird mit Name umbenannt: " + umbenannt,
                         "        Datei wurde mit Name umbenannt: " + umbenannt,
                         "    " + kPfad + " geschrieben.", "Datei wird jetzt geschrieben: " + kPfad,
                         "    Datei wird jetzt gelöscht: " + kPfad, "        " + kPfad + " gelöscht.",
                         "    " + kPfad + " geschrieben.", "DateiAusfuehren gestartet für: " + kPfad}));
}

TEST(ListeAlsCSVTest, RefusesListsAndNamesThatGiveNoFile) {
  const QString nicht = "Die CSV-Datei konnte nicht erstellt werden: ";
  CSVWelt welt;
  Liste leer({});
  welt.csv.ListeAlsCSV(leer, kName);
  leer.hinzufuegen("Msg_1", {});
  welt.csv.ListeAlsCSV(leer, kName);
  welt.ausgeben("Gruppe a\\b.csv");
  welt.anwendungen.schreibtischordner = "/fehlt/";
  welt.ausgeben();
  welt.anwendungen.schreibtischordner.clear();
  welt.speicher.anlegen("/prog/x y.csv");
  welt.ausgeben("x:y.csv");
  EXPECT_EQ(
      welt.meldungen.gezeigt,
      std::vector<Meldung>(
          {{"Die Liste ist leer. Erstellung der CSV wird nicht durchgeführt!", Symbol::Information,
            Knoepfe::Ok, "Liste ist leer"},
           {"Die Liste hat keine Spalten. Die CSV kann nicht erstellt werden!", Symbol::Information,
            Knoepfe::Ok, "Liste hat keine Spalten"},
           unmoeglich(nicht +
                      "Das Zeichen \\ ist in einem Dateinamen nicht erlaubt.\r\n\r\n/tisch/Gruppe a\\b.csv"),
           unmoeglich(nicht + "Fehler 76 (Fehler der Probe).\r\n\r\n/fehlt/" + kDatei),
           unmoeglich(nicht + "Der Ordner des Desktops konnte nicht ermittelt werden.\r\n\r\nx y.csv")}));
  EXPECT_EQ(welt.andereDateien(), QStringList("/prog/x y.csv"));
  EXPECT_EQ(welt.fehlerzeilen(),
            QStringList({"Datei wird nicht geschrieben: /tisch/Gruppe a\\b.csv",
                         "    Das Zeichen \\ ist in einem Dateinamen nicht erlaubt",
                         "Datei konnte nicht geschrieben werden: /fehlt/" + kDatei,
                         "    Fehler 76 (Fehler der Probe)", "Datei wird nicht geschrieben: x y.csv",
                         "    Der Ordner des Desktops konnte nicht ermittelt werden"}));
}

TEST(ListeAlsCSVTest, AFullDiskLeavesTheOlderFileAndSaysSo) {
  CSVWelt welt;
  welt.speicher.anlegen(kPfad, "alt");
  welt.stoerer.stoere("schreiben", {61, "Datenträger voll"});
  welt.ausgeben();
  EXPECT_EQ(welt.meldungen.gezeigt,
            std::vector<Meldung>({unmoeglich(
                "Die CSV-Datei konnte nicht erstellt werden: Fehler 61 (Datenträger voll).\r\n\r\n" + kPfad +
                "\r\n\r\nDie ältere Datei dieses Namens ist unverändert.")}));
  EXPECT_EQ(welt.andereDateien(), QStringList(kPfad));
  EXPECT_EQ(welt.speicher.inhalt(kPfad), QByteArray("alt"));
}

TEST(ListeAlsCSVTest, AnOlderFileThatIsHeldStays) {
  CSVWelt welt;
  welt.speicher.anlegen(kPfad, "alt").gesperrt = true;
  welt.ausgeben();
  ASSERT_EQ(welt.meldungen.gezeigt.size(), 2U);
  EXPECT_TRUE(welt.meldungen.gezeigt[0].text.startsWith(
      "Fehler 70 (Fehler der Probe) in Prozedur DateiLoeschen in Modul DateienFinden\nbeim Löschen von\n" +
      kPfad + "\n"));
  EXPECT_EQ(welt.meldungen.gezeigt[1], unloeschbar());
  EXPECT_EQ(welt.andereDateien(), QStringList(kPfad));
  EXPECT_EQ(welt.speicher.inhalt(kPfad), QByteArray("alt"));

  // One that is only protected from writing makes way.
  SpeicherDateisystem::Datei& alte = *welt.speicher.datei(kPfad);
  alte.gesperrt = false;
  alte.nurLesen = true;
  welt.ausgeben();
  EXPECT_EQ(welt.meldungen.gezeigt.back(), erstellt());
  EXPECT_EQ(welt.speicher.inhalt(kPfad), welt.text(dreiPersonen()));
}

// Whatever fails, once or twice: the older file, also one with the very same content, or the whole new one.
// A temporary file stays only where it could not be deleted.
TEST(ListeAlsCSVTest, NoFailureLeavesNeitherFile) {
  const QByteArray neu = CSVWelt().text(dreiPersonen());
  for (const QByteArray& alt : {QByteArray(), QByteArray("alt"), neu}) {
    int erste = 1;
    for (bool gestoert = true; gestoert; ++erste) {
      for (int zweite = erste; zweite < erste + 12; ++zweite) {
        CSVWelt welt;
        if (!alt.isEmpty()) welt.speicher.anlegen(kPfad, alt);
        welt.stoerer.stoereNummer(erste, {57, "Ein-/Ausgabefehler"});
        if (zweite > erste) welt.stoerer.stoereNummer(zweite, {57, "Ein-/Ausgabefehler"});
        welt.ausgeben();
        gestoert = welt.stoerer.gestoert() > 0;
        SCOPED_TRACE(alt.toStdString() + " " + std::to_string(erste) + " " + std::to_string(zweite));
        const bool gelungen = welt.meldungen.gezeigt.back() == erstellt();
        EXPECT_EQ(gelungen, welt.meldungen.gezeigt.size() == 1 && welt.meldungen.ungeplanteFragen == 1);
        QStringList dateien = welt.andereDateien();
        if (zweite > erste) dateien.removeAll(kPfad + ".tmp");
        if (gelungen || !alt.isEmpty()) {
          EXPECT_EQ(dateien, QStringList(kPfad));
          EXPECT_EQ(welt.speicher.inhalt(kPfad), gelungen ? neu : alt);
        } else if (zweite == erste) {
          EXPECT_EQ(dateien, QStringList());
        }
      }
    }
    EXPECT_GT(erste, 8);
  }
}

}  // namespace
}  // namespace pelvanto::test
