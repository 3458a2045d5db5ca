#pragma once

#include <functional>
#include <utility>

#include "seams/oberflaeche.h"

namespace pelvanto {

// The running QApplication.
class EchteOberflaeche : public Oberflaeche {
 public:
  void nachrichtenVerarbeiten() override;
  void sanduhr(bool an) override;
  void fortschritt(int nummer, int anzahl) override;

  // Where `fortschritt` is shown; it must repaint at once and let no other events through.
  void fortschrittZeigenMit(std::function<void(int, int)> anzeige) { anzeige_ = std::move(anzeige); }

 private:
  std::function<void(int, int)> anzeige_;
  bool an_ = false;
  bool fortschritt_ = false;  // progress is shown
};

}  // namespace pelvanto
