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
#include "support/windows1252.h"

namespace pelvanto::test {
namespace {

constexpr double kUnterTiteln = 20, kUnterKopf = 22, kUnterSpaltenkoepfen = 29, kFuss = 190;  // mm

// How many persons each step has told, kept and dropped.
using Anzahlen = std::map<QString, std::pair<int, int>>;

Anzahlen anzahlenAus(const QString& ausgabe) {
  static const QRegularExpression muster("Schritt (\\w+): (\\d+) in der Liste(?:, (\\d+) ausgeschieden)?");
  Anzahlen anzahlen;
  for (const QRegularExpressionMatch& schritt : muster.globalMatch(ausgabe))
    anzahlen[schritt.captured(1)] = {schritt.captured(2).toInt(), schritt.captured(3).toInt()};
  return anzahlen;
}

// As a CSV file can hold it, without blanks: words that stand close together are one to the reader of the
// PDF.
QString vergleichbar(const QString& text) {
  QString ohne;
  for (const QChar zeichen : ausWindows1252(nachWindows1252(text))) {
    if (!zeichen.isSpace()) ohne += zeichen;
  }
  return ohne;
}

// What stands on each line between two heights (mm).
QStringList gedruckteZeilen(const PDFInhalt& inhalt, double von, double bis) {
  constexpr double kSelbeZeile = 2;  // mm
  std::vector<PDFWort> woerter;
  for (const PDFWort& wort : inhalt.woerter) {
    if (wort.y > von && wort.y < bis) woerter.push_back(wort);
  }
  std::ranges::sort(woerter, {}, [](const PDFWort& wort) { return std::pair(wort.seite, wort.y); });
  QStringList zeilen;
  for (auto anfang = woerter.begin(); anfang != woerter.end();) {
    const auto ende = std::find_if(anfang, woerter.end(), [&](const PDFWort& wort) {
      return wort.seite != anfang->seite || wort.y - anfang->y >= kSelbeZeile;
    });
    std::sort(anfang, ende, [](const PDFWort& a, const PDFWort& b) { return a.x < b.x; });
    QString zeile;
    for (; anfang != ende; ++anfang) zeile += anfang->text;
    zeilen << vergleichbar(zeile);
  }
  return zeilen;
}

// Whether the line has all the texts in this order and nothing else. Names, addresses and BICs may end early,
// in "...", an IBAN or an amount never: `gekuerzt` counts these.
bool enthaeltGenau(const QString& zeile, const QStringList& koepfe, const QStringList& texte, int& gekuerzt) {
  static const QStringList kuerzbar{"Name", "Adresse", "BIC"};
  qsizetype stelle = 0;
  for (qsizetype i = 0; i < texte.size(); ++i) {
    const QString text = vergleichbar(texte[i]);
    qsizetype gleich = 0;
    while (gleich < text.size() && stelle + gleich < zeile.size() && text[gleich] == zeile[stelle + gleich])
      ++gleich;
    stelle += gleich;
    if (gleich == text.size()) continue;
    if (gleich == 0 || !kuerzbar.contains(koepfe.value(i)) || zeile.mid(stelle, 3) != "...") return false;
    stelle += 3;
    ++gekuerzt;
  }
  return stelle == zeile.size();
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

// The captions and the rows. None of the sample has a semicolon, and no last column a line break.
std::vector<QStringList> csvZeilen(const QString& datei) {
  QFile csv(datei);
  if (!csv.open(QFile::ReadOnly)) return {};
  const QString text = ausWindows1252(csv.readAll());
  const qsizetype trenner = text.left(text.indexOf("\r\n")).count(u';');
  std::vector<QStringList> zeilen;
  for (qsizetype stelle = 0; stelle < text.size();) {
    zeilen.emplace_back();
    for (qsizetype i = 0; i <= trenner; ++i) {
      const QString ende = i == trenner ? "\r\n" : ";";
      const qsizetype bis = text.indexOf(ende, stelle);
      if (bis < 0) return {};
      zeilen.back() << text.mid(stelle, bis - stelle);
      stelle = bis + ende.size();
    }
  }
  return zeilen;
}

// A list is on paper what it is in its CSV file; answers how many texts are cut there.
int listenVergleichen(const PDFInhalt& gedruckt, const QString& csvDatei) {
  const std::vector<QStringList> csv = csvZeilen(csvDatei);
  const QStringList zeilen = gedruckteZeilen(gedruckt, kUnterSpaltenkoepfen, kFuss);
  const QStringList koepfe = gedruckteZeilen(gedruckt, kUnterTiteln, kUnterSpaltenkoepfen);
  EXPECT_EQ(csv.size(), static_cast<std::size_t>(zeilen.size()) + 1);
  EXPECT_EQ(static_cast<std::size_t>(koepfe.size()), gedruckt.seiten.size());
  if (csv.size() != static_cast<std::size_t>(zeilen.size()) + 1) return 0;
  int gekuerzt = 0;
  for (const QString& kopf : koepfe)
    EXPECT_TRUE(enthaeltGenau(kopf, {}, csv[0], gekuerzt)) << kopf.toStdString();
  for (std::size_t i = 1; i < csv.size(); ++i) {
    const QString& zeile = zeilen[static_cast<qsizetype>(i) - 1];
    EXPECT_TRUE(enthaeltGenau(zeile, csv[0], csv[i], gekuerzt)) << zeile.toStdString() << "\n"
                                                                << csv[i].join(u';').toStdString();
  }
  return gekuerzt;
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
  constexpr int kGeduld = 120'000;  // milliseconds
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
  int seiten = 0, woerter = 0, gekuerzt = 0;
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
    const PDFInhalt inhalt = lesbar(pdfDateien.back());
    EXPECT_EQ(gedruckteZeilen(inhalt, kUnterSpaltenkoepfen, kFuss).size(), personen);
    if (!liste.alsCSV) continue;
    csvDateien << liste.name + QString(".csv");
    gekuerzt += listenVergleichen(inhalt, ordner.filePath("csv/" + csvDateien.back()));
  }
  // The control list has a last line of its own.
  EXPECT_EQ(gedruckteZeilen(lesbar(pdfDateien.front()), kUnterKopf, kFuss).size(),
            anzahlen.at("5").first + 1);

  EXPECT_EQ(dateien(ordner.filePath("druck")), sortiert(pdfDateien));
  EXPECT_EQ(dateien(ordner.filePath("csv")), sortiert(csvDateien));
  std::printf("%d printed pages with %d words, %d texts cut\n", seiten, woerter, gekuerzt);
}

}  // namespace
}  // namespace pelvanto::test

#endif
