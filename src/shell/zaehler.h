#pragma once

#include <QLabel>

#include "shell/farben.h"

namespace pelvanto {

// A number or an amount on a coloured ground that follows light and dark palettes.
class Zaehler : public QLabel {
 public:
  enum class Grund { Grau, Rosa };
  Zaehler(Grund grund, QWidget* eltern);

 protected:
  void changeEvent(QEvent* ereignis) override;

 private:
  void faerben();

  Grund grund_;
};

}  // namespace pelvanto
