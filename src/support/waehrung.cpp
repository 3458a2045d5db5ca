#include "support/waehrung.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string>

namespace pelvanto {

std::optional<Waehrung> Waehrung::plus(Waehrung anderer) const {
  qint64 summe = 0;
  if (__builtin_add_overflow(wert_, anderer.wert_, &summe)) {
    return std::nullopt;
  }
  return Waehrung(summe);
}

std::optional<Waehrung> Waehrung::mal(qint64 faktor) const {
  qint64 produkt = 0;
  if (__builtin_mul_overflow(wert_, faktor, &produkt)) {
    return std::nullopt;
  }
  return Waehrung(produkt);
}

double Waehrung::alsDouble() const {
  constexpr qint64 exaktBis = qint64(1) << 53;
  if (wert_ >= -exaktBis && wert_ <= exaktBis) {
    return static_cast<double>(wert_) / 10000.0;
  }
  // Beyond 53 bits the conversion to double and the division would round twice; reading rounds once.
  const std::string text = std::to_string(wert_) + "e-4";
  double wert = 0;
  std::from_chars(text.data(), text.data() + text.size(), wert);
  return wert;
}

qint64 Waehrung::centGerundetAufGeradeZahl() const {
  const qint64 ganze = wert_ / 100;
  const qint64 rest = std::llabs(wert_ % 100);
  const bool aufwaerts = rest > 50 || (rest == 50 && ganze % 2 != 0);
  return aufwaerts ? ganze + (wert_ < 0 ? -1 : 1) : ganze;
}

std::optional<qint64> rundenAufGeradeZahl(double wert) {
  // The first double that does not fit; its negative does.
  constexpr double grenze = 9223372036854775808.0;
  if (!(wert >= -grenze && wert < grenze)) {
    return std::nullopt;
  }
  const double ganze = std::floor(wert);
  const double rest = wert - ganze;  // exact: doubles with a fraction are below 2^52
  const auto ergebnis = static_cast<qint64>(ganze);
  const bool aufwaerts = rest > 0.5 || (rest == 0.5 && ergebnis % 2 != 0);
  return aufwaerts ? ergebnis + 1 : ergebnis;
}

}  // namespace pelvanto
