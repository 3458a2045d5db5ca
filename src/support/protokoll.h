#pragma once

#include <QString>

#include "seams/dateisystem.h"
#include "seams/uhr.h"

namespace pelvanto {

// The diagnostic log: one file per day and the numbered error log, both in the program folder, text in
// Windows-1252 with CR LF. A line that cannot be written is lost without a word.
class Protokoll {
 public:
  enum class Zeile { Normal, Fehler };

  Protokoll(Dateisystem& dateien, const Uhr& uhr, QString programmOrdner);

  // `einzug` is the number of blanks (0, 4 or 8) that nests a detail under its first line.
  void schreiben(const QString& text, int einzug = 0, Zeile zeile = Zeile::Normal);
  void fehler(const QString& text, int einzug = 0) { schreiben(text, einzug, Zeile::Fehler); }
  // Whether a first line of a day found the last earlier log in another month or year; never unset.
  bool neuerMonat() const { return neuerMonat_; }
  bool neuesJahr() const { return neuesJahr_; }

 private:
  QString fruehereProtokolle(const QDateTime& jetzt);
  qint64 zeilenZaehlen(const QString& pfad) const;

  Dateisystem& dateien_;
  const Uhr& uhr_;
  QString ordner_;
  bool neuerMonat_ = false;
  bool neuesJahr_ = false;
};

// The name of a day's log: "26_11_16.txt".
QString tagesprotokoll(const QDate& tag);

// A file's size as the log writes it ("#,###": grouped by points, nothing for 0).
QString protokollGroesse(qint64 bytes);

// How message boxes and the log name an error that was not expected: "Fehler 70 (Zugriff verweigert) in
// Prozedur P in Modul M". `imOderIn` is "in" or "im".
QString fehlerbericht(const Dateifehler& fehler, const QString& prozedur, const QString& modul,
                      const QString& imOderIn = QStringLiteral("in"));

}  // namespace pelvanto
