#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include "support/dateien_finden.h"
#include "support/protokoll.h"

namespace pelvanto {

struct Schreibergebnis {
  QString fehler;      // why the file was not written, in German; empty: it lies there, whole and durable
  QStringList uebrig;  // after a failure: what could not be removed again
};

// Writes a new file so that it is there whole or not at all, also when the computer stops: under another name
// in the same folder, flushed, read back, renamed without replacing anything, folder flushed.
Schreibergebnis dauerhaftSchreiben(DateienFinden& dateien, Protokoll& protokoll, const QString& pfad,
                                   const QByteArray& inhalt);

}  // namespace pelvanto
