#pragma once

#include <cstdint>

#include "sample/verbindo_tabellen.h"

namespace pelvanto::beispiel {

namespace gruppe {
inline constexpr std::int32_t kunden = 1, lieferanten = 2, milchlieferanten = 3, beitragOhneJahr = 4,
                              beitragVorvorjahr = 5, beitragVorjahr = 6, beitragHeuer = 8,
                              qualitaetsprogramm = 11, bioBetriebe = 12, lieferantenNochmals = 14, leer = 15,
                              ausgetreten = 16, vorstand = 17, weihnachtspost = 19;
}

// The groups with their names; there are gaps in the numbers, and two groups are called "Lieferanten".
std::vector<Gruppe> alleGruppen(int jahr);

}  // namespace pelvanto::beispiel
