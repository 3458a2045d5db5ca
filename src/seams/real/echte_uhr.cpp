#include "seams/real/echte_uhr.h"

#include <QThread>

namespace pelvanto {

QDateTime EchteUhr::jetzt() const { return QDateTime::currentDateTime(); }

void EchteUhr::warten(int millisekunden) {
  if (millisekunden > 0) {
    QThread::msleep(static_cast<unsigned long>(millisekunden));
  } else {
    QThread::yieldCurrentThread();
  }
}

}  // namespace pelvanto
