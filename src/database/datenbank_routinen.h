#pragma once

#include <QString>

#include <memory>
#include <optional>

#include "database/verbindung.h"
#include "seams/meldungen.h"
#include "seams/oberflaeche.h"
#include "seams/uhr.h"
#include "support/dateien_finden.h"
#include "support/protokoll.h"

namespace pelvanto {

// Opens the contact database and its queries; failures are logged and answered, never raised.
class DatenbankRoutinen {
 public:
  DatenbankRoutinen(jet::FileSystem& jetDateien, DateienFinden& dateien, Protokoll& protokoll,
                    Meldungen& meldungen, Oberflaeche& oberflaeche, Uhr& uhr);

  // Up to five attempts, 500 ms apart; offers the younger backup copy when the file is damaged.
  bool DatenbankOeffnen(std::unique_ptr<Verbindung>& Verbindung, const QString& Pfad, bool Schreibgeschuetzt,
                        bool MeldungZeigen);
  // One attempt; `Beschaedigt` is set, never cleared.
  bool DatenbankOeffnenVersuch(std::unique_ptr<Verbindung>& Verbindung, const QString& Pfad,
                               bool Schreibgeschuetzt, bool& Beschaedigt);
  // One attempt without a net: throws Datenbankfehler.
  std::unique_ptr<Verbindung> direktOeffnen(const QString& Pfad, bool Schreibgeschuetzt);

  bool SnapshotOeffnen(Verbindung& Verbindung, std::optional<Abfrage>& Abfrage, const QString& SQL,
                       bool MeldungZeigen, bool NurMitDatensaetzen, bool& Fehler);
  bool TabelleOeffnen(Verbindung& Verbindung, std::optional<Abfrage>& Abfrage, const QString& Quelle,
                      bool MeldungZeigen);
  // The change stamp of the file as it is now; nullopt if it cannot be read.
  std::optional<jet::ChangeStamp> stand(const QString& Pfad);

 private:
  void sicherungskopieAnbieten(const QString& Pfad, struct Kopienzeiten& zeiten);

  jet::FileSystem& jetDateien_;
  DateienFinden& dateien_;
  Protokoll& protokoll_;
  Meldungen& meldungen_;
  Oberflaeche& oberflaeche_;
  Uhr& uhr_;
};

}  // namespace pelvanto
