#pragma once

#include <QString>

#include "seams/anwendungen.h"
#include "seams/meldungen.h"
#include "seams/uhr.h"
#include "support/dateien_finden.h"
#include "support/protokoll.h"

namespace pelvanto {

// Opens documents with their application.
class DateiAusfuehren {
 public:
  DateiAusfuehren(Anwendungen& anwendungen, const DateienFinden& dateien, Protokoll& protokoll,
                  Meldungen& meldungen, Uhr& uhr);

  // Waits up to eleven seconds for the file to be there; every failure is told. `fensterart` as in
  // Anwendungen::oeffnen.
  void ausfuehren(const QString& datei, int fensterart);

 private:
  bool abwarten(QString& name);
  void fehlerMelden(const QString& name, int antwort);

  Anwendungen& anwendungen_;
  const DateienFinden& dateien_;
  Protokoll& protokoll_;
  Meldungen& meldungen_;
  Uhr& uhr_;
};

}  // namespace pelvanto
