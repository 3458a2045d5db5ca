#include "shell/rahmen.h"

#include <QPainter>
#include <QStyle>

#include "shell/farben.h"

namespace pelvanto {

void Rahmen::paintEvent(QPaintEvent*) {
  constexpr int kEinzug = 8;
  constexpr int kAbstand = 4;
  QPainter maler(this);
  const QFontMetrics schrift = fontMetrics();
  const QRect titel(kEinzug + kAbstand, 0, schrift.size(Qt::TextShowMnemonic, title()).width(),
                    schrift.height());

  const QColor grund = palette().color(QPalette::Window);
  const QRectF linie = QRectF(rect()).adjusted(0.5, titel.center().y() + 0.5, -0.5, -0.5);
  maler.setRenderHint(QPainter::Antialiasing);
  maler.setPen(istDunkel(palette()) ? grund.lighter(180) : grund.darker(130));
  maler.setBrush(Qt::NoBrush);
  maler.setClipRegion(QRegion(rect()) - QRegion(titel.adjusted(-kAbstand, 0, kAbstand, 0)));
  maler.drawRoundedRect(linie, 3, 3);
  maler.setClipping(false);
  style()->drawItemText(&maler, titel, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, palette(),
                        isEnabled(), title(), QPalette::WindowText);
}

}  // namespace pelvanto
