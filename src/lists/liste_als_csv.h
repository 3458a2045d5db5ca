#pragma once

#include <QByteArray>
#include <QString>

#include "lists/liste.h"
#include "payment/daten_typen.h"
#include "seams/anwendungen.h"
#include "seams/meldungen.h"
#include "seams/oberflaeche.h"
#include "support/datei_ausfuehren.h"
#include "support/dateien_finden.h"
#include "support/protokoll.h"

namespace pelvanto {

// The bytes of a list as CSV: Windows-1252, lines ended by CR LF, fields separated by ";" and never quoted,
// an empty one a blank. Narrow and hidden columns are left out.
QByteArray csvText(const Liste& liste, const DatenTypen& typen);

// Saves result lists as CSV files on the user's desktop and offers to open them.
class CSVAusgabe {
 public:
  CSVAusgabe(Anwendungen& anwendungen, DateienFinden& dateien, DateiAusfuehren& ausfuehren,
             Protokoll& protokoll, Meldungen& meldungen, Oberflaeche& oberflaeche, const DatenTypen& typen);

  // `name` is the file's name with ".csv"; ":" and "/" in it become blanks. Everything that keeps the file
  // from being written is told; then an older file of that name is still there.
  void ListeAlsCSV(const Liste& liste, const QString& name);

 private:
  bool schreiben(const QString& pfad, const QByteArray& inhalt);
  void ablehnen(const QString& datei, const QString& grund);
  void nichtErstelltMelden(const QString& datei, const QString& grund, bool alteBleibt);
  void oeffnenAnbieten(const QString& pfad);

  Anwendungen& anwendungen_;
  DateienFinden& dateien_;
  DateiAusfuehren& ausfuehren_;
  Protokoll& protokoll_;
  Meldungen& meldungen_;
  Oberflaeche& oberflaeche_;
  const DatenTypen& typen_;
};

}  // namespace pelvanto
