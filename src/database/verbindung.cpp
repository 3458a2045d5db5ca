#include "database/verbindung.h"

#include <new>
#include <utility>

#include "database/engine_saetze.h"
#include "jet/users_file.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

// Room for page 0 and little more: enough where only the header is wanted.
constexpr std::size_t kKleinerSpeicher = 64u << 10;
// Of the pages of a connection.
constexpr std::size_t kSeitenspeicher = 32u << 20;
constexpr int kWeitereVersuche = 5;

QStringView alsView(const jet::Text& text) { return {text.data(), static_cast<qsizetype>(text.size())}; }

// Runs `arbeit`; what the engine throws leaves as Datenbankfehler.
template <class Arbeit>
auto uebersetzt(const QString& pfad, Arbeit&& arbeit) {
  try {
    return std::forward<Arbeit>(arbeit)();
  } catch (const jet::Error& fehler) {
    throw alsDatenbankfehler(fehler, pfad);
  } catch (const std::bad_alloc&) {
    throw speichermangel();
  }
}

}  // namespace

std::filesystem::path alsDateipfad(const QString& pfad) { return {pfad.toStdU16String()}; }

jet::ChangeStamp dateistand(jet::FilePool& dateien, const QString& pfad,
                            const jet::RecoverySink& wiederhergestellt) {
  return uebersetzt(
      pfad, [&] { return dateien.open(alsDateipfad(pfad), kKleinerSpeicher, wiederhergestellt)->stamp(); });
}

void vollstaendigLesen(jet::FilePool& dateien, const QString& pfad) {
  uebersetzt(pfad, [&] {
    jet::Database datenbank(dateien, alsDateipfad(pfad));
    for (const jet::TableEntry& eintrag : datenbank.tables()) {
      const jet::Table& tabelle = datenbank.table(eintrag.name);
      const std::size_t spalten = tabelle.definition().columns.size();
      jet::TableScan durchgang = tabelle.scan();
      jet::Row zeile;
      while (durchgang.next(zeile)) {
        for (std::size_t spalte = 0; spalte < spalten; ++spalte) static_cast<void>(zeile.value(spalte));
      }
    }
  });
}

Feldwert Abfrage::feld(QStringView name) const {
  for (std::size_t spalte = 0; spalte < ergebnis_.columns.size(); ++spalte) {
    if (alsView(ergebnis_.columns[spalte].name).compare(name, Qt::CaseInsensitive) != 0) continue;
    if (amEnde()) throw keinDatensatz();
    return alsFeldwert(ergebnis_.cell(static_cast<std::size_t>(zeile_), spalte));
  }
  throw keinFeld(name);
}

Verbindung::Verbindung(jet::FilePool& dateien, const QString& pfad, bool schreibgeschuetzt,
                       Oeffnungsmeldungen meldungen)
    : dateien_(dateien), pfad_(pfad), schreibgeschuetzt_(schreibgeschuetzt) {
  jet::OpenOptions optionen;
  optionen.cacheBytes = kSeitenspeicher;
  if (meldungen.warnung) {
    optionen.warn = [warnung = std::move(meldungen.warnung)](const std::string& text) {
      warnung(aufDeutsch(text));
    };
  }
  optionen.recovered = meldungen.wiederhergestellt;
  uebersetzt(pfad_, [&] {
    const std::shared_ptr<jet::PageFile> datei =
        dateien_.open(alsDateipfad(pfad_), optionen.cacheBytes, optionen.recovered);
    anfangsstand_ = datei->stamp();
    datenbank_ = std::make_unique<jet::Database>(dateien_, alsDateipfad(pfad_), optionen);
    sitzung_ = std::make_unique<jet::sql::Session>(*datenbank_);
  });
}

jet::sql::ResultSet Verbindung::ergebnis(const QString& sql) {
  letzteAbfrage_ = sql;
  const std::u16string_view text(reinterpret_cast<const char16_t*>(sql.utf16()),
                                 static_cast<std::size_t>(sql.size()));
  return uebersetzt(pfad_, [&] {
    jet::sql::ResultSet antwort = sitzung_->query(text);
    unterbrechungenMelden();
    return antwort;
  });
}

void Verbindung::unterbrechungenMelden() {
  for (const jet::RecoveryResult& ergebnis : datenbank_->pages().takeRecoveries()) {
    if (unterbrochen_) unterbrochen_(ergebnis);
  }
}

Abfrage Verbindung::abfragen(const QString& sql) { return Abfrage(ergebnis(sql)); }

void Verbindung::lesen(const std::function<void(jet::Database&)>& arbeit) {
  uebersetzt(pfad_, [&] { arbeit(*datenbank_); });
}

void Verbindung::schreiben(const std::function<void()>& warten,
                           const std::function<bool(jet::Transaction&, jet::Database&)>& arbeit) {
  if (schreibgeschuetzt_) throw nurLesendGeoeffnet(pfad_);
  for (int versuch = 0;; ++versuch) {
    try {
      schreibversuch(arbeit);
      unterbrechungenMelden();
      return;
    } catch (const jet::Error& fehler) {
      if (fehler.kind() != jet::ErrorKind::Busy) throw alsSchreibfehler(fehler, pfad_);
      if (versuch == kWeitereVersuche) throw besetzt();
    } catch (const std::bad_alloc&) {
      throw speichermangel();
    }
    warten();
  }
}

void Verbindung::schreibversuch(const std::function<bool(jet::Transaction&, jet::Database&)>& arbeit) {
  jet::Transaction vorgang(datenbank_->pages());
  if (arbeit(vorgang, *datenbank_)) vorgang.commit();
}

// Says who it is that has the file, as far as that can be known.
Datenbankfehler Verbindung::besetzt() const {
  bool benutzer = false;
  try {
    benutzer = jet::hasUsers(dateien_.files(), alsDateipfad(pfad_));
  } catch (const jet::Error&) {
    // Then it is not known.
  }
  return benutzer ? inVerbindoGeoeffnet(pfad_)
                  : alsSchreibfehler(jet::Error(jet::ErrorKind::Busy, {}), pfad_);
}

jet::ChangeStamp Verbindung::stand() const {
  return uebersetzt(pfad_, [&] { return datenbank_->stamp(); });
}

}  // namespace pelvanto
