#pragma once

#include <QString>

#include "payment/daten_typen.h"
#include "payment/ueberweisung_t.h"
#include "seams/meldungen.h"
#include "support/funktionen_drucker.h"
#include "support/protokoll.h"

namespace pelvanto {

// The list of all transfers in a payment file, for the clerk to compare with.
class Kontrollliste {
 public:
  Kontrollliste(FunktionenDrucker& druck, Meldungen& meldungen, Protokoll& protokoll, const DatenTypen& typen)
      : druck_(druck), meldungen_(meldungen), protokoll_(protokoll), typen_(typen) {}

  // Tells that the file `pfad` was written, asks whether the list is wanted, and prints it. Every failure is
  // told; the file stays whatever happens.
  void anbieten(const QString& pfad, const UeberweisungT& tabelle, const QString& eigeneIBAN,
                const QString& eigeneBIC);

 private:
  // Throws Druckfehler.
  void drucken(const QString& pfad, const UeberweisungT& tabelle, const QString& eigeneIBAN,
               const QString& eigeneBIC);
  void protokollieren(const Druckfehler& fehler);

  FunktionenDrucker& druck_;
  Meldungen& meldungen_;
  Protokoll& protokoll_;
  const DatenTypen& typen_;
};

}  // namespace pelvanto
