#include "sample/gruppen.h"

#include <string>

namespace pelvanto::beispiel {

namespace {

Text beitrag(int jahr) {
  const std::string ziffern = std::to_string(jahr);
  return u"Mitgliedsbeitrag " + Text(ziffern.begin(), ziffern.end());
}

}  // namespace

std::vector<Gruppe> alleGruppen(int jahr) {
  return {{gruppe::kunden, u"Kunden"},
          {gruppe::lieferanten, u"Lieferanten"},
          {gruppe::milchlieferanten, u"Milchlieferanten"},
          {gruppe::beitragOhneJahr, u"Mitgliedsbeitrag"},
          {gruppe::beitragVorvorjahr, beitrag(jahr - 2)},
          {gruppe::beitragVorjahr, beitrag(jahr - 1)},
          {gruppe::beitragHeuer, beitrag(jahr)},
          {gruppe::qualitaetsprogramm, u"Qualitätsprogramm"},
          {gruppe::bioBetriebe, u"Bio-Betriebe"},
          {gruppe::lieferantenNochmals, u"Lieferanten"},
          {gruppe::leer, u"Leere Gruppe"},
          {gruppe::ausgetreten, u"Milchlieferanten ausgetreten"},
          {gruppe::vorstand, u"Vorstand"},
          {gruppe::weihnachtspost, u"Weihnachtspost"},
          {20, std::nullopt}};
}

}  // namespace pelvanto::beispiel
