#pragma once

#include <functional>

#include "steps/schritte.h"

namespace pelvanto {

// What a page asks of the window around it.
class Ablauf {
 public:
  virtual ~Ablauf() = default;
  // Takes what stands in the controls into the page models, runs the action, and shows the models again. An
  // action that comes while another one runs is dropped. No exception leaves this.
  virtual void ausfuehren(const std::function<void(Umgebung&, Seiten&)>& handlung) = 0;
  // The same, and nothing the user does meanwhile reaches the window, then or later.
  virtual void ungestoertAusfuehren(const std::function<void(Umgebung&, Seiten&)>& handlung) = 0;
  // Shows the next page.
  virtual void weiter() = 0;
};

}  // namespace pelvanto
