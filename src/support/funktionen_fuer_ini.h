#pragma once

#include <QLatin1StringView>
#include <QString>

#include "seams/dateisystem.h"
#include "support/protokoll.h"

namespace pelvanto {

// This program's own section.
inline constexpr QLatin1StringView abschnittAuszahlungen("Auszahlungen");

// Single values of the settings file, which belongs to the contact program: every byte that is not the value
// written stays as it was. Text is Windows-1252.
class FunktionenFürINI {
 public:
  FunktionenFürINI(Dateisystem& dateien, Protokoll& protokoll, QString iniDatei);

  // At most 99 characters, without outer blanks and surrounding quotes.
  QString INILesen(const QString& Abschnitt, const QString& Schluessel, const QString& Vorgabe) const;
  // False, and a line in the error log: the file keeps what it has.
  bool INISpeichern(const QString& Abschnitt, const QString& Schluessel, const QString& Wert,
                    bool KeinProtokoll = false, int Einrueckung = 0);
  // False where there is a file that cannot be read, and INILesen gives defaults for what stands in it.
  bool lesbar() const;

 private:
  bool wertSchreiben(const QString& Abschnitt, const QString& Schluessel, const QString& Wert);
  bool grundlageLesen(QByteArray& bytes) const;

  Dateisystem& dateien_;
  Protokoll& protokoll_;
  QString iniDatei_;
};

}  // namespace pelvanto
