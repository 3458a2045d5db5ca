#include "common/fakes.h"

namespace pelvanto::test {

void StoerDateisystem::stoereNummer(int nummer, Dateifehler fehler) {
  regeln_.push_back({QString(), nummer, QString(), std::move(fehler)});
}

void StoerDateisystem::stoere(const QString& vorgang, Dateifehler fehler, int nurAufruf,
                              const QString& nurPfad) {
  regeln_.push_back({vorgang, nurAufruf, nurPfad, std::move(fehler)});
}

Dateifehler StoerDateisystem::pruefen(const QString& vorgang, const QString& pfad) const {
  vorgaenge << vorgang + u' ' + pfad;
  if (vorVorgang) {
    vorVorgang(vorgaenge.back());
  }
  for (Regel& regel : regeln_) {
    if ((!regel.vorgang.isEmpty() && regel.vorgang != vorgang) || !pfad.contains(regel.pfad)) {
      continue;
    }
    ++regel.aufrufe;
    const int zaehler = regel.vorgang.isEmpty() ? anzahl() : regel.aufrufe;
    if (regel.nummer == 0 || regel.nummer == zaehler) {
      ++gestoert_;
      return regel.fehler;
    }
  }
  return {};
}

Dateifehler StoerDateisystem::oeffnenPruefen(const QString& pfad) const {
  const Dateifehler fehler = pruefen(QStringLiteral("oeffnenPruefen"), pfad);
  return fehler.ok() ? echt_.oeffnenPruefen(pfad) : fehler;
}

std::optional<Dateizeiten> StoerDateisystem::zeiten(const QString& pfad) const {
  return pruefen(QStringLiteral("zeiten"), pfad).ok() ? echt_.zeiten(pfad) : std::nullopt;
}

std::optional<qint64> StoerDateisystem::groesse(const QString& pfad) const {
  return pruefen(QStringLiteral("groesse"), pfad).ok() ? echt_.groesse(pfad) : std::nullopt;
}

Dateifehler StoerDateisystem::lesen(const QString& pfad, QByteArray& inhalt) const {
  const Dateifehler fehler = pruefen(QStringLiteral("lesen"), pfad);
  return fehler.ok() ? echt_.lesen(pfad, inhalt) : fehler;
}

Dateifehler StoerDateisystem::anhaengen(const QString& pfad, const QByteArray& inhalt) {
  const Dateifehler fehler = pruefen(QStringLiteral("anhaengen"), pfad);
  if (fehler.ok()) {
    return echt_.anhaengen(pfad, inhalt);
  }
  if (halbSchreiben) {
    echt_.anhaengen(pfad, inhalt.left(inhalt.size() / 2));
  }
  return fehler;
}

Dateifehler StoerDateisystem::schreiben(const QString& pfad, const QByteArray& inhalt) {
  const Dateifehler fehler = pruefen(QStringLiteral("schreiben"), pfad);
  if (fehler.ok()) {
    return echt_.schreiben(pfad, inhalt);
  }
  if (halbSchreiben) {
    echt_.schreiben(pfad, inhalt.left(inhalt.size() / 2));
  }
  return fehler;
}

Dateifehler StoerDateisystem::loeschen(const QString& pfad) {
  const Dateifehler fehler = pruefen(QStringLiteral("loeschen"), pfad);
  return fehler.ok() ? echt_.loeschen(pfad) : fehler;
}

Dateifehler StoerDateisystem::attributeLoeschen(const QString& pfad) {
  const Dateifehler fehler = pruefen(QStringLiteral("attributeLoeschen"), pfad);
  return fehler.ok() ? echt_.attributeLoeschen(pfad) : fehler;
}

Dateifehler StoerDateisystem::umbenennen(const QString& alt, const QString& neu) {
  const Dateifehler fehler = pruefen(QStringLiteral("umbenennen"), alt);
  return fehler.ok() ? echt_.umbenennen(alt, neu) : fehler;
}

Dateifehler StoerDateisystem::ersetzen(const QString& neu, const QString& ziel) {
  const Dateifehler fehler = pruefen(QStringLiteral("ersetzen"), ziel);
  return fehler.ok() ? echt_.ersetzen(neu, ziel) : fehler;
}

Dateifehler StoerDateisystem::kopieren(const QString& quelle, const QString& ziel) {
  const Dateifehler fehler = pruefen(QStringLiteral("kopieren"), quelle);
  return fehler.ok() ? echt_.kopieren(quelle, ziel) : fehler;
}

Dateifehler StoerDateisystem::ordnerAnlegen(const QString& ordner) {
  const Dateifehler fehler = pruefen(QStringLiteral("ordnerAnlegen"), ordner);
  return fehler.ok() ? echt_.ordnerAnlegen(ordner) : fehler;
}

Dateifehler StoerDateisystem::ordnerSpuelen(const QString& ordner) {
  const Dateifehler fehler = pruefen(QStringLiteral("ordnerSpuelen"), ordner);
  return fehler.ok() ? echt_.ordnerSpuelen(ordner) : fehler;
}

}  // namespace pelvanto::test
