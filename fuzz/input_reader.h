#pragma once

#include <cstdint>

#include "fuzz/targets.h"

namespace jet::fuzz {

// Takes an input apart piece by piece; behind its end come zeros, so that every input means something.
class InputReader {
 public:
  explicit InputReader(Input input) : input_(input) {}

  bool atEnd() const { return input_.empty(); }
  std::uint8_t u8() {
    if (input_.empty()) return 0;
    const std::uint8_t byte = input_.front();
    input_ = input_.subspan(1);
    return byte;
  }
  std::uint16_t u16() {
    const std::uint16_t low = u8();
    return static_cast<std::uint16_t>(low | u8() << 8);
  }
  std::uint32_t u32() {
    const std::uint32_t low = u16();
    return low | std::uint32_t{u16()} << 16;
  }
  Input rest() const { return input_; }

 private:
  Input input_;
};

}  // namespace jet::fuzz
