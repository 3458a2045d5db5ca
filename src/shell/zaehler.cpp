#include "shell/zaehler.h"

#include <QEvent>

namespace pelvanto {

Zaehler::Zaehler(Grund grund, QWidget* eltern) : QLabel(eltern), grund_(grund) {
  setAutoFillBackground(true);
  setAlignment(Qt::AlignCenter);
  faerben();
}

void Zaehler::changeEvent(QEvent* ereignis) {
  QLabel::changeEvent(ereignis);
  if (ereignis->type() == QEvent::PaletteChange || ereignis->type() == QEvent::ParentChange) faerben();
}

void Zaehler::faerben() {
  const bool dunkel = istDunkel(parentWidget() ? parentWidget()->palette() : QPalette());
  const Farbpaar farben = grund_ == Grund::Grau ? zaehlerfarben(dunkel) : geloeschtfarben(dunkel);
  QPalette eigene = palette();
  if (eigene.color(QPalette::Window) == farben.grund && eigene.color(QPalette::WindowText) == farben.schrift)
    return;
  eigene.setColor(QPalette::Window, farben.grund);
  eigene.setColor(QPalette::WindowText, farben.schrift);
  setPalette(eigene);
}

}  // namespace pelvanto
