#include "shell/eingabesperre.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

namespace pelvanto {
namespace {

// Shortcuts are made of key events before these reach a control, and are not marked as the user's own.
bool istEingabe(const QEvent& ereignis) {
  switch (ereignis.type()) {
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
    case QEvent::DragEnter:
    case QEvent::Drop:
    case QEvent::Close:
      return ereignis.spontaneous();
    default:
      return false;
  }
}

}  // namespace

Eingabesperre::Eingabesperre(QWidget& fenster) : fenster_(fenster) { qApp->installEventFilter(this); }

Eingabesperre::~Eingabesperre() { qApp->removeEventFilter(this); }

bool Eingabesperre::gehoertZumFenster(const QObject* empfaenger) const {
  if (const auto* widget = qobject_cast<const QWidget*>(empfaenger)) return widget->window() == &fenster_;
  return empfaenger == fenster_.windowHandle();
}

bool Eingabesperre::eventFilter(QObject* empfaenger, QEvent* ereignis) {
  if (!istEingabe(*ereignis) || !gehoertZumFenster(empfaenger)) return false;
  // A refused closing must not be taken for one that was done.
  if (ereignis->type() == QEvent::Close) ereignis->ignore();
  return true;
}

}  // namespace pelvanto
