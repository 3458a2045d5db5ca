#pragma once

#include <cstdint>
#include <vector>

namespace pelvanto::beispiel {

// verbindo.ini: Windows-1252, lines end with CR LF. The section "Auszahlungen" is filled so that the payout
// of `jahr` can be made by pressing buttons only; before and behind it stand sections of Verbindo.
std::vector<std::uint8_t> einstellungsdatei(int jahr);

}  // namespace pelvanto::beispiel
