#pragma once

#include "shell/seiten_fenster.h"

namespace pelvanto {

class Seite5Fenster : public SeitenFenster {
  Q_OBJECT
 public:
  // `seite` must outlive the page.
  Seite5Fenster(Seite5& seite, Ablauf& ablauf, QWidget* eltern);

 private:
  void eigeneDaten(Seite5& seite);
  void eigenesKonto(Seite5& seite);
  void summen(Seite5& seite);
};

}  // namespace pelvanto
