#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>

#include "payment/ueberweisung_t.h"
#include "support/waehrung.h"

namespace pelvanto {

// What one file says beside its transfers.
struct Zahlungsdatei {
  QString meldung;  // message id and payment information id, "UE26001"
  QDateTime erstellt;
  QString absender;
  QString eigeneIBAN;  // without blanks
  QString eigeneBIC;
};

// nullopt when the sum does not fit.
std::optional<Waehrung> Gesamtsumme(const UeberweisungT& tabelle);
// "1234.50": at least one digit, two decimals, a point, whatever the user's number characters are.
QByteArray Betragstext(Waehrung betrag);
// The whole file: ASCII, lines ended by CR LF.
QByteArray ZahlungsdateiText(const Zahlungsdatei& kopf, const UeberweisungT& tabelle, Waehrung gesamt);
// Reads the bytes again and compares count, sums and every amount with the table; what differs, in German,
// or an empty text.
QString ZahlungsdateiPruefen(const QByteArray& bytes, const UeberweisungT& tabelle);

}  // namespace pelvanto
