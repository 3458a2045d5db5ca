// The window's help: the handbook, and what the program is.
#include <QAbstractButton>
#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>

#include "shell/haupt_fenster.h"
#include "shell/ueber_kasten.h"

namespace pelvanto {

void HauptFenster::hilfeAnbieten() {
  const auto anbieten = [this](const char* name, const QString& text, const QKeySequence& taste) {
    auto* eintrag = new QAction(text, this);
    eintrag->setObjectName(name);
    eintrag->setShortcut(taste);
    addAction(eintrag);
    return eintrag;
  };
  const QAction* handbuch = anbieten("mnuHandbuch", QStringLiteral("&Handbuch öffnen"), Qt::Key_F1);
  const QAction* ueber = anbieten("mnuUeber", QStringLiteral("&Über Pelvanto"), Qt::CTRL | Qt::Key_F1);
  connect(handbuch, &QAction::triggered, this, [this] { danebenAusfuehren(handbuchOeffnen); });
  connect(ueber, &QAction::triggered, this, &HauptFenster::ueberZeigen);
}

// Both with their keys: on the window's ground, and by the menu key wherever it means nothing else. A button
// has no menu, off or on: there the right mouse button saves files.
void HauptFenster::contextMenuEvent(QContextMenuEvent* ereignis) {
  const bool maus = ereignis->reason() == QContextMenuEvent::Mouse;
  if (laeuft_ || (maus && qobject_cast<QAbstractButton*>(childAt(ereignis->pos())))) return;
  auto* menue = new QMenu(this);
  menue->setAttribute(Qt::WA_DeleteOnClose);
  menue->addActions(actions());
  menue->popup(ereignis->globalPos());
}

void HauptFenster::ueberZeigen() {
  if (laeuft_ || beendet_) return;
  auto* kasten = new UeberKasten(ueberPelvanto(umgebung_.werte), this);
  kasten->setAttribute(Qt::WA_DeleteOnClose);
  connect(kasten, &UeberKasten::handbuchGewuenscht, this, [this] { danebenAusfuehren(handbuchOeffnen); });
  connect(kasten, &UeberKasten::ordnerGewuenscht, this,
          [this] { danebenAusfuehren(protokollordnerOeffnen); });
  kasten->open();
}

// Pages and models stay as they are: what is being typed is not taken for entered.
void HauptFenster::danebenAusfuehren(void (*handlung)(Umgebung&)) {
  if (laeuft_ || beendet_) return;
  laeuft_ = true;
  abgesichert([&] { handlung(umgebung_); });
  laeuft_ = false;
  if (schliessenGewuenscht_ && !beendet_) close();
}

}  // namespace pelvanto
