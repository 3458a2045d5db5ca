#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "support/dateien_finden.h"
#include "support/protokoll.h"

namespace pelvanto {

// What becomes of a file that has the name already: it bars the new one from being written, or makes way for
// it, in the same step in which the new one takes its name.
enum class Vorhandene { Bleibt, Weicht };

struct Schreibergebnis {
  QString fehler;                // why the file was not written, in German; empty: it lies there whole
  QStringList uebrig;            // after a failure: what could not be removed again
  bool alteUnloeschbar = false;  // the failure was that the older file could not be deleted (told already)
};

// Writes a file so that it is there whole or not at all, also when the computer stops: under another name in
// the same folder, flushed, read back, renamed, folder flushed. After a failure an older file is as it was.
Schreibergebnis dauerhaftSchreiben(DateienFinden& dateien, Protokoll& protokoll, const QString& pfad,
                                   const QByteArray& inhalt, Vorhandene vorhandene);

}  // namespace pelvanto
