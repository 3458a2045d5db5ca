#include "seams/real/echte_oberflaeche.h"

#include <QApplication>
#include <QCursor>

namespace pelvanto {

void EchteOberflaeche::nachrichtenVerarbeiten() {
  if (!fortschritt_) QCoreApplication::processEvents();
}

void EchteOberflaeche::sanduhr(bool an) {
  if (an == an_) {
    return;
  }
  an_ = an;
  if (an) {
    QApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void EchteOberflaeche::fortschritt(int nummer, int anzahl) {
  fortschritt_ = anzahl > 0;
  if (anzeige_) anzeige_(nummer, anzahl);
}

}  // namespace pelvanto
