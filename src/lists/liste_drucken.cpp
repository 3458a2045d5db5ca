#include "lists/liste_drucken.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "support/blanks.h"
#include "support/kuerzen.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

constexpr int kLaengsteBeschriftung = 50;
constexpr int kZeilengroesse = 9, kKopfgroesse = 8;  // points
constexpr int kErsteZeile = 9;                       // mm below the header
constexpr int kLetzteZeile = 5;                      // mm over the footer
constexpr int kFuenferabstand = 3;                   // mm
constexpr double kTextabstand = 1;                   // mm

// To the nearest whole millimetre, a half to the even one, as this program rounds everywhere when a number
// becomes an integer.
int gerundet(double mm) { return static_cast<int>(std::nearbyint(mm)); }

// Where the texts of each column are placed.
void stellenSetzen(std::vector<DruckSpalte>& spalten, int linkerRand, int rechterRand) {
  const double P = rechterRand - linkerRand;
  double T = 0;
  for (const DruckSpalte& spalte : spalten) T += spalte.Breite;
  if (T == 0) T = 1;  // nothing will be printed
  double davor = 0;
  for (DruckSpalte& spalte : spalten) {
    double mm = linkerRand + davor * P / T;
    if (spalte.ausrichtung == Ausrichtung::Rechts) mm = linkerRand + (davor + spalte.Breite) * P / T;
    if (spalte.ausrichtung == Ausrichtung::Mitte) {
      const double halbe = (spalte.Breite / 2.0) * (P / T);
      if (&spalte == &spalten.back()) mm = rechterRand - halbe;
      if (&spalte == &spalten.front()) mm = linkerRand + halbe;
    }
    spalte.X = gerundet(mm);
    davor += spalte.Breite;
  }
}

void druckbreitenSetzen(std::vector<DruckSpalte>& spalten, int linkerRand, int rechterRand) {
  for (std::size_t j = 0; j < spalten.size(); ++j) {
    const bool erste = j == 0, letzte = j + 1 == spalten.size();
    DruckSpalte& spalte = spalten[j];
    switch (spalte.ausrichtung) {
      case Ausrichtung::Links:
        spalte.Druckbreite = (letzte ? rechterRand : spalten[j + 1].X) - spalte.X;
        break;
      case Ausrichtung::Rechts:
        spalte.Druckbreite = spalte.X - (erste ? linkerRand : spalten[j - 1].X);
        break;
      case Ausrichtung::Mitte:
        spalte.Druckbreite = erste || letzte ? 0 : spalten[j + 1].X - spalte.X;
        break;
    }
  }
}

Druckausrichtung druckausrichtung(Ausrichtung ausrichtung) {
  if (ausrichtung == Ausrichtung::Mitte) return Druckausrichtung::Mitte;
  return ausrichtung == Ausrichtung::Rechts ? Druckausrichtung::Rechts : Druckausrichtung::Links;
}

// The hidden first column has no text of its own.
QString zellentext(const Zeile& zeile, std::size_t spalte) {
  return zeile.texte.value(static_cast<qsizetype>(spalte) - 1);
}

// Where the text of the right-aligned column beside column `j` begins; nullopt: there is none, or no text.
// The room for a left-aligned text reaches to that column's right edge.
std::optional<double> nachbartext(FunktionenDrucker& druck, const std::vector<DruckSpalte>& spalten,
                                  const Zeile& zeile, std::size_t j) {
  std::size_t k = j + 1;
  while (k < spalten.size() && spalten[k].Breite <= 0) ++k;
  if (spalten[j].ausrichtung != Ausrichtung::Links || k == spalten.size() ||
      spalten[k].ausrichtung != Ausrichtung::Rechts) {
    return {};
  }
  const QString text = zellentext(zeile, k);
  if (ohneAeussereBlanks(text).isEmpty()) return {};
  return spalten[k].X - druck.Textbreite(text, kZeilengroesse);
}

// The height of the last printed text; 0 without one.
double zeileDrucken(FunktionenDrucker& druck, const std::vector<DruckSpalte>& spalten, const Zeile& zeile,
                    double y) {
  double hoehe = 0;
  for (std::size_t j = 0; j < spalten.size(); ++j) {
    const DruckSpalte& spalte = spalten[j];
    if (spalte.Breite <= 0) continue;
    const QString text = zellentext(zeile, j);
    const double platz = nachbartext(druck, spalten, zeile, j).value_or(0) - kTextabstand - spalte.X;
    hoehe = platz > 0 ? druck.TextDruckenVor(spalte.X, y, text, kZeilengroesse, spalte.Druckbreite, platz)
                      : druck.TextDrucken(spalte.X, y, text, druckausrichtung(spalte.ausrichtung),
                                          kZeilengroesse, false, spalte.Druckbreite);
  }
  return hoehe;
}

}  // namespace

std::vector<DruckSpalte> druckSpalten(const std::vector<Spalte>& spalten, int linkerRand, int rechterRand) {
  std::vector<DruckSpalte> auf;
  auf.reserve(spalten.size());
  for (const Spalte& spalte : spalten) {
    auf.push_back({gekuerzt(spalte.beschriftung, kLaengsteBeschriftung), spalte.breite, spalte.ausrichtung});
  }
  stellenSetzen(auf, linkerRand, rechterRand);
  druckbreitenSetzen(auf, linkerRand, rechterRand);
  return auf;
}

bool Listendruck::SpaltenkoepfeDrucken(const std::vector<DruckSpalte>& spalten, int punkte) {
  for (const DruckSpalte& spalte : spalten) {
    if (spalte.Breite <= 0) continue;
    const bool links = spalte.ausrichtung == Ausrichtung::Links;
    const bool mitte = spalte.ausrichtung == Ausrichtung::Mitte;
    druck_.TextDrucken(
        spalte.X, druck_.KopfUnterkante + 1, links ? spalte.Text : ohneAeussereBlanks(spalte.Text),
        druckausrichtung(spalte.ausrichtung), punkte == 0 ? 9 : punkte, true, mitte ? spalte.Druckbreite : 0);
  }
  return true;
}

bool Listendruck::ListeDrucken(const Liste& liste, const QString& titel, const QString& untertitel,
                               bool ohneFuenferabstand) {
  if (liste.anzahl() == 0) {
    meldungen_.zeigen({u"Die Liste ist leer. Druck wird nicht durchgeführt!"_s, Symbol::Information,
                       Knoepfe::Ok, u"Liste ist leer"_s});
    return false;
  }
  if (liste.spalten().empty()) {
    meldungen_.zeigen(
        {u"Die Liste hat keine Spalten!"_s, Symbol::Information, Knoepfe::Ok, u"Liste unvollständig"_s});
    return false;
  }
  try {
    if (alleSeiten(liste, {titel, untertitel}, ohneFuenferabstand)) {
      druck_.dokumentBeenden();
      return true;
    }
    if (const auto fehler = druck_.verwerfen()) fehlerMelden(titel, *fehler);
  } catch (const Druckfehler& fehler) {
    druck_.verwerfen();
    fehlerMelden(titel, fehler);
  }
  return false;
}

bool Listendruck::alleSeiten(const Liste& liste, const Kopf& kopf, bool ohneFuenferabstand) {
  int seite = 1;
  if (!druck_.DruckSeiteBeginnen(seite, kopf.titel, kopf.untertitel, Fussart::Klein)) return false;
  const std::vector<DruckSpalte> spalten =
      druckSpalten(liste.spalten(), druck_.LinkerRand, druck_.RechterRand);
  if (!SpaltenkoepfeDrucken(spalten, kKopfgroesse)) return false;
  double y = druck_.KopfUnterkante + kErsteZeile;
  int gedruckt = 0;
  for (const Zeile& zeile : liste.zeilen()) {
    if (y > druck_.FussOberkante - kLetzteZeile) {
      druck_.neueSeite();
      if (!druck_.DruckSeiteBeginnen(++seite, kopf.titel, kopf.untertitel, Fussart::Klein) ||
          !SpaltenkoepfeDrucken(spalten, kKopfgroesse)) {
        return false;
      }
      y = druck_.KopfUnterkante + kErsteZeile;
    }
    const double hoehe = zeileDrucken(druck_, spalten, zeile, y);
    y += hoehe >= 3 && hoehe < 10 ? hoehe + 0.5 : 4;
    if (!ohneFuenferabstand && ++gedruckt % 5 == 0) y += kFuenferabstand;
  }
  return true;
}

void Listendruck::fehlerMelden(const QString& titel, const Druckfehler& fehler) {
  protokoll_.fehler(
      fehlerbericht({fehler.nummer, fehler.beschreibung}, u"ListeDrucken"_s, u"FunktionenDrucker"_s));
  protokoll_.fehler(u"Liste: "_s + titel, 4);
  meldungen_.zeigen({u"Die Liste "_s + titel + u" konnte nicht gedruckt werden: "_s + fehler.beschreibung +
                         u" (Fehler %1).\n\nEs wurde nichts oder nicht alles gedruckt. Bitte prüfen Sie den "
                         "Drucker und drucken Sie die Liste noch einmal!"_s.arg(fehler.nummer),
                     Symbol::Kritisch, Knoepfe::Ok, u"Fehler"_s});
}

}  // namespace pelvanto
