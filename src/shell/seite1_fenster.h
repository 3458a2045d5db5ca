#pragma once

#include "shell/seiten_fenster.h"

namespace pelvanto {

class Seite1Fenster : public SeitenFenster {
  Q_OBJECT
 public:
  // `seite` must outlive the page.
  Seite1Fenster(Seite1& seite, Ablauf& ablauf, QWidget* eltern);
};

}  // namespace pelvanto
