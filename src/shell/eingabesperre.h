#pragma once

#include <QObject>

class QWidget;

namespace pelvanto {

// While it lives, nothing the user does reaches this window: no key, no click, no closing. Message boxes of
// their own stay usable, and the window is painted.
class Eingabesperre : public QObject {
 public:
  explicit Eingabesperre(QWidget& fenster);
  ~Eingabesperre() override;

 protected:
  bool eventFilter(QObject* empfaenger, QEvent* ereignis) override;

 private:
  bool gehoertZumFenster(const QObject* empfaenger) const;

  QWidget& fenster_;
};

}  // namespace pelvanto
