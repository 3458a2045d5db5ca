#include "support/datei_ausfuehren.h"

#include "support/blanks.h"

namespace pelvanto {

namespace {

// Doubled separators become single ones, but not at the start: there they belong to a network path.
QString mitEinfachenTrennern(const QString& datei) {
  constexpr qsizetype anfang = 2;
  return datei.left(anfang) + datei.mid(anfang)
                                  .replace(QStringLiteral("//"), QStringLiteral("/"))
                                  .replace(QStringLiteral("\\\\"), QStringLiteral("\\"));
}

}  // namespace

DateiAusfuehren::DateiAusfuehren(Anwendungen& anwendungen, const DateienFinden& dateien, Protokoll& protokoll,
                                 Meldungen& meldungen, Uhr& uhr)
    : anwendungen_(anwendungen), dateien_(dateien), protokoll_(protokoll), meldungen_(meldungen), uhr_(uhr) {}

void DateiAusfuehren::ausfuehren(const QString& datei, int fensterart) {
  if (ohneAeussereBlanks(datei).isEmpty()) {
    return;
  }
  QString name = mitEinfachenTrennern(datei);
  if (name != datei) {
    protokoll_.fehler(QStringLiteral("DateiAusfuehren: Dateiname musste korrigiert werden von ") + datei +
                      QStringLiteral(" auf ") + name);
  }
  protokoll_.schreiben(QStringLiteral("DateiAusfuehren gestartet für: ") + name);
  if (!abwarten(name)) {
    meldungen_.zeigen(
        {QStringLiteral("Die Datei ") + name +
             QStringLiteral(" wurde nicht gefunden. Möglicherweise wurde sie verschoben oder gelöscht."),
         Symbol::Kritisch, Knoepfe::Ok, QStringLiteral("Datei nicht gefunden")});
    return;
  }
  const int antwort = anwendungen_.oeffnen(name, fensterart);
  if (antwort <= kOeffnenGelungenAb) {
    fehlerMelden(name, antwort);
  }
}

// False after eleven waits in vain.
bool DateiAusfuehren::abwarten(QString& name) {
  constexpr int versuche = 11;
  constexpr int pause = 1000;
  for (int versuch = 1; versuch <= versuche; ++versuch) {
    if (dateien_.DateiVorhanden(name)) {
      return true;
    }
    uhr_.warten(pause);
  }
  return false;
}

void DateiAusfuehren::fehlerMelden(const QString& name, int antwort) {
  if (antwort == kKeineAnwendung) {
    protokoll_.fehler(
        QStringLiteral("FunktionenFürAlle.DateiAusfuehren: Keine passende Anwendung für ShellExecute: ") +
        name);
    meldungen_.zeigen({QStringLiteral("Wahrscheinlich ist keine passende Anwendung vorhanden!"),
                       Symbol::Kritisch, Knoepfe::Ok, QStringLiteral("Fehler beim Aufruf")});
    return;
  }
  meldungen_.zeigen(
      {QStringLiteral("Fehler Nr. %1 beim Aufruf der Datei ").arg(antwort) + name, Symbol::Kritisch});
}

}  // namespace pelvanto
