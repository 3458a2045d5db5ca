#pragma once

#include <QLineEdit>

namespace pelvanto {

// The name of the delivery group: typed characters pass the key filter, Enter does nothing. What is pasted
// comes in as it is.
class Gruppenfeld : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  void keyPressEvent(QKeyEvent* ereignis) override;
  void inputMethodEvent(QInputMethodEvent* ereignis) override;
};

// An amount: wholly selected when the focus comes, and announced when it has left for another control.
class Betragsfeld : public QLineEdit {
  Q_OBJECT
 public:
  using QLineEdit::QLineEdit;

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
