#pragma once

#include "seams/uhr.h"

namespace pelvanto {

class EchteUhr : public Uhr {
 public:
  QDateTime jetzt() const override;
  void warten(int millisekunden) override;
};

}  // namespace pelvanto
