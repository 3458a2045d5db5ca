#pragma once

#include <QColor>
#include <QPalette>

#include "payment/iban.h"

namespace pelvanto {

// A background and the text that is read on it; always set together.
struct Farbpaar {
  QColor grund;
  QColor schrift;
};

// Whether windows of this palette are dark.
bool istDunkel(const QPalette& palette);
// Counters of rows: grey.
Farbpaar zaehlerfarben(bool dunkel);
// Counters of rows that were deleted by hand: pink.
Farbpaar geloeschtfarben(bool dunkel);
// The entry field of the IBAN, by its check digits; the same on light and dark desktops.
Farbpaar ibanfarben(IBANErgebnis ergebnis);
// The same palette with a ground of selected texts on which they read well (contrast of at least 4.5).
QPalette mitLesbarerAuswahl(QPalette palette);
// Contrast of two opaque colours, 1 to 21 (WCAG 2).
double kontrast(const QColor& eine, const QColor& andere);

}  // namespace pelvanto
