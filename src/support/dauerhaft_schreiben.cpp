#include "support/dauerhaft_schreiben.h"

namespace pelvanto {

namespace {

QString fehlertext(const Dateifehler& fehler) {
  return QStringLiteral("Fehler %1 (").arg(fehler.nummer) + fehler.beschreibung + u')';
}

// The first name beside `pfad` that nobody has; empty if there are too many.
QString vorlaeufigerName(const Dateisystem& dateien, const QString& pfad) {
  constexpr int kVersuche = 99;
  QString name = pfad + QStringLiteral(".tmp");
  for (int i = 2; dateien.existiert(name); ++i) {
    if (i > kVersuche) return {};
    name = pfad + QStringLiteral(".tmp%1").arg(i);
  }
  return name;
}

class Schreibvorgang {
 public:
  Schreibvorgang(DateienFinden& dateien, Protokoll& protokoll, const QString& pfad, const QByteArray& inhalt)
      : dateien_(dateien),
        protokoll_(protokoll),
        pfad_(pfad),
        vorlaeufig_(vorlaeufigerName(dateien.dateisystem(), pfad)),
        inhalt_(inhalt) {}

  Schreibergebnis ausfuehren(Vorhandene vorhandene) {
    if (vorlaeufig_.isEmpty()) {
      return {QStringLiteral("Zu viele vorläufige Dateien (.tmp) mit diesem Namen im Ordner"), {}};
    }
    const Dateifehler fehler = dateien_.dateisystem().schreiben(vorlaeufig_, inhalt_);
    if (!fehler.ok()) {
      return {fehlertext(fehler), {}};
    }
    if (!enthaeltDenInhalt(vorlaeufig_)) {
      return {nichtZurueckgelesen(), {}};
    }
    if (vorhandene == Vorhandene::Weicht && dateien_.DateiVorhanden(pfad_)) {
      return ersetzen();
    }
    return {umbenennen(), {}};
  }

  // Removes what this call has made, never a file of somebody else; answers what is still there.
  QStringList aufraeumen() {
    QStringList uebrig;
    const bool eigene = umbenannt_ || (namensversuch_ && enthaeltDenInhalt(pfad_));
    for (const QString& datei : {vorlaeufig_, eigene ? pfad_ : QString()}) {
      if (!datei.isEmpty() && !dateien_.DateiLoeschen(datei, 4)) {
        uebrig << datei;
      }
    }
    return uebrig;
  }

 private:
  static QString nichtZurueckgelesen() {
    return QStringLiteral("Die geschriebene Datei konnte nicht fehlerfrei zurückgelesen werden");
  }

  // Why it failed; empty when the file is there.
  QString umbenennen() {
    namensversuch_ = true;
    Dateifehler fehler;
    umbenannt_ = dateien_.DateiUmbenennen(vorlaeufig_, pfad_, false, &fehler);
    if (!umbenannt_) {
      return QStringLiteral("Die Datei konnte nicht umbenannt werden, ") + fehlertext(fehler);
    }
    if (!dateien_.DateiVorhanden(pfad_)) {
      return QStringLiteral("Die Datei ist nach dem Umbenennen nicht zu finden");
    }
    fehler = dateien_.dateisystem().ordnerSpuelen(OrdnerAusPfad(pfad_));
    if (!fehler.ok()) {
      return fehlertext(fehler);
    }
    return enthaeltDenInhalt(pfad_) ? QString() : nichtZurueckgelesen();
  }

  Schreibergebnis ersetzen() {
    if (!dateien_.DateiErsetzen(vorlaeufig_, pfad_, 4)) {
      return {QStringLiteral("Die ältere Datei konnte nicht gelöscht werden"), {}, true};
    }
    // From here on only the new file is there: nothing may take it away again.
    const Dateifehler fehler = dateien_.dateisystem().ordnerSpuelen(OrdnerAusPfad(pfad_));
    if (!fehler.ok()) {
      protokoll_.fehler(fehlertext(fehler), 4);
    }
    return {};
  }

  bool enthaeltDenInhalt(const QString& datei) const {
    QByteArray gelesen;
    return dateien_.dateisystem().lesen(datei, gelesen).ok() && gelesen == inhalt_;
  }

  DateienFinden& dateien_;
  Protokoll& protokoll_;
  const QString& pfad_;
  const QString vorlaeufig_;
  const QByteArray& inhalt_;
  bool namensversuch_ = false;  // the new file may have its name
  bool umbenannt_ = false;
};

}  // namespace

Schreibergebnis dauerhaftSchreiben(DateienFinden& dateien, Protokoll& protokoll, const QString& pfad,
                                   const QByteArray& inhalt, Vorhandene vorhandene) {
  protokoll.schreiben(QStringLiteral("Datei wird jetzt geschrieben: ") + pfad);
  Schreibvorgang vorgang(dateien, protokoll, pfad, inhalt);
  Schreibergebnis ergebnis = vorgang.ausfuehren(vorhandene);
  if (ergebnis.fehler.isEmpty()) {
    protokoll.schreiben(pfad + QStringLiteral(" geschrieben."), 4);
    return ergebnis;
  }
  protokoll.fehler(QStringLiteral("Datei konnte nicht geschrieben werden: ") + pfad);
  protokoll.fehler(ergebnis.fehler, 4);
  ergebnis.uebrig = vorgang.aufraeumen();
  return ergebnis;
}

}  // namespace pelvanto
