#pragma once

#include <QDialog>

#include "seams/meldungen.h"

class QLineEdit;

namespace pelvanto {

// Asks for one line of text. Escape and closing cancel.
class Eingabekasten : public QDialog {
 public:
  Eingabekasten(const Eingabe& eingabe, QWidget* eltern);

  QString text() const;
  // The text is not selected: the first key shall not wipe out an address.
  void setVisible(bool sichtbar) override;

 private:
  QLineEdit* feld_;
};

}  // namespace pelvanto
