#include "demo/seams.h"

#include <QThread>

#include <iostream>

#include "seams/real/echtes_gebietsschema.h"

namespace pelvanto::vorfuehrung {

Antwort GedruckteMeldungen::zeigen(const Meldung& meldung) {
  ++anzahl;
  const QString titel = meldung.titel.isEmpty() ? QStringLiteral("Pelvanto") : meldung.titel;
  std::cout << "  [" << titel.toStdString() << "] " << meldung.text.toStdString() << std::endl;
  return meldung.knoepfe == Knoepfe::Ok ? Antwort::Ok : Antwort::Nein;
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
