#pragma once

#include "seams/oberflaeche.h"

namespace pelvanto {

// The running QApplication.
class EchteOberflaeche : public Oberflaeche {
 public:
  void nachrichtenVerarbeiten() override;
  void sanduhr(bool an) override;

 private:
  bool an_ = false;
};

}  // namespace pelvanto
