#pragma once

#include <cstdint>

namespace jet::encode {

// Of Jet 4, the only version that is written.
inline constexpr std::uint32_t pageSize = 4096;
inline constexpr std::uint64_t largestFile = std::uint64_t{2} << 30;  // bytes; where the format ends

}  // namespace jet::encode
