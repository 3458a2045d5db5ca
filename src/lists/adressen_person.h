#pragma once

#include <QString>

#include "database/verbindung.h"
#include "lists/adressen_namen.h"
#include "payment/daten_typen.h"

namespace pelvanto {

// What the contact data say of a person, texts as they are stored.
struct Person {
  qint32 id = 0;
  QString namen;    // "Huber Dr. Johann, vulgo Moar"
  QString adresse;  // "4320 Perg, Dorf 3"
  Anredemerkmale merkmale;
  QString besondereBriefanrede;
  QString telefon;
  QString eMail;
  QString faxNummern;
  bool keinFax = false;
  bool keinMail = false;
  bool du = false;
};

// The person of the current row. Throws Datenbankfehler if a column is missing.
Person personLesen(qint32 id, const Abfrage& zeile, const DatenTypen& typen);

}  // namespace pelvanto
