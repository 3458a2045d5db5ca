#include "database/datenbank_routinen.h"

#include <cstdint>
#include <utility>

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

constexpr int kVersuche = 5;
constexpr int kPauseMillisekunden = 500;

// Size and time of the last change; unlike the change stamp it needs no readable header. nullopt if the file
// cannot be opened.
using Schreibspur = std::optional<std::pair<std::uint64_t, std::int64_t>>;

Schreibspur schreibspur(jet::FilePool& dateien, const QString& pfad) {
  try {
    const std::unique_ptr<jet::File> datei = dateien.files().openShared(alsDateipfad(pfad));
    return std::pair{datei->size(), datei->lastWriteTime()};
  } catch (const jet::Error&) {
    return std::nullopt;
  }
}

}  // namespace

DatenbankRoutinen::DatenbankRoutinen(jet::FilePool& jetDateien, DateienFinden& dateien, Protokoll& protokoll,
                                     Meldungen& meldungen, Oberflaeche& oberflaeche, Uhr& uhr)
    : jetDateien_(jetDateien),
      dateien_(dateien),
      protokoll_(protokoll),
      meldungen_(meldungen),
      oberflaeche_(oberflaeche),
      uhr_(uhr) {}

std::optional<jet::ChangeStamp> DatenbankRoutinen::stand(const QString& Pfad) {
  std::optional<jet::ChangeStamp> stand;
  try {
    mitMeldung(Pfad, [&](const jet::RecoverySink& melden) { stand = dateistand(jetDateien_, Pfad, melden); });
  } catch (const Datenbankfehler&) {
    return std::nullopt;
  }
  return stand;
}

std::function<void()> DatenbankRoutinen::pause() {
  return [this] { uhr_.warten(kPauseMillisekunden); };
}

std::unique_ptr<Verbindung> DatenbankRoutinen::direktOeffnen(const QString& Pfad, bool Schreibgeschuetzt) {
  std::unique_ptr<Verbindung> verbindung;
  mitMeldung(Pfad, [&](const jet::RecoverySink& melden) {
    const auto hinweisen = [this](const QString& hinweis) {
      protokoll_.schreiben(u"Hinweis zur Datenbank: "_s + hinweis);
    };
    verbindung = std::make_unique<Verbindung>(jetDateien_, Pfad, Schreibgeschuetzt,
                                              Oeffnungsmeldungen{hinweisen, melden});
  });
  verbindung->beiUnterbrechung(
      [this, Pfad](const jet::RecoveryResult& ergebnis) { unterbrechungMelden(Pfad, ergebnis); });
  return verbindung;
}

bool DatenbankRoutinen::DatenbankOeffnenVersuch(std::unique_ptr<Verbindung>& Verbindung, const QString& Pfad,
                                                bool Schreibgeschuetzt, bool& Beschaedigt) {
  Verbindung.reset();
  const Schreibspur vorher = schreibspur(jetDateien_, Pfad);
  try {
    Verbindung = direktOeffnen(Pfad, Schreibgeschuetzt);
    return true;
  } catch (const Datenbankfehler& gefangen) {
    Datenbankfehler fehler = gefangen;
    // What looks damaged while another program is writing is only half written: nobody may offer to replace
    // such a file.
    if (istBeschaedigung(fehler) && vorher != schreibspur(jetDateien_, Pfad)) {
      fehler = alsDatenbankfehler(jet::Error(jet::ErrorKind::Busy, {}), Pfad);
    }
    if (istBeschaedigung(fehler)) Beschaedigt = true;
    fehlerProtokollieren(u"Fehler %1 ("_s.arg(fehler.nummer) + fehler.beschreibung +
                         u") in Prozedur DatenbankOeffnenVersuch in Modul DatenbankRoutinen: "_s + Pfad);
    return false;
  }
}

bool DatenbankRoutinen::DatenbankOeffnen(std::unique_ptr<Verbindung>& Verbindung, const QString& Pfad,
                                         bool Schreibgeschuetzt, bool MeldungZeigen) {
  if (Schreibgeschuetzt) {
    fehlerProtokollieren(u"Datenbank soll schreibgeschützt geöffnet werden: "_s + Pfad);
  }
  if (!dateien_.DateiVorhanden(Pfad)) return false;

  bool beschaedigt = false;
  Sicherungskopien kopien;
  for (int versuch = 1; versuch <= kVersuche; ++versuch) {
    oberflaeche_.nachrichtenVerarbeiten();
    if (DatenbankOeffnenVersuch(Verbindung, Pfad, Schreibgeschuetzt, beschaedigt)) {
      if (versuch > 1) {
        fehlerProtokollieren(u"Öffnen hat funktioniert bei lngZaehler = %1: "_s.arg(versuch) + Pfad, 4);
      }
      return true;
    }
    fehlerProtokollieren(u"intZaehler = %1"_s.arg(versuch), 4);
    if (beschaedigt) sicherungskopieAnbieten(Pfad, kopien);
    pause()();
  }

  const QString text = u"Datenbank konnte nicht geöffnet werden: "_s + Pfad;
  fehlerProtokollieren(text);
  if (MeldungZeigen) meldungen_.zeigen({text, Symbol::Kritisch});
  return false;
}

}  // namespace pelvanto
