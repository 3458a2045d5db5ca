#pragma once

#include <cstdint>

namespace jet {

// Where a row's head slot stands; it never changes while the row lives. Ordered as stored: page, then slot.
struct RowId {
  std::uint32_t page = 0;
  std::uint8_t slot = 0;
  auto operator<=>(const RowId&) const = default;

  static RowId fromPointer(std::uint32_t pointer) {
    return {pointer >> 8, static_cast<std::uint8_t>(pointer & 0xFF)};
  }
  std::uint32_t pointer() const { return page << 8 | slot; }
};

}  // namespace jet
