#pragma once

#include <QGroupBox>

namespace pelvanto {

// A frame with its caption set into the upper line, so that its inside begins close below the caption.
class Rahmen : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  void paintEvent(QPaintEvent* ereignis) override;
};

}  // namespace pelvanto
