#include "jet/rc4.h"

#include <array>
#include <utility>

namespace jet {

void rc4(std::span<const std::uint8_t> key, std::span<std::uint8_t> bytes) {
  std::array<std::uint8_t, 256> state;
  for (unsigned i = 0; i < 256; ++i) state[i] = static_cast<std::uint8_t>(i);
  for (std::uint8_t i = 0, j = 0;;) {
    j = static_cast<std::uint8_t>(j + state[i] + key[i % key.size()]);
    std::swap(state[i], state[j]);
    if (++i == 0) break;
  }
  std::uint8_t i = 0, j = 0;
  for (std::uint8_t& byte : bytes) {
    j = static_cast<std::uint8_t>(j + state[++i]);
    std::swap(state[i], state[j]);
    byte ^= state[static_cast<std::uint8_t>(state[i] + state[j])];
  }
}

}  // namespace jet
