#pragma once

#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>

#include "database/tabelle.h"
#include "database/verbindung.h"
#include "seams/meldungen.h"
#include "seams/oberflaeche.h"
#include "seams/uhr.h"
#include "support/dateien_finden.h"
#include "support/protokoll.h"

namespace pelvanto {

// Opens the contact database and its queries; failures are logged and answered, never raised. A save that was
// broken off earlier is made good at the next opening; log and, where a decision is needed, a message say so.
class DatenbankRoutinen {
 public:
  DatenbankRoutinen(jet::FilePool& jetDateien, DateienFinden& dateien, Protokoll& protokoll,
                    Meldungen& meldungen, Oberflaeche& oberflaeche, Uhr& uhr);

  // Up to five attempts, 500 ms apart; offers the younger backup copy when the file is damaged.
  bool DatenbankOeffnen(std::unique_ptr<Verbindung>& Verbindung, const QString& Pfad, bool Schreibgeschuetzt,
                        bool MeldungZeigen);
  // One attempt; `Beschaedigt` is set, never cleared.
  bool DatenbankOeffnenVersuch(std::unique_ptr<Verbindung>& Verbindung, const QString& Pfad,
                               bool Schreibgeschuetzt, bool& Beschaedigt);
  // One attempt without a net: throws Datenbankfehler.
  std::unique_ptr<Verbindung> direktOeffnen(const QString& Pfad, bool Schreibgeschuetzt);

  // `Abfrage` holds the answer on success only. `Fehler` is set when the query failed, never cleared.
  bool SnapshotOeffnen(Verbindung& Verbindung, std::optional<Abfrage>& Abfrage, const QString& SQL,
                       bool MeldungZeigen, bool NurMitDatensaetzen, bool& Fehler);
  // `Quelle` is the name of a table or a query on one table. `Abfrage` holds the record set on success only.
  bool TabelleOeffnen(Verbindung& Verbindung, std::optional<Tabelle>& Abfrage, const QString& Quelle,
                      bool MeldungZeigen);
  // The same without a net: throws Datenbankfehler.
  Tabelle tabelleDirekt(Verbindung& verbindung, const QString& Quelle);
  // Whether rows of this table can be changed now: takes the file for this program alone for a moment and
  // checks the table as a save does. Throws Datenbankfehler.
  void schreibenVorbereiten(Verbindung& verbindung, const QString& tabelle);
  // The change stamp of the file as it is now; nullopt if it cannot be read.
  std::optional<jet::ChangeStamp> stand(const QString& Pfad);

 private:
  // Tells what `oeffnen` has made good on opening, once it is done, and also where it fails.
  void mitMeldung(const QString& Pfad, const std::function<void(const jet::RecoverySink&)>& oeffnen);
  void unterbrechungMelden(const QString& Pfad, const jet::RecoveryResult& ergebnis);
  std::function<void()> pause();

  // A backup copy beside the database, and when it was last written as far as that is known.
  struct Sicherungskopie {
    QString datei;
    QDateTime zeit = QDateTime(QDate(1899, 12, 30), QTime(0, 0));
  };
  struct Sicherungskopien {
    Sicherungskopie BAK, KOM;
  };

  void sicherungskopieAnbieten(const QString& Pfad, Sicherungskopien& kopien);
  QString kopiepfad(const QString& Pfad, const QString& endung) const;
  void zeitLesen(Sicherungskopie& kopie, const QString& bezeichnung);
  void wiederherstellen(const QString& Pfad, const Sicherungskopie& kopie);
  bool kopieLesbar(const QString& kopie);
  void fehlerProtokollieren(const QString& text, int einzug = 0) { protokoll_.fehler(text, einzug); }

  jet::FilePool& jetDateien_;
  DateienFinden& dateien_;
  Protokoll& protokoll_;
  Meldungen& meldungen_;
  Oberflaeche& oberflaeche_;
  Uhr& uhr_;
};

}  // namespace pelvanto
