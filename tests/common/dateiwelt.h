#pragma once

#include <QStringList>

#include "common/fakes.h"
#include "support/dateien_finden.h"
#include "support/protokoll.h"
#include "support/windows1252.h"

namespace pelvanto::test {

// A program folder "/prog" in memory on 2026-03-16 with log and file operations over it. `stoerer` stands
// between them and the files.
struct Dateiwelt {
  SpeicherDateisystem speicher;
  StoerDateisystem stoerer{speicher};
  FakeUhr uhr;
  FakeMeldungen meldungen;
  FakeOberflaeche oberflaeche;
  Protokoll protokoll{stoerer, uhr, QStringLiteral("/prog")};
  DateienFinden dateien{stoerer, protokoll, meldungen, oberflaeche, uhr, QStringLiteral("/prog")};

  Dateiwelt() { speicher.ordner(QStringLiteral("/prog")); }

  // Lines of today's log without the time; the indent stays.
  QStringList protokollzeilen() const { return zeilen(QStringLiteral("/prog/26_03_16.txt"), 12); }
  // Lines of the error log without number, date and time.
  QStringList fehlerzeilen() const {
    QStringList ergebnis;
    for (const QString& zeile : zeilen(QStringLiteral("/prog/Fehlerprotokoll.txt"), 0)) {
      ergebnis << zeile.mid(zeile.indexOf(u';') + 22);
    }
    return ergebnis;
  }
  // All files but the logs.
  QStringList andereDateien() const {
    QStringList pfade = speicher.pfade();
    pfade.removeAll(QStringLiteral("/prog/26_03_16.txt"));
    pfade.removeAll(QStringLiteral("/prog/Fehlerprotokoll.txt"));
    return pfade;
  }

 private:
  QStringList zeilen(const QString& pfad, qsizetype vorspann) const {
    QStringList ergebnis;
    for (const QString& zeile :
         ausWindows1252(speicher.inhalt(pfad)).split(QStringLiteral("\r\n"), Qt::SkipEmptyParts)) {
      ergebnis << zeile.mid(vorspann);
    }
    return ergebnis;
  }
};

}  // namespace pelvanto::test
