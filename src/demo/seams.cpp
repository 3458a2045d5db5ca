#include "demo/seams.h"

#include <QApplication>
#include <QDialog>
#include <QThread>
#include <QTimer>

#include <iostream>

#include "demo/bilder.h"
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

Antwort FotografierteMeldungen::zeigen(const Meldung& meldung) {
  const Antwort antwort = GedruckteMeldungen::zeigen(meldung);
  beimOeffnenFotografieren(meldung.titel);
  echte_.zeigen(meldung);
  return antwort;
}

std::optional<QString> FotografierteMeldungen::eingeben(const Eingabe& eingabe) {
  beimOeffnenFotografieren(eingabe.titel);
  echte_.eingeben(eingabe);
  return GedruckteMeldungen::eingeben(eingabe);
}

// The box runs its own loop of events, and gets this one there.
void FotografierteMeldungen::beimOeffnenFotografieren(const QString& titel) {
  const QString name =
      QStringLiteral("meldung-%1-%2").arg(anzahl, 2, 10, QChar(u'0')).arg(titel.section(u' ', 0, 0));
  QTimer::singleShot(0, [this, name] {
    auto* kasten = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!kasten) return;
    bilderSpeichern(*kasten, ordner_, name);
    kasten->reject();
  });
}

QDateTime Vorfuehruhr::jetzt() const { return fest_.isValid() ? fest_ : QDateTime::currentDateTime(); }

void Vorfuehruhr::warten(int millisekunden) { QThread::msleep(static_cast<unsigned long>(millisekunden)); }

Zahlenzeichen Sprachschema::zahlenzeichen() const { return zahlenzeichenAus(sprache_); }

}  // namespace pelvanto::vorfuehrung
