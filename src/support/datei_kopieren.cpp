#include "support/dateien_finden.h"

namespace pelvanto {

bool DateienFinden::DateiKopieren(const QString& quelle, const QString& ziel,
                                  const Kopieroptionen& optionen) {
  const QString namen = quelle + QStringLiteral(" ---> ") + ziel;
  const auto misslungen = [&] {
    protokoll_.fehler(QStringLiteral("DateiKopieren hat nicht funktioniert: ") + namen, 4);
    return false;
  };
  protokoll_.schreiben(QStringLiteral("DateiKopieren aufgerufen: ") + namen);
  if (FileLenVerursachtFehler(quelle)) {
    return misslungen();
  }
  if (!kopierzielPruefen(quelle, ziel, optionen) || !kopierquellePruefen(quelle)) {
    return false;
  }
  const std::optional<qint64> laenge = dateien_.groesse(quelle);
  if (!laenge) {
    return kopierfehlerMelden();
  }
  protokoll_.schreiben(QStringLiteral("FileCopy wird jetzt gestartet: ") + namen, 4);
  protokoll_.schreiben(protokollGroesse(*laenge) + QStringLiteral(", ") + quelle, 8);
  if (!kopieren(quelle, ziel, optionen)) {
    return misslungen();
  }
  const std::optional<qint64> neueLaenge = dateien_.groesse(ziel);
  if (!neueLaenge) {
    return kopierfehlerMelden();
  }
  protokoll_.schreiben(QStringLiteral("FileCopy wurde fehlerfrei ausgeführt."), 4);
  protokoll_.schreiben(protokollGroesse(*neueLaenge) + QStringLiteral(", ") + ziel, 8);
  if (quelle.contains(tagesprotokoll(uhr_.jetzt().date()))) {
    return false;  // it grows while it is copied: the sizes say nothing
  }
  if (*laenge != *neueLaenge) {
    protokoll_.fehler(
        QStringLiteral("DateiKopieren hat nicht funktioniert weil unterschiedliche Dateigrößen: ") + namen,
        4);
  }
  return *laenge == *neueLaenge;
}

bool DateienFinden::kopieren(const QString& quelle, const QString& ziel, const Kopieroptionen& optionen) {
  if (!optionen.sanduhrAus) {
    oberflaeche_.sanduhr(true);
  }
  oberflaeche_.nachrichtenVerarbeiten();
  if (optionen.weg == Kopierweg::Alt) {
    protokoll_.schreiben(QStringLiteral("Variante 1 (alte Methode) wird verwendet"), 8);
    oberflaeche_.nachrichtenVerarbeiten();
    Warten(0);
  } else {
    protokoll_.schreiben(QStringLiteral("Variante 2 (neue Methode) wird verwendet"), 8);
  }
  const bool kopiert = dateien_.kopieren(quelle, ziel).ok();
  oberflaeche_.sanduhr(false);
  return kopiert;
}

bool DateienFinden::kopierzielPruefen(const QString& quelle, const QString& ziel,
                                      const Kopieroptionen& optionen) {
  const auto melden = [&](const QString& text) {
    if (optionen.meldungenZeigen) {
      meldungen_.zeigen({text, Symbol::Kritisch});
    }
  };
  const QString ordner = OrdnerAusPfad(ziel);
  if (!PfadExistiert(ordner)) {
    protokoll_.schreiben(QStringLiteral("DateiKopieren abgebrochen, weil Zielordner nicht existiert."), 4);
    meldungen_.zeigen({QStringLiteral("Der Ordner ") + ordner +
                           QStringLiteral(" existiert nicht! Kopieren der Datei ist nicht möglich!"),
                       Symbol::Kritisch});
    return false;
  }
  if (!DateiVorhanden(ziel)) {
    return true;
  }
  if (!optionen.ueberschreiben) {
    protokoll_.fehler(QStringLiteral("DateiKopieren abgebrochen, weil die Zieldatei ") + quelle +
                          QStringLiteral(" mit gleichem Namen schon vorhanden ist."),
                      4);
    protokoll_.fehler(ziel, 8);
    melden(QStringLiteral("Das Kopieren der Datei wurde abgebrochen, weil die Zieldatei ") + ziel +
           QStringLiteral(" mit gleichem Namen schon vorhanden ist!"));
    return false;
  }
  if (!DateiLoeschen(ziel, 4)) {
    protokoll_.fehler(
        QStringLiteral("DateiKopieren abgebrochen, weil die Zieldatei nicht gelöscht werden konnte."), 4);
    protokoll_.fehler(ziel, 8);
    melden(QStringLiteral("Das Kopieren der Datei ") + ziel +
           QStringLiteral(" konnte nicht durchgeführt werden, weil die schon existierende Datei nicht "
                          "gelöscht werden konnte."));
    return false;
  }
  return true;
}

bool DateienFinden::kopierquellePruefen(const QString& quelle) {
  if (!DateiVorhanden(quelle)) {
    protokoll_.fehler(QStringLiteral("DateiKopieren abgebrochen, weil die Quelldatei nicht existiert."), 4);
    return false;
  }
  if (!DateiFrei(quelle)) {
    protokoll_.fehler(QStringLiteral("DateiKopieren abgebrochen, weil die Quelldatei benutzt wird."), 4);
    return false;
  }
  return true;
}

bool DateienFinden::kopierfehlerMelden() {
  const Dateifehler fehler{Dateifehlernummer::DateiNichtGefunden, QStringLiteral("Datei nicht gefunden")};
  protokoll_.fehler(QStringLiteral("Error %1 (").arg(fehler.nummer) + fehler.beschreibung +
                    QStringLiteral(") in procedure DateiKopieren of Modul DateienFinden"));
  meldungen_.zeigen({fehlerbericht(fehler, QStringLiteral("DateiKopieren"), QStringLiteral("DateienFinden"),
                                   QStringLiteral("im")),
                     Symbol::Keines});
  return false;
}

}  // namespace pelvanto
