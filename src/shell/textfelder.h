#pragma once

#include <QLineEdit>

namespace pelvanto {

// A line of text. A letter with Alt is a shortcut, also while what it calls is switched off: it is never
// typed.
class Eingabefeld : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  void keyPressEvent(QKeyEvent* ereignis) override;
  // AltGr counts as Ctrl+Alt on some systems, and types characters.
  static bool nurMitAlt(const QKeyEvent& ereignis);
};

// The name of the delivery group: typed characters pass the key filter, Enter does nothing. What is pasted
// comes in as it is.
class Gruppenfeld : public Eingabefeld {
 public:
  using Eingabefeld::Eingabefeld;

 protected:
  void keyPressEvent(QKeyEvent* ereignis) override;
  void inputMethodEvent(QInputMethodEvent* ereignis) override;
};

// An amount: wholly selected when the focus comes, and announced when it has left for another control.
class Betragsfeld : public Eingabefeld {
  Q_OBJECT
 public:
  using Eingabefeld::Eingabefeld;

 signals:
  void verlassen();

 protected:
  void focusInEvent(QFocusEvent* ereignis) override;
  void focusOutEvent(QFocusEvent* ereignis) override;
  void mousePressEvent(QMouseEvent* ereignis) override;

 private:
  bool durchMaus_ = false;
};

}  // namespace pelvanto
