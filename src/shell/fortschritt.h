#pragma once

#include <QFrame>

class QLabel;
class QProgressBar;

namespace pelvanto {

// How far long work is, over the lower edge of the page. It paints itself at once, without letting any other
// event through.
class Fortschritt : public QFrame {
 public:
  explicit Fortschritt(QWidget* eltern);

  // `nummer` of `anzahl`; 0 of 0 takes the display away.
  void zeigen(int nummer, int anzahl);

 private:
  QLabel* text_;
  QProgressBar* balken_;
};

}  // namespace pelvanto
