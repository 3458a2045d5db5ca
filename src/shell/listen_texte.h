#pragma once

#include <QString>

namespace pelvanto {

inline QString listenTooltip() {
  return QStringLiteral(
      "Spaltenbeschriftungen anklicken zum Sortieren, Spaltenbreite kann verändert werden, Druck erfolgt im "
      "selben Verhältnis wie angezeigt.");
}

// Lists whose persons a double click opens.
inline QString listenTooltipMitDoppelklick() {
  return listenTooltip() + QStringLiteral(" Doppelklick öffnet Brannwik-Verbindo.");
}

}  // namespace pelvanto
