#include "shell/fortschritt.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>

namespace pelvanto {

Fortschritt::Fortschritt(QWidget* eltern)
    : QFrame(eltern), text_(new QLabel(this)), balken_(new QProgressBar(this)) {
  constexpr int kBalkenbreite = 140;
  constexpr int kBalkenhoehe = 12;
  setObjectName("Fortschritt");
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setAutoFillBackground(true);
  setAccessibleName("Fortschritt beim Kopieren der Serienbrief-Adressen");
  text_->setObjectName("lblFortschritt");
  balken_->setTextVisible(false);
  balken_->setFixedSize(kBalkenbreite, kBalkenhoehe);
  auto* reihe = new QHBoxLayout(this);
  reihe->setContentsMargins(10, 5, 10, 5);
  reihe->addWidget(text_);
  reihe->addWidget(balken_);
  hide();
}

void Fortschritt::zeigen(int nummer, int anzahl) {
  if (anzahl <= 0) {
    const QRect platz = geometry();
    hide();
    parentWidget()->repaint(platz);
    return;
  }
  const auto person = [anzahl](int zahl) { return QStringLiteral("Person %1 von %2").arg(zahl).arg(anzahl); };
  if (isHidden()) {
    // As wide as its longest text.
    text_->setText(person(anzahl));
    text_->setMinimumWidth(text_->sizeHint().width());
  }
  text_->setText(person(nummer));
  setAccessibleDescription(text_->text());
  balken_->setRange(0, anzahl);
  balken_->setValue(nummer);
  if (isHidden()) {
    constexpr int kAbstand = 14;
    show();
    layout()->activate();
    adjustSize();
    const QSize flaeche = parentWidget()->size();
    move((flaeche.width() - width()) / 2, flaeche.height() - height() - kAbstand);
    raise();
  }
  repaint();
}

}  // namespace pelvanto
