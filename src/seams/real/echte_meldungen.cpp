#include "seams/real/echte_meldungen.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QMessageBox>
#include <QPushButton>

#include "seams/real/eingabekasten.h"

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

// The window over which a box stands; also while the user is in another program.
QWidget* elternfenster() {
  if (QWidget* aktives = QApplication::activeWindow()) return aktives;
  for (QWidget* fenster : QApplication::topLevelWidgets()) {
    if (fenster->isVisible()) return fenster;
  }
  return nullptr;
}

QString titelOderName(const QString& titel) { return titel.isEmpty() ? QStringLiteral("Pelvanto") : titel; }

void knoepfeEinsetzen(QMessageBox& kasten, Knoepfe knoepfe) {
  if (knoepfe == Knoepfe::Ok) {
    kasten.setStandardButtons(QMessageBox::Ok);
    kasten.button(QMessageBox::Ok)->setText(QStringLiteral("OK"));
    return;
  }
  const bool abbrechbar = knoepfe == Knoepfe::JaNeinAbbrechen;
  kasten.setStandardButtons(QMessageBox::Yes | QMessageBox::No |
                            (abbrechbar ? QMessageBox::Cancel : QMessageBox::NoButton));
  kasten.button(QMessageBox::Yes)->setText(QStringLiteral("&Ja"));
  kasten.button(QMessageBox::No)->setText(QStringLiteral("&Nein"));
  kasten.setDefaultButton(QMessageBox::No);
  kasten.setEscapeButton(abbrechbar ? QMessageBox::Cancel : QMessageBox::No);
  if (abbrechbar) kasten.button(QMessageBox::Cancel)->setText(QStringLiteral("&Abbrechen"));
}

}  // namespace

Antwort EchteMeldungen::zeigen(const Meldung& meldung) {
  const Zeigerpfeil pfeil;
  QMessageBox kasten(elternfenster());
  kasten.setIcon(symbolbild(meldung.symbol));
  kasten.setWindowTitle(titelOderName(meldung.titel));
  kasten.setTextFormat(Qt::PlainText);
  kasten.setText(meldung.text);
  knoepfeEinsetzen(kasten, meldung.knoepfe);
  kasten.exec();
  if (meldung.knoepfe == Knoepfe::Ok) {
    return Antwort::Ok;
  }
  if (kasten.clickedButton() == kasten.button(QMessageBox::Yes)) return Antwort::Ja;
  const bool abgebrochen = meldung.knoepfe == Knoepfe::JaNeinAbbrechen &&
                           kasten.clickedButton() == kasten.button(QMessageBox::Cancel);
  return abgebrochen ? Antwort::Abbrechen : Antwort::Nein;
}

std::optional<QString> EchteMeldungen::eingeben(const Eingabe& eingabe) {
  const Zeigerpfeil pfeil;
  Eingabekasten kasten({eingabe.text, titelOderName(eingabe.titel), eingabe.vorgabe}, elternfenster());
  if (kasten.exec() != QDialog::Accepted) return std::nullopt;
  return kasten.text();
}

}  // namespace pelvanto
