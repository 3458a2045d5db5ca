#include "shell/farben.h"

#include <algorithm>
#include <cmath>

namespace pelvanto {

namespace {

double leuchtdichte(const QColor& farbe) {
  auto anteil = [](double wert) {
    return wert <= 0.03928 ? wert / 12.92 : std::pow((wert + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * anteil(farbe.redF()) + 0.7152 * anteil(farbe.greenF()) + 0.0722 * anteil(farbe.blueF());
}

}  // namespace

bool istDunkel(const QPalette& palette) { return leuchtdichte(palette.color(QPalette::Window)) < 0.2; }

Farbpaar zaehlerfarben(bool dunkel) {
  return dunkel ? Farbpaar{QColor(0x4b, 0x4e, 0x52), QColor(0xf4, 0xf4, 0xf4)}
                : Farbpaar{QColor(0xdc, 0xdd, 0xdf), QColor(0x16, 0x18, 0x1a)};
}

Farbpaar geloeschtfarben(bool dunkel) {
  return dunkel ? Farbpaar{QColor(0x7a, 0x33, 0x4a), QColor(0xff, 0xec, 0xf1)}
                : Farbpaar{QColor(0xff, 0xc8, 0xd4), QColor(0x4a, 0x0a, 0x1c)};
}

Farbpaar ibanfarben(IBANErgebnis ergebnis) {
  switch (ergebnis) {
    case IBANErgebnis::Richtig:
      return {QColor(192, 255, 192), Qt::black};
    case IBANErgebnis::Falsch:
      return {QColor(255, 192, 192), Qt::black};
    case IBANErgebnis::Leer:
    case IBANErgebnis::NichtGeprueft:
      break;
  }
  return {Qt::white, Qt::black};
}

QPalette mitLesbarerAuswahl(QPalette palette) {
  constexpr double kLesbar = 4.5;
  for (const auto gruppe : {QPalette::Active, QPalette::Inactive}) {
    const QColor schrift = palette.color(gruppe, QPalette::HighlightedText);
    const bool helleSchrift = leuchtdichte(schrift) > 0.2;
    QColor grund = palette.color(gruppe, QPalette::Highlight);
    for (int i = 0; i < 40 && kontrast(grund, schrift) < kLesbar; ++i)
      grund = helleSchrift ? grund.darker(105) : grund.lighter(105);
    palette.setColor(gruppe, QPalette::Highlight, grund);
    palette.setColor(gruppe, QPalette::HighlightedText, schrift);
  }
  return palette;
}

double kontrast(const QColor& eine, const QColor& andere) {
  const double a = leuchtdichte(eine) + 0.05;
  const double b = leuchtdichte(andere) + 0.05;
  return std::max(a, b) / std::min(a, b);
}

}  // namespace pelvanto
