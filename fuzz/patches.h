#pragma once

#include <cstdint>
#include <vector>

#include "fuzz/input_reader.h"
#include "jet/format.h"

namespace jet::fuzz {

using Content = std::vector<std::uint8_t>;

// A number that gives a page its structure: where it stands in the file, and its length.
struct Place {
  std::size_t offset = 0;
  unsigned bytes = 0;
};

// All such numbers of a sound file: of the header, of data pages and some of their rows, of definitions, of
// index pages and usage maps.
std::vector<Place> structuralPlaces(const Content& file, const Format& format);

// A random file is refused at once, so inputs are changes of a sound one: reads records to the input's end
// and does what each says. `places` are those of `file` as it was.
void applyPatches(InputReader& input, const std::vector<Place>& places, std::size_t pageSize, Content& file);

}  // namespace jet::fuzz
