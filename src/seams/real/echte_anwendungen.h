#pragma once

#include "seams/anwendungen.h"

namespace pelvanto {

// The system's own programs and desktop. What is started outlives this program.
class EchteAnwendungen : public Anwendungen {
 public:
  // How long an opener that does not end is waited for, where the system has one; then it counts as started.
  explicit EchteAnwendungen(int geduldMillisekunden = 3000) : geduld_(geduldMillisekunden) {}

  int oeffnen(const QString& datei, int fensterart) override;
  Dateifehler starten(const QString& programm, const QString& argument) override;
  QString schreibtisch() const override;

 private:
  [[maybe_unused]] int geduld_;
};

}  // namespace pelvanto
