#pragma once

#include <QPushButton>

namespace pelvanto {

// A button that shows a picture only; its tooltip says what it does. Answers to Return as well as to the
// blank, and to the right mouse button (or the menu key) by `rechtsGeklickt`, where somebody listens to it.
class Bildknopf : public QPushButton {
  Q_OBJECT
 public:
  // `bild` names a drawing of assets/icons; `kante` is the picture's edge in logical pixels (28 or 20).
  Bildknopf(const QString& bild, int kante, QWidget* eltern);

 signals:
  void rechtsGeklickt();

 protected:
  void changeEvent(QEvent* ereignis) override;
  void keyPressEvent(QKeyEvent* ereignis) override;
  void contextMenuEvent(QContextMenuEvent* ereignis) override;

 private:
  void bildSetzen();

  QString bild_;
};

}  // namespace pelvanto
