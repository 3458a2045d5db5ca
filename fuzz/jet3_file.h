#pragma once

#include <cstdint>
#include <vector>

namespace jet::fuzz {

// A small sound file of Jet 3 with one table "Alt": a long with an index, texts, a memo of each kind, rows
// longer than 256 bytes.
std::vector<std::uint8_t> makeJet3File();

}  // namespace jet::fuzz
