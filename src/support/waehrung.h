#pragma once

#include <QtGlobal>

#include <compare>
#include <optional>

namespace pelvanto {

// An amount of money: exact, fixed point, unit 1/10,000. The one money type of the program.
class Waehrung {
 public:
  constexpr Waehrung() = default;
  static constexpr Waehrung ausZehntausendsteln(qint64 wert) { return Waehrung(wert); }
  static constexpr Waehrung ausCent(qint64 cent) { return Waehrung(cent * 100); }

  constexpr qint64 zehntausendstel() const { return wert_; }
  constexpr auto operator<=>(const Waehrung&) const = default;

  // nullopt where the result does not fit into 64 bits.
  std::optional<Waehrung> plus(Waehrung anderer) const;
  std::optional<Waehrung> mal(qint64 faktor) const;
  // The nearest double of the amount in euros.
  double alsDouble() const;
  // Rounded to whole cents, ties to the even cent.
  qint64 centGerundetAufGeradeZahl() const;

 private:
  explicit constexpr Waehrung(qint64 wert) : wert_(wert) {}
  qint64 wert_ = 0;
};

// `wert` rounded to a whole number, ties to the even neighbour; nullopt for NaN and beyond 64 bits.
std::optional<qint64> rundenAufGeradeZahl(double wert);

}  // namespace pelvanto
