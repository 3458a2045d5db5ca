#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace jet {

// The writing side of `ByteReader`: numbers into bytes, little endian. The target is always a buffer of our
// own, so the caller knows its size.
inline void put16(std::span<std::uint8_t> target, std::size_t offset, std::uint32_t value) {
  target[offset] = static_cast<std::uint8_t>(value);
  target[offset + 1] = static_cast<std::uint8_t>(value >> 8);
}
inline void put32(std::span<std::uint8_t> target, std::size_t offset, std::uint32_t value) {
  put16(target, offset, value & 0xFFFF);
  put16(target, offset + 2, value >> 16);
}
inline void put64(std::span<std::uint8_t> target, std::size_t offset, std::uint64_t value) {
  put32(target, offset, static_cast<std::uint32_t>(value));
  put32(target, offset + 4, static_cast<std::uint32_t>(value >> 32));
}

}  // namespace jet
