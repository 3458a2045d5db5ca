#include "demo/seams.h"

#include <QThread>

#include <iostream>

#include "seams/real/echtes_gebietsschema.h"

namespace pelvanto::vorfuehrung {

namespace {

// The questions whose yes leaves something in the folder.
bool hinterlaesstEtwas(const QString& frage) {
  return frage.startsWith(QLatin1StringView("CSV-Datei")) ||
         frage.contains(QStringLiteral("Soll eine Liste über alle Überweisungen"));
}

}  // namespace

Antwort GedruckteMeldungen::zeigen(const Meldung& meldung) {
  ++anzahl;
  const QString titel = meldung.titel.isEmpty() ? QStringLiteral("Pelvanto") : meldung.titel;
  std::cout << "  [" << titel.toStdString() << "] " << meldung.text.toStdString() << std::endl;
  if (meldung.knoepfe == Knoepfe::Ok) return Antwort::Ok;
  return hinterlaesstEtwas(meldung.text) ? Antwort::Ja : Antwort::Nein;
}

std::optional<QString> GedruckteMeldungen::eingeben(const Eingabe& eingabe) {
  ++anzahl;
  std::cout << "  [" << eingabe.titel.toStdString() << "] " << eingabe.text.toStdString() << std::endl;
  return std::nullopt;
}

QDateTime Vorfuehruhr::jetzt() const { return fest_.isValid() ? fest_ : QDateTime::currentDateTime(); }

void Vorfuehruhr::warten(int millisekunden) { QThread::msleep(static_cast<unsigned long>(millisekunden)); }

Zahlenzeichen Sprachschema::zahlenzeichen() const { return zahlenzeichenAus(sprache_); }

}  // namespace pelvanto::vorfuehrung
