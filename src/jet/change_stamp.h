#pragma once

#include <array>
#include <cstdint>

namespace jet {

// What tells whether another program wrote: two equal stamps mean an unchanged file.
struct ChangeStamp {
  std::uint64_t size = 0;  // bytes
  std::int64_t lastWriteTime = 0;
  std::array<std::uint8_t, 512> commitBytes{};
  bool operator==(const ChangeStamp&) const = default;
};

}  // namespace jet
