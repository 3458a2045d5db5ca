#pragma once

#include "seams/oberflaeche.h"
#include "steps/seiten.h"

namespace pelvanto {

// While it lives its button is off and the pointer an hourglass.
class Beschaeftigt {
 public:
  Beschaeftigt(Oberflaeche& oberflaeche, Knopf& knopf) : oberflaeche_(oberflaeche), knopf_(knopf) {
    knopf_.ein = false;
    oberflaeche_.sanduhr(true);
  }
  ~Beschaeftigt() {
    oberflaeche_.sanduhr(false);
    knopf_.ein = true;
  }
  Beschaeftigt(const Beschaeftigt&) = delete;
  Beschaeftigt& operator=(const Beschaeftigt&) = delete;

 private:
  Oberflaeche& oberflaeche_;
  Knopf& knopf_;
};

}  // namespace pelvanto
