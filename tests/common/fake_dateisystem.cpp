#include "common/fakes.h"

namespace pelvanto::test {

namespace {

Dateifehler fehlerMit(int nummer) { return {nummer, QStringLiteral("Fehler der Probe")}; }

QString elternordner(const QString& pfad) {
  const qsizetype stelle = std::max(pfad.lastIndexOf(u'/'), pfad.lastIndexOf(u'\\'));
  return stelle <= 0 ? QStringLiteral("/") : pfad.left(stelle);
}

}  // namespace

SpeicherDateisystem::Datei& SpeicherDateisystem::anlegen(const QString& pfad, const QByteArray& inhalt) {
  ordner(elternordner(pfad));
  return neueDatei(pfad, inhalt);
}

SpeicherDateisystem::Datei& SpeicherDateisystem::neueDatei(const QString& pfad, const QByteArray& inhalt) {
  Datei& datei = dateien_[pfad];
  datei = Datei{inhalt, {zeit, zeit, zeit}};
  neueFassung(datei);
  return datei;
}

SpeicherDateisystem::Datei* SpeicherDateisystem::datei(const QString& pfad) {
  const auto stelle = dateien_.find(pfad);
  return stelle == dateien_.end() ? nullptr : &stelle->second;
}

void SpeicherDateisystem::ordner(const QString& pfad) {
  for (QString teil = pfad; teil != QStringLiteral("/"); teil = elternordner(teil)) {
    ordner_.insert(teil);
  }
}

QByteArray SpeicherDateisystem::inhalt(const QString& pfad) const {
  const auto stelle = dateien_.find(pfad);
  return stelle == dateien_.end() ? QByteArray() : stelle->second.inhalt;
}

QStringList SpeicherDateisystem::pfade() const {
  QStringList liste;
  for (const auto& [pfad, datei] : dateien_) {
    liste << pfad;
  }
  return liste;
}

bool SpeicherDateisystem::existiert(const QString& pfad) const {
  return dateien_.contains(pfad) || istOrdner(pfad);
}

bool SpeicherDateisystem::istOrdner(const QString& pfad) const {
  const bool endetMitTrenner = pfad.size() > 1 && (pfad.endsWith(u'/') || pfad.endsWith(u'\\'));
  return ordner_.contains(endetMitTrenner ? pfad.chopped(1) : pfad);
}

Dateifehler SpeicherDateisystem::zugriff(const QString& pfad, bool schreibend) const {
  if (istOrdner(pfad)) {
    return fehlerMit(Dateifehlernummer::PfadZugriff);
  }
  const auto stelle = dateien_.find(pfad);
  if (stelle == dateien_.end()) {
    return fehlerMit(istOrdner(elternordner(pfad)) ? Dateifehlernummer::DateiNichtGefunden
                                                   : Dateifehlernummer::PfadNichtGefunden);
  }
  if (stelle->second.gesperrt) {
    return fehlerMit(Dateifehlernummer::ZugriffVerweigert);
  }
  return schreibend && stelle->second.nurLesen ? fehlerMit(Dateifehlernummer::PfadZugriff) : Dateifehler();
}

Dateifehler SpeicherDateisystem::neuesZiel(const QString& pfad) const {
  if (existiert(pfad)) {
    return fehlerMit(Dateifehlernummer::DateiExistiert);
  }
  return istOrdner(elternordner(pfad)) ? Dateifehler() : fehlerMit(Dateifehlernummer::PfadNichtGefunden);
}

Dateifehler SpeicherDateisystem::oeffnenPruefen(const QString& pfad) const { return zugriff(pfad, false); }

std::optional<Dateizeiten> SpeicherDateisystem::zeiten(const QString& pfad) const {
  return zugriff(pfad, false).ok() ? std::optional(dateien_.at(pfad).zeiten) : std::nullopt;
}

std::optional<qint64> SpeicherDateisystem::groesse(const QString& pfad) const {
  const auto stelle = dateien_.find(pfad);
  return stelle == dateien_.end() ? std::nullopt : std::optional<qint64>(stelle->second.inhalt.size());
}

QStringList SpeicherDateisystem::namen(const QString& ordner) const {
  QStringList liste;
  const auto aufnehmen = [&](const QString& pfad) {
    if (pfad != QStringLiteral("/") && elternordner(pfad) == ordner) {
      liste << pfad.mid(ordner == QStringLiteral("/") ? 1 : ordner.size() + 1);
    }
  };
  for (const auto& [pfad, datei] : dateien_) {
    aufnehmen(pfad);
  }
  for (const QString& pfad : ordner_) {
    aufnehmen(pfad);
  }
  liste.sort();
  return liste;
}

Dateifehler SpeicherDateisystem::lesen(const QString& pfad, QByteArray& inhalt) const {
  const Dateifehler fehler = zugriff(pfad, false);
  if (fehler.ok()) {
    inhalt = dateien_.at(pfad).inhalt;
  }
  return fehler;
}

Dateifehler SpeicherDateisystem::anhaengen(const QString& pfad, const QByteArray& inhalt) {
  return schreiben(pfad, this->inhalt(pfad) + inhalt);
}

Dateifehler SpeicherDateisystem::schreiben(const QString& pfad, const QByteArray& inhalt) {
  const Dateifehler fehler = zugriff(pfad, true);
  if (fehler.nummer == Dateifehlernummer::DateiNichtGefunden) {
    neueDatei(pfad, inhalt);
    return {};
  }
  if (fehler.ok()) {
    Datei& datei = dateien_[pfad];
    datei.inhalt = inhalt;
    datei.zeiten.letztesSchreiben = zeit;
    neueFassung(datei);
  }
  return fehler;
}

Dateifehler SpeicherDateisystem::loeschen(const QString& pfad) {
  const Dateifehler fehler = zugriff(pfad, true);
  if (fehler.ok()) {
    dateien_.erase(pfad);
  }
  return fehler;
}

Dateifehler SpeicherDateisystem::attributeLoeschen(const QString& pfad) {
  const auto stelle = dateien_.find(pfad);
  if (stelle == dateien_.end()) {
    return fehlerMit(Dateifehlernummer::DateiNichtGefunden);
  }
  stelle->second.nurLesen = false;
  return {};
}

Dateifehler SpeicherDateisystem::umbenennen(const QString& alt, const QString& neu) {
  Dateifehler fehler = zugriff(alt, false);
  if (fehler.ok()) {
    fehler = neuesZiel(neu);
  }
  if (fehler.ok()) {
    dateien_[neu] = dateien_.at(alt);
    dateien_.erase(alt);
  }
  return fehler;
}

Dateifehler SpeicherDateisystem::ersetzen(const QString& neu, const QString& ziel) {
  Dateifehler fehler = zugriff(neu, false);
  if (fehler.ok() && existiert(ziel)) {
    fehler = zugriff(ziel, true);
  }
  if (fehler.ok()) {
    dateien_[ziel] = dateien_.at(neu);
    dateien_.erase(neu);
  }
  return fehler;
}

Dateifehler SpeicherDateisystem::kopieren(const QString& quelle, const QString& ziel) {
  QByteArray bytes;
  const Dateifehler fehler = lesen(quelle, bytes);
  return fehler.ok() ? schreiben(ziel, bytes) : fehler;
}

Dateifehler SpeicherDateisystem::ordnerAnlegen(const QString& ordner) {
  const Dateifehler fehler = neuesZiel(ordner);
  if (fehler.nummer == Dateifehlernummer::DateiExistiert) {
    return fehlerMit(Dateifehlernummer::PfadZugriff);
  }
  if (fehler.ok()) {
    ordner_.insert(ordner);
  }
  return fehler;
}

Dateifehler SpeicherDateisystem::ordnerSpuelen(const QString& ordner) {
  return istOrdner(ordner) ? Dateifehler() : fehlerMit(Dateifehlernummer::PfadNichtGefunden);
}

}  // namespace pelvanto::test
