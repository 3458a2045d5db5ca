#include "lists/liste.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "jet/collation.h"

namespace pelvanto {
namespace {

constexpr QStringView kZeilenpraefix = u"Msg_";

// What the text of this column weighs in the order of the database. The hidden first column is empty.
std::string gewicht(const Zeile& zeile, int spalte) {
  std::string gewicht;
  if (spalte < 1 || spalte > zeile.texte.size()) return gewicht;
  const QString& text = zeile.texte[spalte - 1];
  jet::collation::appendSortKey(
      {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<std::size_t>(text.size())}, gewicht);
  return gewicht;
}

}  // namespace

QString zeilenschluessel(int id) { return kZeilenpraefix.toString() + QString::number(id); }

int Zeile::id() const { return QStringView(schluessel).mid(kZeilenpraefix.size()).toInt(); }

void Liste::spaltenSetzen(std::vector<Spalte> spalten) {
  spalten_ = std::move(spalten);
  ++stand_;
}

void Liste::spaltenbreiteSetzen(int spalte, int twips) {
  spalten_.at(static_cast<std::size_t>(spalte)).breite = twips;
}

void Liste::leeren() {
  zeilen_.clear();
  schluessel_.clear();
  ungeordnet_ = false;
  ++stand_;
}

bool Liste::hinzufuegen(const QString& schluessel, QStringList texte) {
  if (!schluessel_.insert(schluessel).second) return false;
  zeilen_.push_back({schluessel, std::move(texte)});
  ungeordnet_ = sortierspalte_.has_value();
  ++stand_;
  return true;
}

int Liste::hinzufuegen(std::vector<Zeile> zeilen) {
  zeilen_.reserve(zeilen_.size() + zeilen.size());
  int uebersprungen = 0;
  for (Zeile& zeile : zeilen) {
    if (!schluessel_.insert(zeile.schluessel).second) {
      ++uebersprungen;
      continue;
    }
    zeilen_.push_back(std::move(zeile));
  }
  ungeordnet_ = sortierspalte_.has_value();
  ++stand_;
  return uebersprungen;
}

void Liste::textSetzen(int zeile, int feld, const QString& text) {
  ordnen();
  zeilen_.at(static_cast<std::size_t>(zeile)).texte[feld] = text;
  ++stand_;
}

void Liste::markieren(int zeile, bool markiert) {
  ordnen();
  zeilen_.at(static_cast<std::size_t>(zeile)).markiert = markiert;
}

int Liste::MarkierteLoeschen() {
  const auto geloescht = std::erase_if(zeilen_, [this](const Zeile& zeile) {
    if (zeile.markiert) schluessel_.erase(zeile.schluessel);
    return zeile.markiert;
  });
  if (geloescht > 0) ++stand_;
  return static_cast<int>(geloescht);
}

void Liste::spalteAngeklickt(int spalte) {
  if (spalte < 0 || static_cast<std::size_t>(spalte) >= spalten_.size()) return;
  const QString& schluessel = spalten_[static_cast<std::size_t>(spalte)].schluessel;
  if (schluessel == LetzteSortierSpalte_) {
    aufsteigend_ = !aufsteigend_;
  } else if (sortierbar_.contains(schluessel)) {
    sortierspalte_ = spalte;
    aufsteigend_ = true;
    LetzteSortierSpalte_ = schluessel;
  } else {
    LetzteSortierSpalte_.clear();
    return;
  }
  ungeordnet_ = true;
  ++stand_;
}

void Liste::ordnen() const {
  if (!ungeordnet_) return;
  ungeordnet_ = false;
  std::vector<std::pair<std::string, std::size_t>> reihenfolge;
  reihenfolge.reserve(zeilen_.size());
  for (const Zeile& zeile : zeilen_) {
    reihenfolge.emplace_back(gewicht(zeile, *sortierspalte_), reihenfolge.size());
  }
  // Rows with equal texts keep their order, in both directions.
  std::sort(reihenfolge.begin(), reihenfolge.end(), [this](const auto& links, const auto& rechts) {
    const int vergleich = links.first.compare(rechts.first);
    if (vergleich == 0) return links.second < rechts.second;
    return aufsteigend_ ? vergleich < 0 : vergleich > 0;
  });
  std::vector<Zeile> geordnet;
  geordnet.reserve(zeilen_.size());
  for (const auto& platz : reihenfolge) geordnet.push_back(std::move(zeilen_[platz.second]));
  zeilen_ = std::move(geordnet);
}

}  // namespace pelvanto
