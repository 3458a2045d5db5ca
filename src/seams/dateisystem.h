#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>

namespace pelvanto {

// Error numbers as the log and the message boxes show them; 0 = no error.
namespace Dateifehlernummer {
inline constexpr int UngueltigerAufruf = 5;
inline constexpr int DateinameUngueltig = 52;
inline constexpr int DateiNichtGefunden = 53;
inline constexpr int EingabeAusgabe = 57;
inline constexpr int DateiExistiert = 58;
inline constexpr int DatentraegerVoll = 61;
inline constexpr int ZugriffVerweigert = 70;
inline constexpr int PfadZugriff = 75;
inline constexpr int PfadNichtGefunden = 76;
}  // namespace Dateifehlernummer

struct Dateifehler {
  int nummer = 0;
  QString beschreibung;  // German, one clause without a full stop
  bool ok() const { return nummer == 0; }
};

// Local times, whole seconds.
struct Dateizeiten {
  QDateTime erstellt, letzterZugriff, letztesSchreiben;
};

// The operations on files that the program needs, each as the system offers it: no logging, no messages
// (support/ does that). Where a system lets another program that looks at a file for a moment stand in the
// way, they wait for half a second; the questions (oeffnenPruefen, zeiten) never do. Paths use the system's
// own separators.
class Dateisystem {
 public:
  virtual ~Dateisystem() = default;

  virtual bool existiert(const QString& pfad) const = 0;
  virtual bool istOrdner(const QString& pfad) const = 0;
  // Tries to open for reading and closes again.
  virtual Dateifehler oeffnenPruefen(const QString& pfad) const = 0;
  virtual std::optional<Dateizeiten> zeiten(const QString& pfad) const = 0;
  virtual std::optional<qint64> groesse(const QString& pfad) const = 0;
  // Names (without folder) in a folder; used to find names in any letter case.
  virtual QStringList namen(const QString& ordner) const = 0;

  virtual Dateifehler lesen(const QString& pfad, QByteArray& inhalt) const = 0;
  virtual Dateifehler anhaengen(const QString& pfad, const QByteArray& inhalt) = 0;
  // Creates or replaces; the content is on the disk when this returns without error.
  virtual Dateifehler schreiben(const QString& pfad, const QByteArray& inhalt) = 0;
  virtual Dateifehler loeschen(const QString& pfad) = 0;
  // Read-only, hidden and system attributes off, as far as the system has them.
  virtual Dateifehler attributeLoeschen(const QString& pfad) = 0;
  // Never replaces an existing file (DateiExistiert).
  virtual Dateifehler umbenennen(const QString& alt, const QString& neu) = 0;
  // Gives `neu` the name `ziel` in one step; a file of that name is replaced and is never missing meanwhile.
  virtual Dateifehler ersetzen(const QString& neu, const QString& ziel) = 0;
  virtual Dateifehler kopieren(const QString& quelle, const QString& ziel) = 0;
  // A folder that exists already is PfadZugriff.
  virtual Dateifehler ordnerAnlegen(const QString& ordner) = 0;
  // Makes a rename or a new name in this folder durable.
  virtual Dateifehler ordnerSpuelen(const QString& ordner) = 0;
};

}  // namespace pelvanto
