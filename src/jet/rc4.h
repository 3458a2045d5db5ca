#pragma once

#include <cstdint>
#include <span>

namespace jet {

// The RC4 cipher, in place; applied twice it gives the old bytes back. Used for page 0 and encoded pages.
// The key must not be empty.
void rc4(std::span<const std::uint8_t> key, std::span<std::uint8_t> bytes);

}  // namespace jet
