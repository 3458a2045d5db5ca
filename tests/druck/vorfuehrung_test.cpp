// What the demonstration leaves behind of a whole wizard: every list on paper and as a CSV file.
#ifndef _WIN32

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <gtest/gtest.h>
#include <map>

#include "common/ausgabe.h"
#include "druck/gedrucktes_pdf.h"
#include "sample/beispielordner.h"

namespace pelvanto::test {
namespace {

// How many persons each step has told, kept and dropped.
using Anzahlen = std::map<QString, std::pair<int, int>>;

Anzahlen anzahlenAus(const QString& ausgabe) {
  static const QRegularExpression muster("Schritt (\\w+): (\\d+) in der Liste(?:, (\\d+) ausgeschieden)?");
  Anzahlen anzahlen;
  for (const QRegularExpressionMatch& schritt : muster.globalMatch(ausgabe))
    anzahlen[schritt.captured(1)] = {schritt.captured(2).toInt(), schritt.captured(3).toInt()};
  return anzahlen;
}

// The rows of a printed list: what stands on one line between `abHoehe` (mm) and the footer.
int gedruckteZeilen(const PDFInhalt& inhalt, double abHoehe) {
  constexpr double kFuss = 190;  // mm
  std::vector<std::pair<int, double>> stellen;
  for (const PDFWort& wort : inhalt.woerter) {
    if (wort.y > abHoehe && wort.y < kFuss) stellen.emplace_back(wort.seite, wort.y);
  }
  std::sort(stellen.begin(), stellen.end());
  const auto selbeZeile = [](const auto& a, const auto& b) {
    return a.first == b.first && b.second - a.second < 2;
  };
  return static_cast<int>(std::unique(stellen.begin(), stellen.end(), selbeZeile) - stellen.begin());
}

QStringList ausserhalbDesDruckbereichs(const PDFInhalt& inhalt) {
  constexpr double kLinks = 20, kRechts = 277, kOben = 10, kUnten = 196, kGenau = 0.5;  // mm
  QStringList gefunden;
  for (const PDFWort& wort : inhalt.woerter) {
    if (wort.x < kLinks - kGenau || wort.rechts > kRechts + kGenau || wort.y < kOben - kGenau ||
        wort.unten > kUnten)
      gefunden << QStringLiteral("Seite %1: %2").arg(wort.seite).arg(wort.text);
  }
  return gefunden;
}

// By their separators: a text of several lines stays so, and none of the sample has a semicolon.
qsizetype csvZeilen(const QString& datei) {
  QFile csv(datei);
  if (!csv.open(QFile::ReadOnly)) return 0;
  const qsizetype jeZeile = csv.readLine().count(';');
  return jeZeile == 0 ? 0 : 1 + csv.readAll().count(';') / jeZeile;
}

QStringList sortiert(QStringList namen) {
  namen.sort();
  return namen;
}
QStringList dateien(const QString& ordner) { return sortiert(QDir(ordner).entryList(QDir::Files)); }

// As the sample association's settings lead to them.
struct Ausgabe {
  const char* name;
  const char* schritt;
  bool ausgeschieden;
  bool alsCSV = true;
};
const Ausgabe kAusgaben[] = {
    {"Schritt 1  Mitglieder der Gruppe Milchlieferanten", "1", false},
    {"Schritt 2  2025 und 2026 bezahlt", "2", false},
    {"Schritt 2  AUSGESCHIEDEN - 2025 und oder 2026 nicht bezahlt", "2", true},
    {"Schritt 3  Enthalten in Qualitätsprogramm", "3a", false},
    {"Schritt 3  AUSGESCHIEDEN - weil nicht enthalten in Qualitätsprogramm", "3a", true},
    {"Schritt 3b  Enthalten in Bio-Betriebe", "3b", false, false},
    {"Schritt 3b  AUSGESCHIEDEN - weil nicht enthalten in Bio-Betriebe", "3b", true, false},
    {"Schritt 4  Auszahlung berechnen      125.000,00 €     3.645.893 kg Milch = 3,4285 Cent pro kg", "4",
     false},
    {"Schritt 4  AUSGESCHIEDEN - keine Milchmenge", "4", true},
    {"Schritt 5  Datenträger erstellen   Netto  120.885,65 €,  Steuer  13.161,63 €,  Brutto  134.047,28 €",
     "5", false},
    {"Schritt 5  AUSGESCHIEDEN - keine Bankverbindung", "5", true},
};

TEST(Vorfuehrung, EveryListLiesThereWholeAndReadable) {
  constexpr double kHeute = 46097.0;
  constexpr double kUnterKopf = 22, kUnterSpaltenkoepfen = 29;  // mm
  constexpr int kGeduld = 120'000;                              // milliseconds
  const QTemporaryDir ordner;
  beispiel::beispielordnerAnlegen(ordner.path().toStdString(), 2026, kHeute);
  QProcess programm;
  programm.start(VORFUEHRUNG, {"--datum=2026-03-16T08:09:10", ordner.path()});
  ASSERT_TRUE(programm.waitForFinished(kGeduld));
  const QString ausgabe = QString::fromUtf8(programm.readAllStandardOutput());
  ASSERT_EQ(programm.exitCode(), 0) << ausgabe.toStdString();
  const Anzahlen anzahlen = anzahlenAus(ausgabe);

  QStringList pdfDateien{
      QString("Überweisung-Datei          " + ordner.filePath("UE26001.xml")).replace(u'/', u' ') + ".pdf"};
  QStringList csvDateien;
  int seiten = 0, woerter = 0;
  const auto lesbar = [&](const QString& datei) {
    const PDFInhalt inhalt = pdfLesen(ordner.filePath("druck/" + datei));
    EXPECT_FALSE(inhalt.woerter.empty());
    EXPECT_EQ(ueberlappungen(inhalt), QStringList());
    EXPECT_EQ(ausserhalbDesDruckbereichs(inhalt), QStringList());
    seiten += static_cast<int>(inhalt.seiten.size());
    woerter += static_cast<int>(inhalt.woerter.size());
    return inhalt;
  };
  for (const Ausgabe& liste : kAusgaben) {
    SCOPED_TRACE(liste.name);
    const auto [behalten, ausgeschieden] = anzahlen.at(liste.schritt);
    const int personen = liste.ausgeschieden ? ausgeschieden : behalten;
    ASSERT_GT(personen, 0) << "the sample association has somebody in every list";
    pdfDateien << liste.name + QString(".pdf");
    EXPECT_EQ(gedruckteZeilen(lesbar(pdfDateien.back()), kUnterSpaltenkoepfen), personen);
    if (!liste.alsCSV) continue;
    csvDateien << liste.name + QString(".csv");
    EXPECT_EQ(csvZeilen(ordner.filePath("csv/" + csvDateien.back())), personen + 1);
  }
  // The control list has a last line of its own.
  EXPECT_EQ(gedruckteZeilen(lesbar(pdfDateien.front()), kUnterKopf), anzahlen.at("5").first + 1);

  EXPECT_EQ(dateien(ordner.filePath("druck")), sortiert(pdfDateien));
  EXPECT_EQ(dateien(ordner.filePath("csv")), sortiert(csvDateien));
  std::printf("%d printed pages with %d words\n", seiten, woerter);
}

}  // namespace
}  // namespace pelvanto::test

#endif
