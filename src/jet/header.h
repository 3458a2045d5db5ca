#pragma once

#include <cstdint>
#include <span>

#include "jet/format.h"

namespace jet {

// What page 0 says.
struct Header {
  const Format* format = nullptr;
  std::uint32_t databaseKey = 0;  // not 0: pages are encoded
  bool hasPassword = false;
  std::uint16_t sortOrder = sortOrderGeneral;
  std::uint8_t sortOrderVersion = 0;
  std::uint16_t codePage = 1252;
};

// Reads page 0 (at least the first 2048 bytes of the file). Errors: NotADatabase, UnsupportedFormat.
Header readHeader(std::span<const std::uint8_t> page0);

// Masks or unmasks the protected area of page 0 in place (the operation is its own inverse).
void maskHeader(std::span<std::uint8_t> page0, const Format& format);

}  // namespace jet
