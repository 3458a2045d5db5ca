#include "shell/iban_feld.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

#include <algorithm>

#include "shell/farben.h"

namespace pelvanto {

namespace {

bool istUmschalttaste(int taste) {
  return taste == Qt::Key_Shift || taste == Qt::Key_Control || taste == Qt::Key_Alt || taste == Qt::Key_AltGr;
}

// Keys that edit or lead elsewhere come without a character, with a control character, or with Ctrl.
bool tipptZeichen(const QKeyEvent& ereignis) {
  constexpr QChar kEntfernen(0x7f);
  if ((ereignis.modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier) return false;
  const QString text = ereignis.text();
  return !text.isEmpty() && text.front() >= u' ' && text.front() != kEntfernen;
}

QString inWorten(const QString& text, IBANErgebnis ergebnis) {
  if (text.trimmed().isEmpty()) return QStringLiteral("IBAN: leer");
  switch (ergebnis) {
    case IBANErgebnis::Richtig:
      return QStringLiteral("IBAN: Prüfziffern richtig");
    case IBANErgebnis::Falsch:
      return QStringLiteral("IBAN: Prüfziffern falsch");
    case IBANErgebnis::Leer:
    case IBANErgebnis::NichtGeprueft:
      break;
  }
  return QStringLiteral("IBAN: Prüfziffern nicht geprüft");
}

// Where the caret stands in the grouped text: behind as many characters as before, and behind their blank.
int stelleNach(const QString& gruppiert, qsizetype zeichen) {
  return static_cast<int>(std::min(zeichen + zeichen / 4, gruppiert.size()));
}

}  // namespace

IBANFeld::IBANFeld(QWidget* eltern) : Eingabefeld(eltern) {
  zeigen(gezeigt_);
  connect(this, &QLineEdit::textChanged, this, &IBANFeld::beiAenderung);
}

bool IBANFeld::passt(qsizetype zeichen) const {
  return text().size() - selectedText().size() + zeichen <= std::max<qsizetype>(kTippbar, text().size());
}

void IBANFeld::keyPressEvent(QKeyEvent* ereignis) {
  if (!istUmschalttaste(ereignis->key()))
    zurueckgenommen_ = ereignis->matches(QKeySequence::Undo) || ereignis->matches(QKeySequence::Redo);
  if (!tipptZeichen(*ereignis) || nurMitAlt(*ereignis)) {
    Eingabefeld::keyPressEvent(ereignis);
    return;
  }
  ereignis->accept();
  const QString erlaubt = IBANZeichenFiltern(ereignis->text());
  if (erlaubt.isEmpty() || !passt(erlaubt.size())) return;
  // Who types fast presses the next key before this one's blank has come.
  if (!hasSelectedText() && cursorPosition() == text().size()) blankAnhaengen();
  QKeyEvent gefiltert(ereignis->type(), ereignis->key(), ereignis->modifiers(), erlaubt,
                      ereignis->isAutoRepeat(), static_cast<quint16>(ereignis->count()));
  Eingabefeld::keyPressEvent(&gefiltert);
}

void IBANFeld::keyReleaseEvent(QKeyEvent* ereignis) {
  Eingabefeld::keyReleaseEvent(ereignis);
  // A key that is held is not released yet: Backspace passes the blanks while it is down.
  if (ereignis->isAutoRepeat()) return;
  if (!zurueckgenommen_) blankAnhaengen();
  pruefen();
}

void IBANFeld::inputMethodEvent(QInputMethodEvent* ereignis) {
  QString erlaubt = IBANZeichenFiltern(ereignis->commitString());
  if (!passt(erlaubt.size())) erlaubt.clear();
  ereignis->setCommitString(erlaubt, ereignis->replacementStart(), ereignis->replacementLength());
  Eingabefeld::inputMethodEvent(ereignis);
  if (erlaubt.isEmpty()) return;
  blankAnhaengen();
  pruefen();
}

// What came in by the mouse into a field with a colour was not checked yet.
void IBANFeld::focusOutEvent(QFocusEvent* ereignis) {
  Eingabefeld::focusOutEvent(ereignis);
  pruefen();
}

void IBANFeld::blankAnhaengen() {
  if (!IBANBlankFaellig(text().size())) return;
  end(false);
  insert(QStringLiteral(" "));
}

void IBANFeld::pruefen() {
  QString iban;
  const IBANErgebnis ergebnis = IBANPruefen(text(), iban);
  if (ergebnis != IBANErgebnis::Leer) zeigen(ergebnis);
  if (ergebnis == IBANErgebnis::Richtig && !zurueckgenommen_) gruppieren(IBANGruppieren(iban));
}

void IBANFeld::beiAenderung() {
  if (gezeigt_ == IBANErgebnis::NichtGeprueft) pruefen();
  setAccessibleDescription(inWorten(text(), gezeigt_));
}

// As an edit, so that it can be taken back.
void IBANFeld::gruppieren(const QString& iban) {
  if (text() == iban) return;
  const qsizetype davor = text().left(cursorPosition()).remove(u' ').size();
  selectAll();
  insert(iban);
  setCursorPosition(stelleNach(iban, davor));
}

void IBANFeld::zeigen(IBANErgebnis ergebnis) {
  gezeigt_ = ergebnis;
  const Farbpaar farben = ibanfarben(ergebnis);
  QPalette eigene;
  eigene.setColor(QPalette::Base, farben.grund);
  eigene.setColor(QPalette::Text, farben.schrift);
  setPalette(eigene);
  setAccessibleDescription(inWorten(text(), ergebnis));
}

}  // namespace pelvanto
