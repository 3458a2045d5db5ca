#include "database/verbindung.h"

#include <new>
#include <utility>

#include "database/engine_saetze.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

// Room for page 0 and little more: enough where only the header is wanted.
constexpr std::size_t kKleinerSpeicher = 64u << 10;

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

jet::ChangeStamp dateistand(jet::FileSystem& dateien, const QString& pfad) {
  return uebersetzt(pfad,
                    [&] { return jet::PageFile(dateien, alsDateipfad(pfad), kKleinerSpeicher).stamp(); });
}

void vollstaendigLesen(jet::FileSystem& dateien, const QString& pfad) {
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
    if (amEnde()) throw Datenbankfehler{3021, u"Kein aktueller Datensatz"_s};
    return alsFeldwert(ergebnis_.cell(static_cast<std::size_t>(zeile_), spalte));
  }
  throw alsDatenbankfehler(jet::Error(jet::ErrorKind::NoSuchColumn, name.toString().toStdString()), {});
}

Verbindung::Verbindung(jet::FileSystem& dateien, const QString& pfad, bool schreibgeschuetzt,
                       std::function<void(const QString&)> warnung)
    : pfad_(pfad), schreibgeschuetzt_(schreibgeschuetzt), anfangsstand_(dateistand(dateien, pfad)) {
  jet::OpenOptions optionen;
  if (warnung) {
    optionen.warn = [warnung = std::move(warnung)](const std::string& text) { warnung(aufDeutsch(text)); };
  }
  uebersetzt(pfad_, [&] {
    datenbank_ = std::make_unique<jet::Database>(dateien, alsDateipfad(pfad_), std::move(optionen));
    sitzung_ = std::make_unique<jet::sql::Session>(*datenbank_);
  });
}

Abfrage Verbindung::abfragen(const QString& sql) {
  letzteAbfrage_ = sql;
  const std::u16string_view text(reinterpret_cast<const char16_t*>(sql.utf16()),
                                 static_cast<std::size_t>(sql.size()));
  return uebersetzt(pfad_, [&] { return Abfrage(sitzung_->query(text)); });
}

jet::ChangeStamp Verbindung::stand() const {
  return uebersetzt(pfad_, [&] { return datenbank_->stamp(); });
}

}  // namespace pelvanto
