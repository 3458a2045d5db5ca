#include "support/dateien_finden.h"

#include <algorithm>

#include "support/pfade.h"
#include "support/programm_ende.h"

namespace pelvanto {

namespace {

bool enthaeltTrenner(const QString& name) { return std::any_of(name.begin(), name.end(), istPfadtrenner); }

void zugriffVerweigertMelden(Meldungen& meldungen, const QString& datei) {
  meldungen.zeigen({datei + QStringLiteral("\nAuf diese Datei kann nicht zugegriffen werden! "
                                           "Sie sollten das Programm beenden und nach der Ursache suchen.\n\n"
                                           "Informieren Sie den Programmierer, sollte das Problem häufiger "
                                           "auftauchen!"),
                    Symbol::Kritisch});
}

// Lengths of what must not be taken apart at the start of a path: "C:\", "\\server\share\", "/".
qsizetype wurzellaenge(const QString& pfad) {
  const auto istTrenner = [&](qsizetype stelle) {
    return stelle < pfad.size() && istPfadtrenner(pfad.at(stelle));
  };
  if (pfad.size() > 1 && pfad.at(1) == u':') {
    return istTrenner(2) ? 3 : 2;
  }
  if (!istTrenner(0) || !istTrenner(1)) {
    return istTrenner(0) ? 1 : 0;
  }
  qsizetype stelle = 2;
  for (int teil = 0; teil < 2; ++teil) {
    while (stelle < pfad.size() && !istTrenner(stelle)) {
      ++stelle;
    }
    stelle = qMin(stelle + 1, pfad.size());
  }
  return stelle;
}

}  // namespace

DateienFinden::DateienFinden(Dateisystem& dateien, Protokoll& protokoll, Meldungen& meldungen,
                             Oberflaeche& oberflaeche, Uhr& uhr, const QString& programmOrdner)
    : dateien_(dateien),
      protokoll_(protokoll),
      meldungen_(meldungen),
      oberflaeche_(oberflaeche),
      uhr_(uhr),
      programmOrdner_(ordnerOhneTrenner(programmOrdner)) {}

bool DateienFinden::FileExists(const QString& datei) {
  if (datei.isEmpty()) {
    protokoll_.fehler(QStringLiteral("DateienFinden.FileExists: Kein Dateiname übermittelt."));
    return false;
  }
  if (datei.contains(u'*')) {
    protokoll_.fehler(QStringLiteral("DateienFinden.FileExists: * im Dateinamen gefunden:"));
    protokoll_.fehler(datei, 4);
  }
  constexpr int schonOffen = 55;
  const int nummer = dateien_.oeffnenPruefen(datei).nummer;
  switch (nummer) {
    case 0:
    case schonOffen:
      return true;
    case 52:
    case Dateifehlernummer::DateiNichtGefunden:
    case Dateifehlernummer::EingabeAusgabe:
    case 71:
    case Dateifehlernummer::PfadZugriff:
    case Dateifehlernummer::PfadNichtGefunden:
      return false;
    case Dateifehlernummer::ZugriffVerweigert:
      protokoll_.fehler(QStringLiteral("Fehler 70 (auf Datei kann nicht zugegriffen werden): ") + datei);
      zugriffVerweigertMelden(meldungen_, datei);
      return false;
    default:
      break;
  }
  meldungen_.zeigen({QStringLiteral("Fehler Nr. %1 - unbekannter Fehler - Programm wird beendet").arg(nummer),
                     Symbol::Ausrufezeichen, Knoepfe::Ok, QStringLiteral("Fehler")});
  protokoll_.schreiben(QStringLiteral("undefinierter Fehler Nr. %1 bei FileExists: ").arg(nummer) + datei);
  throw ProgrammEnde();
}

bool DateienFinden::DateiVorhanden(QString& datei) const {
  if (datei.isEmpty()) {
    return false;
  }
  if (istDatei(datei, dateien_)) {
    return true;
  }
  if (enthaeltTrenner(datei)) {
    return false;
  }
  datei = pfadVerbinden(programmOrdner_, datei);
  return istDatei(datei, dateien_);
}

bool DateienFinden::DateiVorhanden(const QString& datei) const {
  QString name = datei;
  return DateiVorhanden(name);
}

bool DateienFinden::PfadExistiert(const QString& pfad) const {
  return !pfad.trimmed().isEmpty() && dateien_.existiert(pfad);
}

bool DateienFinden::CreatePath(const QString& ordner) {
  oberflaeche_.sanduhr(true);
  const QString ziel = ordnerOhneTrenner(ordner);
  bool gelungen = !ziel.isEmpty();
  for (qsizetype ende = wurzellaenge(ziel); gelungen && ende < ziel.size();) {
    ++ende;
    while (ende < ziel.size() && !istPfadtrenner(ziel.at(ende))) {
      ++ende;
    }
    const QString teil = ziel.left(ende);
    const int nummer = dateien_.ordnerAnlegen(teil).nummer;
    gelungen = (nummer == 0 || nummer == Dateifehlernummer::PfadZugriff) && dateien_.istOrdner(teil);
  }
  oberflaeche_.sanduhr(false);
  if (!gelungen) {
    protokoll_.fehler(QStringLiteral("DateienFinden.bas.CreatePath: Fehler beim Anlegen von ") + ordner);
  }
  return gelungen;
}

bool DateienFinden::ReadFileTime(const QString& datei, Dateizeiten& zeiten) const {
  const std::optional<Dateizeiten> gelesen = dateien_.zeiten(datei);
  if (gelesen) {
    zeiten = *gelesen;
  }
  return gelesen.has_value();
}

bool DateienFinden::DateiFrei(const QString& datei) const { return dateien_.oeffnenPruefen(datei).ok(); }

bool DateienFinden::FileLenVerursachtFehler(const QString& datei) {
  if (dateien_.groesse(datei)) {
    return false;
  }
  protokoll_.schreiben(
      QStringLiteral("DateienFinden.bas.FileLenVerursachtFehler: FileLen verursacht Fehler: ") + datei);
  return true;
}

void DateienFinden::Warten(int millisekunden) { uhr_.warten(millisekunden); }

bool DateienFinden::DateiUmbenennen(const QString& alt, const QString& neu, bool ueberschreiben,
                                    Dateifehler* grund) {
  constexpr int pruefungen = 5;
  constexpr int pause = 1000;
  Dateifehler unbeachtet;
  Dateifehler& fehler = grund ? *grund : unbeachtet;
  if (DateiVorhanden(neu)) {
    fehler = {Dateifehlernummer::DateiExistiert, QStringLiteral("Datei existiert bereits")};
    if (!ueberschreiben) {
      return false;
    }
    if (!DateiLoeschen(neu, 0)) {
      protokoll_.fehler(QStringLiteral("Datei kann für das Umbenennen nicht gelöscht werden: ") + neu);
      return false;
    }
  }
  fehler = dateien_.oeffnenPruefen(alt);
  if (!fehler.ok()) {
    return false;
  }
  for (int i = 1; !DateiVorhanden(alt); ++i) {
    if (i == pruefungen) {
      fehler = {Dateifehlernummer::DateiNichtGefunden, QStringLiteral("Datei nicht gefunden")};
      return false;
    }
    Warten(pause);
    oberflaeche_.nachrichtenVerarbeiten();
  }
  if (OrdnerAusPfad(alt) != OrdnerAusPfad(neu)) {
    return DateiVerschieben(alt, neu);
  }
  const QString namen = alt + QStringLiteral(" --> ") + neu;
  protokoll_.schreiben(QStringLiteral("Datei wird mit Name umbenannt: ") + namen, 8);
  fehler = dateien_.umbenennen(alt, neu);
  if (!fehler.ok()) {
    protokoll_.fehler(QStringLiteral("Error %1 (").arg(fehler.nummer) + fehler.beschreibung +
                      QStringLiteral(") in procedure DateiUmbenennen of Modul DateienFinden"));
    protokoll_.fehler(QStringLiteral("bisher: ") + alt, 4);
    protokoll_.fehler(QStringLiteral("neu   : ") + neu, 4);
    return false;
  }
  oberflaeche_.nachrichtenVerarbeiten();
  if (DateiVorhanden(neu)) {
    protokoll_.schreiben(QStringLiteral("Datei wurde mit Name umbenannt: ") + namen, 8);
  } else {
    protokoll_.fehler(QStringLiteral("Datei wurde NICHT mit Name umbenannt, existiert nicht!!!: ") + namen,
                      8);
  }
  return true;
}

bool DateienFinden::DateiVerschieben(const QString& quelle, const QString& ziel) {
  const QString ordner = OrdnerAusPfad(ziel);
  if (!PfadExistiert(ordner) && !CreatePath(ordner)) {
    return false;
  }
  if (DateiVorhanden(ziel)) {
    return false;
  }
  const Kopieroptionen optionen{.meldungenZeigen = true, .ueberschreiben = true};
  if (!DateiKopieren(quelle, ziel, optionen)) {
    protokoll_.fehler(
        QStringLiteral("DateiVerschieben fehlgeschlagen, weil Kopieren der Datei nicht "
                       "funktioniert hat!"));
    protokoll_.fehler(QStringLiteral("Quelle: ") + quelle, 4);
    protokoll_.fehler(QStringLiteral("Ziel: ") + ziel, 4);
    return false;
  }
  if (!DateiLoeschen(quelle, 0)) {
    protokoll_.fehler(QStringLiteral("DateiLoeschen fehlgeschlagen bei Aufruf aus DateiVerschieben: ") +
                      quelle + QStringLiteral(" ---> ") + ziel);
    return false;
  }
  return true;
}

}  // namespace pelvanto
