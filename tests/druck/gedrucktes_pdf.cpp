#include "druck/gedrucktes_pdf.h"

#include <QProcess>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace pelvanto::test {
namespace {

constexpr double kSpielraum = 0.5;  // mm

QString beschreibung(int seite, const QString& text, double x, double y) {
  return u"Seite %1, x %2, y %3: %4"_s.arg(seite).arg(x, 0, 'f', 2).arg(y, 0, 'f', 2).arg(text);
}

// The words of a text that begins with the word `erstes`: each the next one to the right on the line.
std::optional<std::vector<std::size_t>> wortfolge(const std::vector<PDFWort>& woerter,
                                                  const std::vector<bool>& vergeben, std::size_t erstes,
                                                  const QStringList& gesucht) {
  std::vector<std::size_t> folge{erstes};
  while (folge.size() < static_cast<std::size_t>(gesucht.size())) {
    const PDFWort& voriges = woerter[folge.back()];
    std::optional<std::size_t> naechstes;
    for (std::size_t i = 0; i < woerter.size(); ++i) {
      const PDFWort& wort = woerter[i];
      if (vergeben[i] || wort.seite != voriges.seite || std::abs(wort.y - voriges.y) > kSpielraum) continue;
      if (wort.x > voriges.x && (!naechstes || wort.x < woerter[*naechstes].x)) naechstes = i;
    }
    if (!naechstes || woerter[*naechstes].text != gesucht[static_cast<qsizetype>(folge.size())]) return {};
    folge.push_back(*naechstes);
  }
  return folge;
}

double ankerstelle(const PDFWort& erstes, const PDFWort& letztes, Anker anker) {
  if (anker == Anker::Links) return erstes.x;
  return anker == Anker::Rechts ? letztes.rechts : (erstes.x + letztes.rechts) / 2;
}

}  // namespace

PDFInhalt pdfLesen(const QString& datei) {
  QProcess programm;
  programm.start(u"pdftotext"_s, {u"-bbox"_s, datei, u"-"_s});
  programm.waitForFinished();
  PDFInhalt inhalt;
  QXmlStreamReader leser(programm.readAllStandardOutput());
  while (!leser.atEnd()) {
    if (leser.readNext() != QXmlStreamReader::StartElement) continue;
    const auto mm = [&leser](QLatin1StringView name) {
      return leser.attributes().value(name).toDouble() * 25.4 / 72;
    };
    if (leser.name() == u"page") inhalt.seiten.push_back({mm("width"_L1), mm("height"_L1)});
    if (leser.name() != u"word") continue;
    PDFWort wort{static_cast<int>(inhalt.seiten.size()),
                 {},
                 mm("xMin"_L1),
                 mm("yMin"_L1),
                 mm("xMax"_L1),
                 mm("yMax"_L1)};
    wort.text = leser.readElementText();
    inhalt.woerter.push_back(std::move(wort));
  }
  if (leser.hasError()) return {};
  return inhalt;
}

std::vector<Solltext> rahmentexte(int seite, const QString& titel, const QString& untertitel,
                                  const QString& werbezeile) {
  const double rechterBlock = 277 - 22.76;  // the measured width of the project line
  return {{seite, u"Tolvana"_s, rechterBlock, 11},
          {seite, u"Projekt: Milvarte"_s, rechterBlock, 15},
          {seite, titel, 20, 10},
          {seite, untertitel, 20, 16},
          {seite, u"16.03.2026 08:09"_s, 20, 191},
          {seite, u"Seite %1"_s.arg(seite), 148.5, 191, Anker::Mitte},
          {seite, werbezeile, 277, 191, Anker::Rechts}};
}

Abgleich abgleichen(const PDFInhalt& inhalt, const std::vector<Solltext>& soll) {
  const std::vector<PDFWort>& woerter = inhalt.woerter;
  std::vector<bool> vergeben(woerter.size());
  Abgleich ergebnis;
  for (const Solltext& text : soll) {
    const QStringList gesucht = text.text.split(u' ', Qt::SkipEmptyParts);
    bool gefunden = false;
    for (std::size_t i = 0; i < woerter.size() && !gefunden; ++i) {
      const double dy = std::abs(woerter[i].y - text.y);
      if (vergeben[i] || woerter[i].seite != text.seite || dy > kSpielraum) continue;
      if (woerter[i].text != gesucht.value(0)) continue;
      const auto folge = wortfolge(woerter, vergeben, i, gesucht);
      if (!folge) continue;
      const double dx = std::abs(ankerstelle(woerter[i], woerter[folge->back()], text.anker) - text.x);
      if (dx > kSpielraum) continue;
      gefunden = true;
      for (const std::size_t wort : *folge) vergeben[wort] = true;
      ergebnis.groessteAbweichung = std::max({ergebnis.groessteAbweichung, dx, dy});
      ++ergebnis.texte;
    }
    if (!gefunden) ergebnis.maengel << u"fehlt: "_s + beschreibung(text.seite, text.text, text.x, text.y);
  }
  for (std::size_t i = 0; i < woerter.size(); ++i) {
    const PDFWort& wort = woerter[i];
    if (!vergeben[i])
      ergebnis.maengel << u"zu viel: "_s + beschreibung(wort.seite, wort.text, wort.x, wort.y);
  }
  return ergebnis;
}

QStringList ueberlappungen(const PDFInhalt& inhalt) {
  constexpr double kBeruehrung = 0.2;  // mm
  QStringList gefunden;
  for (auto a = inhalt.woerter.begin(); a != inhalt.woerter.end(); ++a) {
    const PDFSeite& seite = inhalt.seiten.at(static_cast<std::size_t>(a->seite - 1));
    if (a->x < 0 || a->y < 0 || a->rechts > seite.breite || a->unten > seite.hoehe) {
      gefunden << u"über den Rand: "_s + beschreibung(a->seite, a->text, a->x, a->y);
    }
    for (auto b = std::next(a); b != inhalt.woerter.end(); ++b) {
      const double breite = std::min(a->rechts, b->rechts) - std::max(a->x, b->x);
      const double hoehe = std::min(a->unten, b->unten) - std::max(a->y, b->y);
      if (a->seite == b->seite && breite > kBeruehrung && hoehe > kBeruehrung) {
        gefunden << beschreibung(a->seite, a->text, a->x, a->y) + u" liegt auf "_s + b->text;
      }
    }
  }
  return gefunden;
}

}  // namespace pelvanto::test
