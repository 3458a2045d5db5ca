#pragma once

#include "shell/seiten_fenster.h"

namespace pelvanto {

class Seite4Fenster : public SeitenFenster {
  Q_OBJECT
 public:
  // `seite` must outlive the page.
  Seite4Fenster(Seite4& seite, Ablauf& ablauf, QWidget* eltern);
};

}  // namespace pelvanto
