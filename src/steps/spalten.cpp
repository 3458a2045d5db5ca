#include "steps/spalten.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

// Kept free for the list's frame and its scroll bar, twips.
constexpr int kRand = 400;

}  // namespace

std::vector<Spalte> spaltenFuer(int listenbreite, std::initializer_list<Spaltenmass> masse) {
  std::vector<Spalte> spalten{{u"ID"_s, u"ID"_s, 0}};
  for (const Spaltenmass& mass : masse) {
    const auto breite = static_cast<int>(std::lround((listenbreite - kRand) * mass.anteil));
    spalten.push_back({mass.schluessel.isEmpty() ? mass.beschriftung : mass.schluessel, mass.beschriftung,
                       breite, mass.ausrichtung});
  }
  return spalten;
}

std::vector<Spalte> personenspalten(int listenbreite, double name, double adresse, double telefon) {
  return spaltenFuer(listenbreite, {{u"Name"_s, name}, {u"Adresse"_s, adresse}, {u"Telefon"_s, telefon}});
}

}  // namespace pelvanto
