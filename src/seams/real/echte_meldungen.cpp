#include "seams/real/echte_meldungen.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QMessageBox>
#include <QPushButton>

namespace pelvanto {

namespace {

QMessageBox::Icon symbolbild(Symbol symbol) {
  switch (symbol) {
    case Symbol::Keines:
      return QMessageBox::NoIcon;
    case Symbol::Information:
      return QMessageBox::Information;
    case Symbol::Frage:
      return QMessageBox::Question;
    case Symbol::Ausrufezeichen:
      return QMessageBox::Warning;
    case Symbol::Kritisch:
      return QMessageBox::Critical;
  }
  return QMessageBox::NoIcon;
}

// An hourglass set by the work that asks must not stand over the box.
class Zeigerpfeil {
 public:
  Zeigerpfeil() : gesetzt_(QApplication::overrideCursor() != nullptr) {
    if (gesetzt_) {
      QApplication::setOverrideCursor(QCursor(Qt::ArrowCursor));
    }
  }
  ~Zeigerpfeil() {
    if (gesetzt_) {
      QApplication::restoreOverrideCursor();
    }
  }
  Zeigerpfeil(const Zeigerpfeil&) = delete;
  Zeigerpfeil& operator=(const Zeigerpfeil&) = delete;

 private:
  bool gesetzt_;
};

void knoepfeEinsetzen(QMessageBox& kasten, Knoepfe knoepfe) {
  if (knoepfe == Knoepfe::Ok) {
    kasten.setStandardButtons(QMessageBox::Ok);
    kasten.button(QMessageBox::Ok)->setText(QStringLiteral("OK"));
    return;
  }
  kasten.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
  kasten.button(QMessageBox::Yes)->setText(QStringLiteral("&Ja"));
  kasten.button(QMessageBox::No)->setText(QStringLiteral("&Nein"));
  kasten.setDefaultButton(QMessageBox::No);
  kasten.setEscapeButton(QMessageBox::No);
}

}  // namespace

Antwort EchteMeldungen::zeigen(const Meldung& meldung) {
  const Zeigerpfeil pfeil;
  const QString titel = meldung.titel.isEmpty() ? QStringLiteral("Pelvanto") : meldung.titel;
  QMessageBox kasten(QApplication::activeWindow());
  kasten.setIcon(symbolbild(meldung.symbol));
  kasten.setWindowTitle(titel);
  kasten.setTextFormat(Qt::PlainText);
  kasten.setText(meldung.text);
  knoepfeEinsetzen(kasten, meldung.knoepfe);
  kasten.exec();
  if (meldung.knoepfe == Knoepfe::Ok) {
    return Antwort::Ok;
  }
  return kasten.clickedButton() == kasten.button(QMessageBox::Yes) ? Antwort::Ja : Antwort::Nein;
}

}  // namespace pelvanto
