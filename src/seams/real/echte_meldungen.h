#pragma once

#include "seams/meldungen.h"

namespace pelvanto {

// Modal boxes over the active window, with German captions whatever translations are installed. The answer
// that changes nothing (No) is the default and what Escape gives.
class EchteMeldungen : public Meldungen {
 public:
  Antwort zeigen(const Meldung& meldung) override;
  std::optional<QString> eingeben(const Eingabe& eingabe) override;
};

}  // namespace pelvanto
