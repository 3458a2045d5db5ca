#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace pelvanto::test {

// A word on a page, its box in mm from the page's upper left corner. To pdftotext two texts on one line that
// are less than 0.3 mm apart are one word: a test that reads a PDF chooses texts that stand apart.
struct PDFWort {
  int seite = 1;
  QString text;
  double x = 0, y = 0, rechts = 0, unten = 0;
};

struct PDFSeite {
  double breite = 0, hoehe = 0;  // mm
};

struct PDFInhalt {
  std::vector<PDFSeite> seiten;
  std::vector<PDFWort> woerter;
};

// Empty for a file that cannot be read.
PDFInhalt pdfLesen(const QString& datei);

// A text that must stand on a page: y is its upper edge, x its left edge, right edge or middle.
enum class Anker { Links, Rechts, Mitte };
struct Solltext {
  int seite = 1;
  QString text;
  double x = 0, y = 0;
  Anker anker = Anker::Links;
};
// The texts of header and footer of a page, printed on 2026-03-16 at 08:09.
std::vector<Solltext> rahmentexte(int seite, const QString& titel, const QString& untertitel,
                                  const QString& werbezeile);

// How the words of a PDF compare with the texts that must be there: each word belongs to one text, and each
// text stands within 0.5 mm of its place.
struct Abgleich {
  int texte = 0;
  double groessteAbweichung = 0;  // mm, of the texts that were found
  QStringList maengel;            // texts that are missing, words that are too much
};
Abgleich abgleichen(const PDFInhalt& inhalt, const std::vector<Solltext>& soll);

// Words that lie on one another or reach over the edge of the page.
QStringList ueberlappungen(const PDFInhalt& inhalt);

}  // namespace pelvanto::test
