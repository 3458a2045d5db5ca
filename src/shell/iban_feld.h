#pragma once

#include "payment/iban.h"
#include "shell/textfelder.h"

namespace pelvanto {

// The association's own IBAN: capitals and digits in blocks of four while it is typed, and a ground that says
// what the check digits are (the accessible description says it in words). What is pasted comes in as it is,
// however long.
class IBANFeld : public Eingabefeld {
  Q_OBJECT
 public:
  // As many characters can be typed; an IBAN that is longer already can still be corrected.
  static constexpr int kTippbar = 27;

  explicit IBANFeld(QWidget* eltern);

 protected:
  void keyPressEvent(QKeyEvent* ereignis) override;
  void keyReleaseEvent(QKeyEvent* ereignis) override;
  void inputMethodEvent(QInputMethodEvent* ereignis) override;
  void focusOutEvent(QFocusEvent* ereignis) override;

 private:
  bool passt(qsizetype zeichen) const;
  void blankAnhaengen();
  void pruefen();
  void beiAenderung();
  void gruppieren(const QString& iban);
  void zeigen(IBANErgebnis ergebnis);

  IBANErgebnis gezeigt_ = IBANErgebnis::NichtGeprueft;  // never Leer: an empty text keeps the ground
  bool zurueckgenommen_ = false;                        // the last key took a change back, or did it again
};

}  // namespace pelvanto
