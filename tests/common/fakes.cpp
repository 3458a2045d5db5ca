#include "common/fakes.h"

namespace pelvanto::test {

FakeUhr::FakeUhr() : zeit_(QDate(2026, 3, 16), QTime(8, 9, 10)) {}

void FakeUhr::warten(int millisekunden) {
  wartezeiten.push_back(millisekunden);
  if (laeuftBeimWarten) {
    zeit_ = zeit_.addMSecs(millisekunden);
  }
  if (beimWarten) {
    beimWarten(static_cast<int>(wartezeiten.size()));
  }
}

Antwort FakeMeldungen::zeigen(const Meldung& meldung) {
  gezeigt.push_back(meldung);
  if (beimZeigen) {
    beimZeigen(meldung);
  }
  if (meldung.knoepfe == Knoepfe::Ok) {
    return Antwort::Ok;
  }
  if (antworten.empty()) {
    ++ungeplanteFragen;
    return Antwort::Nein;
  }
  const Antwort antwort = antworten.front();
  antworten.pop_front();
  return antwort;
}

std::optional<QString> FakeMeldungen::eingeben(const Eingabe& eingabe) {
  gefragt.push_back(eingabe);
  if (eingaben.empty()) {
    ++ungeplanteFragen;
    return std::nullopt;
  }
  const std::optional<QString> antwort = eingaben.front();
  eingaben.pop_front();
  return antwort;
}

QStringList FakeMeldungen::texte() const {
  QStringList liste;
  for (const Meldung& meldung : gezeigt) {
    liste << meldung.text;
  }
  return liste;
}

void FakeOberflaeche::nachrichtenVerarbeiten() {
  ++verarbeitet;
  if (beimVerarbeiten) {
    beimVerarbeiten();
  }
}

void FakeOberflaeche::sanduhr(bool an) {
  sanduhrAn = an;
  sanduhrFolge.push_back(an);
}

void FakeOberflaeche::fortschritt(int nummer, int anzahl) { fortschritte.emplace_back(nummer, anzahl); }

}  // namespace pelvanto::test
