#include "shell/textfelder.h"

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>

#include <algorithm>

#include "payment/daten_typen.h"

namespace pelvanto {

namespace {

bool zeichenErlaubt(QChar zeichen) { return TastenFiltern(zeichen.unicode(), true, {}, true, {}) != 0; }

// The focus goes to another window or to a menu: the field is not left.
bool bleibtImFeld(Qt::FocusReason grund) {
  return grund == Qt::ActiveWindowFocusReason || grund == Qt::PopupFocusReason ||
         grund == Qt::MenuBarFocusReason;
}

}  // namespace

bool Eingabefeld::nurMitAlt(const QKeyEvent& ereignis) {
  return (ereignis.modifiers() & (Qt::AltModifier | Qt::ControlModifier)) == Qt::AltModifier;
}

void Eingabefeld::keyPressEvent(QKeyEvent* ereignis) {
  const QString zeichen = ereignis->text();
  if (nurMitAlt(*ereignis) && !zeichen.isEmpty() && zeichen.front().isPrint()) {
    ereignis->ignore();
    return;
  }
  QLineEdit::keyPressEvent(ereignis);
}

void Gruppenfeld::keyPressEvent(QKeyEvent* ereignis) {
  const QString zeichen = ereignis->text();
  // Delete is a key without a character, although it comes with one; Alt belongs to the shortcuts.
  const bool ohneZeichen = zeichen.isEmpty() || ereignis->key() == Qt::Key_Delete || nurMitAlt(*ereignis);
  if (!ohneZeichen && !std::all_of(zeichen.begin(), zeichen.end(), zeichenErlaubt)) {
    ereignis->accept();
    return;
  }
  Eingabefeld::keyPressEvent(ereignis);
}

void Gruppenfeld::inputMethodEvent(QInputMethodEvent* ereignis) {
  QString erlaubt = ereignis->commitString();
  erlaubt.removeIf([](QChar zeichen) { return !zeichenErlaubt(zeichen); });
  ereignis->setCommitString(erlaubt, ereignis->replacementStart(), ereignis->replacementLength());
  QLineEdit::inputMethodEvent(ereignis);
}

void Betragsfeld::focusInEvent(QFocusEvent* ereignis) {
  QLineEdit::focusInEvent(ereignis);
  if (bleibtImFeld(ereignis->reason())) return;
  durchMaus_ = ereignis->reason() == Qt::MouseFocusReason;
  selectAll();
}

void Betragsfeld::focusOutEvent(QFocusEvent* ereignis) {
  QLineEdit::focusOutEvent(ereignis);
  if (!bleibtImFeld(ereignis->reason())) emit verlassen();
}

void Betragsfeld::mousePressEvent(QMouseEvent* ereignis) {
  QLineEdit::mousePressEvent(ereignis);
  // The press that brought the focus would take the selection away again.
  if (durchMaus_) selectAll();
  durchMaus_ = false;
}

}  // namespace pelvanto
