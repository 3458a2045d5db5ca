#pragma once

#include "shell/seiten_fenster.h"

namespace pelvanto {

class Seite2Fenster : public SeitenFenster {
  Q_OBJECT
 public:
  // `seite` must outlive the page.
  Seite2Fenster(Seite2& seite, Ablauf& ablauf, QWidget* eltern);
};

}  // namespace pelvanto
