#pragma once

#include <QDateTime>
#include <QString>

#include <functional>

#include "seams/dateisystem.h"
#include "seams/meldungen.h"
#include "seams/oberflaeche.h"
#include "seams/uhr.h"
#include "support/protokoll.h"

namespace pelvanto {

// File operations that announce themselves in the log, wait until the system shows their result, and answer
// with truth values instead of raising errors.
class DateienFinden {
 public:
  enum class Kopierweg { Alt = 1, Neu = 2 };
  struct Kopieroptionen {
    bool meldungenZeigen = false;
    bool ueberschreiben = false;
    bool sanduhrAus = false;
    Kopierweg weg = Kopierweg::Neu;
  };

  DateienFinden(Dateisystem& dateien, Protokoll& protokoll, Meldungen& meldungen, Oberflaeche& oberflaeche,
                Uhr& uhr, const QString& programmOrdner);

  // The careful test; throws ProgrammEnde after its message for an error it does not know.
  bool FileExists(const QString& datei);
  // The quick test: exists and is not a folder. A bare name may be completed by the program folder.
  bool DateiVorhanden(QString& datei) const;
  bool DateiVorhanden(const QString& datei) const;
  bool PfadExistiert(const QString& pfad) const;
  bool CreatePath(const QString& ordner);
  bool ReadFileTime(const QString& datei, Dateizeiten& zeiten) const;
  const QString& ProgrammOrdner() const { return programmOrdner_; }
  bool DateiFrei(const QString& datei) const;
  bool FileLenVerursachtFehler(const QString& datei);
  bool DateiLoeschen(const QString& datei, int einzug);
  // Deletes `ziel` with the same words, in the same step in which `neu` takes its name: one of the two always
  // has it.
  bool DateiErsetzen(const QString& neu, const QString& ziel, int einzug);
  bool DateiKopieren(const QString& quelle, const QString& ziel, const Kopieroptionen& optionen);
  // `grund`, if given, is told why renaming within a folder failed.
  bool DateiUmbenennen(const QString& alt, const QString& neu, bool ueberschreiben,
                       Dateifehler* grund = nullptr);
  bool DateiVerschieben(const QString& quelle, const QString& ziel);
  void Warten(int millisekunden);
  // For writers that build a file under another name first; not logged by themselves.
  Dateisystem& dateisystem() { return dateien_; }

 private:
  bool beseitigen(const QString& original, const QString& name, int einzug,
                  const std::function<Dateifehler()>& vorgang);
  void loeschfehlerMelden(const QString& original, const QString& name, const Dateifehler& fehler);
  bool kopierzielPruefen(const QString& quelle, const QString& ziel, const Kopieroptionen& optionen);
  bool kopierquellePruefen(const QString& quelle);
  bool kopieren(const QString& quelle, const QString& ziel, const Kopieroptionen& optionen);
  bool kopierfehlerMelden();

  Dateisystem& dateien_;
  Protokoll& protokoll_;
  Meldungen& meldungen_;
  Oberflaeche& oberflaeche_;
  Uhr& uhr_;
  QString programmOrdner_;
};

// Taking paths apart; separators are ":", "/" and "\".
QString DateinameAusPfad(const QString& pfad);
QString OrdnerAusPfad(const QString& pfad);
QString DateinameBereinigen(const QString& pfad);

}  // namespace pelvanto
