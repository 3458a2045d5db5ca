#pragma once

#include "seams/anwendungen.h"

namespace pelvanto {

// The system's own programs and desktop.
class EchteAnwendungen : public Anwendungen {
 public:
  int oeffnen(const QString& datei, int fensterart) override;
  Dateifehler starten(const QString& programm, const QString& argument) override;
  QString schreibtisch() const override;
};

}  // namespace pelvanto
