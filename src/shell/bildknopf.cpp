#include "shell/bildknopf.h"

#include <QContextMenuEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QMetaMethod>

#include "shell/farben.h"

namespace pelvanto {

Bildknopf::Bildknopf(const QString& bild, int kante, QWidget* eltern)
    : QPushButton(eltern), bild_(QStringLiteral("%1-%2").arg(bild).arg(kante)) {
  setIconSize({kante, kante});
  setFocusPolicy(Qt::StrongFocus);
  bildSetzen();
}

void Bildknopf::bildSetzen() {
  const QString stamm = QStringLiteral(":/icons/%1-%2").arg(bild_, istDunkel(palette()) ? "dunkel" : "hell");
  QIcon bilder;
  // On screens of double size Qt finds the pictures of that size beside them by their names (@2x).
  bilder.addFile(stamm + ".png", {}, QIcon::Normal);
  bilder.addFile(stamm + "-aus.png", {}, QIcon::Disabled);
  setIcon(bilder);
}

void Bildknopf::changeEvent(QEvent* ereignis) {
  QPushButton::changeEvent(ereignis);
  if (ereignis->type() == QEvent::PaletteChange) bildSetzen();
}

void Bildknopf::keyPressEvent(QKeyEvent* ereignis) {
  if (ereignis->key() == Qt::Key_Return || ereignis->key() == Qt::Key_Enter) {
    if (!ereignis->isAutoRepeat()) click();
    return;
  }
  QPushButton::keyPressEvent(ereignis);
}

void Bildknopf::contextMenuEvent(QContextMenuEvent* ereignis) {
  // Where the right mouse button means nothing, the window shows its own menu.
  ereignis->setAccepted(isSignalConnected(QMetaMethod::fromSignal(&Bildknopf::rechtsGeklickt)));
  emit rechtsGeklickt();
}

}  // namespace pelvanto
