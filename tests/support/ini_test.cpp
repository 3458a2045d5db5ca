#include <gtest/gtest.h>

#include "common/ausgabe.h"
#include "common/dateiwelt.h"
#include "support/funktionen_fuer_ini.h"

namespace pelvanto::test {
namespace {

const char* const kIni = "/prog/verbindo.ini";

struct Iniwelt : Dateiwelt {
  FunktionenFürINI ini{stoerer, protokoll, QString(kIni)};
  explicit Iniwelt(const QByteArray& inhalt) { speicher.anlegen(kIni, inhalt); }
  QString lesen(const char* schluessel) const { return ini.INILesen("Auszahlungen", schluessel, "Vorgabe"); }
  QByteArray nachSpeichern(const char* schluessel, const QString& wert) {
    ini.INISpeichern("Auszahlungen", schluessel, wert);
    return speicher.inhalt(kIni);
  }
};

TEST(IniTest, ReadsAsThePrivateProfileFunctionsDo) {
  const Iniwelt welt(
      "Frei=vor jedem Abschnitt\r\n[Programm]\r\nEigeneBIC=falscher Abschnitt\r\n"
      "  [ auszahlungen ]  ; Kommentar\r\n;Kommentar=1\r\n"
      "  eigeneIBAN \t=  AT61 1904  \t\r\nZitat=\" 'innen' \"\r\nEinfach='abc'\r\nHalb=\"abc\r\n"
      "Gleich=a=b;c\r\nLeer=\r\nOhne\r\nDoppelt=erster\r\nDoppelt=zweiter\r\nUmlaut=\xC4rger \x80\r\n"
      "[Auszahlungen]\r\nNurImZweiten=x\r\nLetzter=ohne Ende");
  const std::pair<const char*, const char*> faelle[] = {
      {"EigeneIBAN", "AT61 1904"}, {"Zitat", "'innen'"},      {"EINFACH", "abc"},
      {"Halb", "\"abc"},           {"Gleich", "a=b;c"},       {"Leer", ""},
      {"Ohne", "Vorgabe"},         {"Doppelt", "erster"},     {"Umlaut", "Ärger €"},
      {"NurImZweiten", "Vorgabe"}, {"EigeneBIC", "Vorgabe"},  {"Frei", "Vorgabe"},
      {"Kommentar", "Vorgabe"},    {";Kommentar", "Vorgabe"},
  };
  for (const auto& [schluessel, erwartet] : faelle) {
    EXPECT_EQ(welt.lesen(schluessel), QString(erwartet)) << schluessel;
  }
  EXPECT_EQ(Iniwelt("[Auszahlungen]\nLetzter=ohne Ende").lesen("Letzter"), "ohne Ende");
}

TEST(IniTest, ReadsAtMost99CharactersWithoutOuterBlanks) {
  const Iniwelt welt("[Auszahlungen]\nLang=" + QByteArray(98, 'a') + " bcd\nZitiert=\"  x  \"\n");
  EXPECT_EQ(welt.lesen("Lang"), QString(98, u'a'));  // the 99th is a blank
  EXPECT_EQ(welt.lesen("Zitiert"), "x");
  EXPECT_EQ(welt.ini.INILesen("Auszahlungen", "Fehlt", "  " + QString(120, u'v')).size(), 97);
}

TEST(IniTest, WithoutAFileTheDefaultsHoldAndTheFirstWriteCreatesIt) {
  Dateiwelt welt;
  FunktionenFürINI ini(welt.stoerer, welt.protokoll, QString(kIni));
  EXPECT_EQ(ini.INILesen("Auszahlungen", "WortlautUeberweisung", "GS - Qualitätszuschlag Milvarte"),
            "GS - Qualitätszuschlag Milvarte");
  ini.INISpeichern("Auszahlungen", "GruppeNotwendig", "");
  EXPECT_EQ(welt.speicher.inhalt(kIni), QByteArray("[Auszahlungen]\r\nGruppeNotwendig=\r\n"));
  EXPECT_EQ(welt.andereDateien(), QStringList({kIni}));
}

TEST(IniTest, WritingChangesOnlyTheValuesOwnBytes) {
  struct Fall {
    const char* was;
    QByteArray vorher;
    const char* schluessel;
    const char* wert;
    QByteArray nachher;
  };
  const Fall faelle[] = {
      {"value with blanks and quotes",
       "; \xFF\r\n[A]\r\nk=1\r\n[AUSZAHLUNGEN]\r\n kEy = \"alt\" \r\n[B]\r\nkey=2", "Key", "neu",
       "; \xFF\r\n[A]\r\nk=1\r\n[AUSZAHLUNGEN]\r\n kEy = neu \r\n[B]\r\nkey=2"},
      {"emptied", "[Auszahlungen]\r\nk=1\r\nl=2\r\n", "k", "", "[Auszahlungen]\r\nk=\r\nl=2\r\n"},
      {"first of two", "[Auszahlungen]\nk=1\nk=2\n[auszahlungen]\nk=3\n", "k", "9",
       "[Auszahlungen]\nk=9\nk=2\n[auszahlungen]\nk=3\n"},
      {"missing key before blank lines", "[Auszahlungen]\r\na=1\r\n; Ende\r\n\r\n \r\n[B]\r\nb=1\r\n", "k",
       "ü€", "[Auszahlungen]\r\na=1\r\n; Ende\r\nk=\xFC\x80\r\n\r\n \r\n[B]\r\nb=1\r\n"},
      {"LF file without end", "[B]\nb=1\n[Auszahlungen]\na=1", "k", "v",
       "[B]\nb=1\n[Auszahlungen]\na=1\nk=v\n"},
      {"header only", "[Auszahlungen]", "k", "v", "[Auszahlungen]\r\nk=v\r\n"},
      {"missing section", "[B]\r\nk=1", "k", "v", "[B]\r\nk=1\r\n[Auszahlungen]\r\nk=v\r\n"},
      {"line breaks in the value", "[Auszahlungen]\r\nk=1\r\n[B]\r\n", "k", "a\r\n[C]\nd",
       "[Auszahlungen]\r\nk=a  [C] d\r\n[B]\r\n"},
      {"characters that the code page lacks", "[Auszahlungen]\r\nk=1\r\n", "k", "Őri Д日",
       "[Auszahlungen]\r\nk=Ori ??\r\n"},
  };
  for (const Fall& fall : faelle) {
    Iniwelt welt(fall.vorher);
    EXPECT_EQ(welt.nachSpeichern(fall.schluessel, fall.wert), fall.nachher) << fall.was;
    EXPECT_EQ(welt.andereDateien(), QStringList({kIni})) << fall.was;
  }
}

TEST(IniTest, WritesOneLogLineUnlessItIsAWindowPosition) {
  Iniwelt welt("[Auszahlungen]\r\n");
  welt.nachSpeichern("UnterlieferungGruppe", "Milchlieferanten");
  welt.nachSpeichern("Oben", "12");
  welt.nachSpeichern("OBEN", "13");
  welt.ini.INISpeichern("Auszahlungen", "Still", "1", true);
  welt.ini.INISpeichern("Auszahlungen", "Eingezogen", "1", false, 4);
  EXPECT_EQ(welt.protokollzeilen(),
            QStringList({"INISpeichern: Auszahlungen / UnterlieferungGruppe / Milchlieferanten / "
                         "/prog/verbindo.ini",
                         "    INISpeichern: Auszahlungen / Eingezogen / 1 / /prog/verbindo.ini"}));
}

TEST(IniTest, AFailureAtAnyFileOperationLeavesTheOldOrTheNewFile) {
  const QByteArray alt = "[Programm]\r\nwichtig=1\r\n[Auszahlungen]\r\nk=alt\r\n";
  const QByteArray neu = "[Programm]\r\nwichtig=1\r\n[Auszahlungen]\r\nk=neu\r\n";
  int durchlaufen = 0;
  for (int nummer = 1;; ++nummer) {
    Iniwelt welt(alt);
    welt.stoerer.stoereNummer(nummer, {61, "Datenträger voll"});
    const QByteArray danach = welt.nachSpeichern("k", "neu");
    if (welt.stoerer.gestoert() == 0) {
      EXPECT_EQ(danach, neu);
      break;
    }
    ++durchlaufen;
    EXPECT_TRUE(danach == alt || danach == neu) << welt.stoerer.vorgaenge.join('\n').toStdString();
    EXPECT_EQ(welt.andereDateien(), QStringList({kIni})) << nummer;
    EXPECT_TRUE(welt.meldungen.gezeigt.empty());
  }
  EXPECT_GE(durchlaufen, 3);  // read, write, replace, and the log
}

TEST(IniTest, WhatAnotherProgramSavesMeanwhileIsKept) {
  Iniwelt welt("[Programm]\r\nk=1\r\n");
  welt.stoerer.vorVorgang = [&](const QString& vorgang) {
    if (vorgang.startsWith("schreiben")) welt.speicher.anlegen(kIni, "[Programm]\r\nk=2\r\n");
  };
  EXPECT_EQ(welt.nachSpeichern("Eigener", "x"),
            QByteArray("[Programm]\r\nk=2\r\n[Auszahlungen]\r\nEigener=x\r\n"));
  EXPECT_EQ(welt.andereDateien(), QStringList({kIni}));
}

TEST(IniTest, AFileThatCannotBeReadIsNotReplaced) {
  Iniwelt welt("[Programm]\r\nwichtig=1\r\n");
  welt.speicher.anlegen(kIni, "[Programm]\r\nwichtig=1\r\n").gesperrt = true;
  EXPECT_EQ(welt.nachSpeichern("k", "neu"), QByteArray("[Programm]\r\nwichtig=1\r\n"));
  EXPECT_FALSE(welt.ini.lesbar());
  EXPECT_TRUE(welt.protokollzeilen().filter("Auszahlungen / k / neu").isEmpty());
  EXPECT_EQ(welt.fehlerzeilen().size(), 1);
}

}  // namespace
}  // namespace pelvanto::test
