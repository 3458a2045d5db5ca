#include "database/tabelle.h"

#include <algorithm>
#include <utility>

#include "jet/write/table_writer.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

QStringView alsView(const jet::Text& text) { return {text.data(), static_cast<qsizetype>(text.size())}; }

bool sindGleich(const std::vector<jet::ColumnDefinition>& eine,
                const std::vector<jet::ColumnDefinition>& andere) {
  return std::ranges::equal(eine, andere, [](const auto& links, const auto& rechts) {
    return links.name == rechts.name && links.type == rechts.type && links.number == rechts.number;
  });
}

}  // namespace

Tabelle::Tabelle(Verbindung& verbindung, const QString& sql, std::function<void()> warten)
    : verbindung_(&verbindung), warten_(std::move(warten)) {
  const jet::sql::ResultSet ergebnis = verbindung.ergebnis(sql);
  verbindung.lesen([&](jet::Database& datenbank) {
    if (ergebnis.table.empty()) {
      throw jet::Error(jet::ErrorKind::NotWritable, "only rows of one table without an order are changed");
    }
    name_ = ergebnis.table;
    const jet::Table& tabelle = datenbank.table(name_);
    spalten_ = tabelle.definition().columns;
    for (const jet::sql::ResultColumn& feld : ergebnis.columns) {
      felder_.push_back(tabelle.findColumn(feld.name).value());
    }
    zeilen_.reserve(ergebnis.rows.size());
    for (const jet::RowId id : ergebnis.rows) zeilen_.push_back(gelesen(tabelle, id));
  });
}

Tabelle::Zeile Tabelle::gelesen(const jet::Table& tabelle, jet::RowId id) const {
  Zeile zeile{id, {}};
  const jet::Row gespeicherte = tabelle.fetch(id);
  zeile.werte.reserve(spalten_.size());
  for (std::size_t i = 0; i < spalten_.size(); ++i) zeile.werte.push_back(gespeicherte.value(i));
  return zeile;
}

void Tabelle::weiter() {
  gesetzt_.clear();
  if (!std::exchange(neu_, false)) ++aktuelle_;
}

std::size_t Tabelle::spalte(QStringView name) const {
  for (const std::size_t position : felder_) {
    if (alsView(spalten_[position].name).compare(name, Qt::CaseInsensitive) != 0) continue;
    if (amEnde()) throw keinDatensatz();
    return position;
  }
  throw keinFeld(name);
}

Feldwert Tabelle::feld(QStringView name) const {
  const std::size_t position = spalte(name);
  const auto gesetzter = gesetzt_.find(position);
  if (gesetzter != gesetzt_.end()) return alsFeldwert(gesetzter->second);
  return neu_ ? Feldwert() : alsFeldwert(zeilen_[aktuelle_].werte[position]);
}

void Tabelle::hinzufuegen() {
  gesetzt_.clear();
  neu_ = true;
}

void Tabelle::setzen(QStringView name, const Feldwert& wert) {
  const std::size_t position = spalte(name);
  try {
    gesetzt_[position] = alsJetWert(wert, spalten_[position]);
  } catch (const jet::Error& fehler) {
    gesetzt_.erase(position);
    throw alsSchreibfehler(fehler, verbindung_->pfad());
  }
}

void Tabelle::speichern() {
  if (amEnde()) throw keinDatensatz();
  if (!neu_ && gesetzt_.empty()) return;
  Zeile neue;
  verbindung_->schreiben(warten_, [&](jet::Transaction& vorgang, jet::Database& datenbank) {
    neue = gespeichert(vorgang, datenbank);
    return true;
  });
  if (std::exchange(neu_, false)) aktuelle_ = static_cast<std::size_t>(anzahl());
  if (aktuelle_ == zeilen_.size()) zeilen_.emplace_back();
  zeilen_[aktuelle_] = std::move(neue);
  gesetzt_.clear();
}

// Saves within the transaction; answers the row as it stands then.
Tabelle::Zeile Tabelle::gespeichert(jet::Transaction& vorgang, jet::Database& datenbank) const {
  jet::write::TableWriter schreiber(vorgang, datenbank, name_);
  if (!sindGleich(spalten_, schreiber.definition().columns)) {
    throw jet::Error(jet::ErrorKind::Conflict, "the table's columns have changed");
  }
  jet::write::RowValues werte(spalten_.size());
  for (const auto& [position, wert] : gesetzt_) werte[position] = wert;
  jet::RowId id;
  if (neu_) {
    id = schreiber.insert(werte);
  } else {
    const Zeile& bisherige = zeilen_[aktuelle_];
    id = bisherige.id;
    const jet::Table& tabelle = datenbank.table(name_);
    if (!tabelle.hasRow(id) || gelesen(tabelle, id).werte != bisherige.werte) {
      throw jet::Error(jet::ErrorKind::Conflict, "the row has been changed or deleted");
    }
    schreiber.update(id, werte);
  }
  return gelesen(datenbank.table(name_), id);
}

}  // namespace pelvanto
