#pragma once

#include <QRect>

#include <cmath>

// Lengths of the window are kept in twips; one logical pixel is 15 twips, whatever the screen's scaling.
namespace pelvanto {

inline constexpr int kTwipsJePixel = 15;

inline int pixel(int twips) {
  return static_cast<int>(std::lround(static_cast<double>(twips) / kTwipsJePixel));
}
inline constexpr int twips(int pixel) { return pixel * kTwipsJePixel; }

// A place within a page, twips from the page's top left corner.
struct Platz {
  int links = 0, oben = 0, breite = 0, hoehe = 0;
  QRect pixelrechteck() const {
    return {QPoint(pixel(links), pixel(oben)), QPoint(pixel(links + breite) - 1, pixel(oben + hoehe) - 1)};
  }
};

}  // namespace pelvanto
