#pragma once

#include <QString>

#include "payment/daten_typen.h"
#include "payment/ueberweisung_t.h"
#include "seams/meldungen.h"
#include "seams/uhr.h"
#include "support/dateien_finden.h"
#include "support/prozesswerte.h"

namespace pelvanto {

// Writes the bank's credit-transfer file (ISO 20022, pain.001.001.03).
class Zahlungsverkehr {
 public:
  Zahlungsverkehr(const Prozesswerte& werte, DateienFinden& dateien, Protokoll& protokoll,
                  Meldungen& meldungen, const Uhr& uhr, const DatenTypen& typen);

  // True when the file was written; `pfad` then names it. Every failure has told the user or the log why,
  // and left no file behind.
  bool UeberweisungDateiErstellen(const UeberweisungT& tabelle, const QString& eigeneIBAN,
                                  const QString& eigeneBIC, QString& pfad);

 private:
  bool ablehnen(const QString& grund) const;
  // The message id of the year's first number without a file; empty when all are taken.
  QString freieNummer(const QDateTime& jetzt) const;
  QString dateipfad(const QString& meldung) const;
  bool schreiben(const QString& pfad, const QByteArray& inhalt, const UeberweisungT& tabelle);

  const Prozesswerte& werte_;
  DateienFinden& dateien_;
  Protokoll& protokoll_;
  Meldungen& meldungen_;
  const Uhr& uhr_;
  const DatenTypen& typen_;
};

QString DatumZeitISO(const QDateTime& zeit);

}  // namespace pelvanto
