// The control list as a real document, with 1234.56 for the first transfer, twice that for the second, ...
#include "payment/kontrollliste.h"

#include <QDir>
#include <QLocale>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "common/ausgabe.h"
#include "druck/druckserverwelt.h"
#include "druck/gedrucktes_pdf.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

using test::Anker;
using test::Druckserverwelt;
using test::Solltext;

QString kundenname(int i) { return u"Größwang %1 & Söhne"_s.arg(i); }

UeberweisungT ueberweisungen(int anzahl) {
  UeberweisungT tabelle;
  for (int i = 1; i <= anzahl; ++i) {
    tabelle.push_back({.KundeIBAN = u"AT611904300234573201"_s,
                       .KundeBIC = u"MUSTAT2LXXX"_s,
                       .EinzelBetrag = Waehrung::ausCent(123456 * i),
                       .KundenID = {},
                       .KundeName = kundenname(i),
                       .KundeAdresse = u"4320 Perg, Hof %1"_s.arg(i),
                       .Verwendungszweck = {},
                       .AuftraggeberReferenz = {}});
  }
  return tabelle;
}

struct Kontrollfall {
  int anzahl;
  int seiten;
  QString summe;
};
const std::vector<Kontrollfall> kKontrollfaelle{{1, 1, u"1.234,56 €"_s},
                                                {5, 1, u"18.518,40 €"_s},
                                                {6, 1, u"25.925,76 €"_s},
                                                {100, 4, u"6.234.528,00 €"_s}};

std::vector<Solltext> sollKontrollliste(const Kontrollfall& fall) {
  std::vector<Solltext> soll;
  int seite = 0;
  double y = 999;
  const auto platzSchaffen = [&] {
    if (y <= 185) return;
    const auto rahmen = test::rahmentexte(++seite, u"Überweisung-Datei /prog/UE26001.xml"_s,
                                          u"DE89 3704 0044 0532 0130 00 COBADEFFXXX"_s, u"Pelvanto-Team"_s);
    soll.insert(soll.end(), rahmen.begin(), rahmen.end());
    y = 24;
  };
  for (int i = 1; i <= fall.anzahl; ++i) {
    platzSchaffen();
    const QString betrag = QLocale(QLocale::German).toString(1234.56 * i, 'f', 2) + u" €"_s;
    const std::vector<Solltext> zeile{{seite, kundenname(i), 20, y},
                                      {seite, u"4320 Perg, Hof %1"_s.arg(i), 90, y},
                                      {seite, betrag, 180, y, Anker::Rechts},
                                      {seite, u"AT61 1904 3002 3457 3201"_s, 190, y},
                                      {seite, u"MUSTAT2LXXX"_s, 240, y}};
    soll.insert(soll.end(), zeile.begin(), zeile.end());
    y += i % 5 == 0 ? 8 : 5;
  }
  platzSchaffen();
  soll.push_back({seite, u"%1 Zeilen"_s.arg(fall.anzahl), 90, y});
  soll.push_back({seite, fall.summe, 180, y, Anker::Rechts});
  return soll;
}

void kontrolllisteDrucken(test::Druckwelt& welt, const UeberweisungT& tabelle) {
  FunktionenFürINI ini(welt.programm.dateien, welt.protokoll, welt.programm.werte.INIDatei);
  const DatenTypen typen(welt.programm.gebietsschema, welt.protokoll, welt.programm.meldungen, ini);
  welt.programm.meldungen.antworten = {Antwort::Ja};
  Kontrollliste(welt.druck, welt.programm.meldungen, welt.protokoll, typen)
      .anbieten(u"/prog/UE26001.xml"_s, tabelle, u"DE89370400440532013000"_s, u"COBADEFFXXX"_s);
  EXPECT_EQ(welt.programm.meldungen.gezeigt.size(), 1U) << "only the question";
  welt.programm.meldungen.gezeigt.clear();
}

void kontrolllisteVergleichen(const QString& datei, const Kontrollfall& fall) {
  const test::PDFInhalt inhalt = test::pdfLesen(datei);
  ASSERT_EQ(inhalt.seiten.size(), static_cast<std::size_t>(fall.seiten));
  const test::Abgleich abgleich = test::abgleichen(inhalt, sollKontrollliste(fall));
  EXPECT_EQ(abgleich.maengel.mid(0, 10), QStringList());
  EXPECT_EQ(test::ueberlappungen(inhalt), QStringList());
  std::cout << fall.anzahl << " transfers: " << abgleich.texte << " texts on " << inhalt.seiten.size()
            << " pages, at most " << abgleich.groessteAbweichung << " mm away\n";
}

TEST(KontrolllistenDruckTest, EveryTextOfAPDFStandsInItsPlace) {
  for (const Kontrollfall& fall : kKontrollfaelle) {
    SCOPED_TRACE(fall.anzahl);
    QTemporaryDir ordner;
    PDFDrucker drucker(ordner.path());
    test::Druckwelt welt(drucker);
    kontrolllisteDrucken(welt, ueberweisungen(fall.anzahl));
    const QStringList dateien = QDir(ordner.path()).entryList(QDir::Files);
    ASSERT_EQ(dateien.size(), 1);
    kontrolllisteVergleichen(ordner.filePath(dateien[0]), fall);
  }
}

TEST(KontrolllistenDruckTest, TheLongestTextsDoNotRunIntoTheAmount) {
  QTemporaryDir ordner;
  PDFDrucker drucker(ordner.path());
  test::Druckwelt welt(drucker);
  Ueberweisung lang = ueberweisungen(1)[0];
  lang.KundeName = QString(70, u'N');
  lang.KundeAdresse = QString(70, u'm');
  lang.EinzelBetrag = Waehrung::ausCent(123456789012);
  kontrolllisteDrucken(welt, {lang});
  const QStringList dateien = QDir(ordner.path()).entryList(QDir::Files);
  ASSERT_EQ(dateien.size(), 1);
  const test::PDFInhalt inhalt = test::pdfLesen(ordner.filePath(dateien[0]));
  EXPECT_EQ(test::ueberlappungen(inhalt), QStringList());
  int gefunden = 0;
  for (const test::PDFWort& wort : inhalt.woerter) {
    if (wort.text.endsWith(u"..."_s) || wort.text == u"1.234.567.890,12"_s) ++gefunden;
  }
  EXPECT_EQ(gefunden, 4) << "name, address, amount and sum, each a word of its own";
}

TEST_F(Druckserverwelt, TheControlListIsADocumentOfTheDefaultQueue) {
  for (const Kontrollfall& fall : kKontrollfaelle) kontrolllisteDrucken(welt, ueberweisungen(fall.anzahl));
  const std::vector<test::Druckauftrag> auftraege = server.auftraege(kKontrollfaelle.size());
  ASSERT_EQ(auftraege.size(), kKontrollfaelle.size());
  for (std::size_t i = 0; i < auftraege.size(); ++i) {
    EXPECT_EQ(auftraege[i].titel, u"Überweisung-Datei          /prog/UE26001.xml"_s);
    kontrolllisteVergleichen(auftraege[i].datei, kKontrollfaelle[i]);
  }
}

}  // namespace
}  // namespace pelvanto
