#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "jet/byte_writer.h"
#include "jet/value.h"

namespace jet::encode {

using jet::put16;
using jet::put32;
using jet::put64;

// The source, too, is always a buffer of our own.
inline std::uint16_t get16(std::span<const std::uint8_t> source, std::size_t offset) {
  return static_cast<std::uint16_t>(source[offset] | source[offset + 1] << 8);
}
inline std::uint32_t get32(std::span<const std::uint8_t> source, std::size_t offset) {
  return get16(source, offset) | std::uint32_t{get16(source, offset + 2)} << 16;
}

inline void append8(Bytes& target, std::uint32_t value) {
  target.push_back(static_cast<std::uint8_t>(value));
}
inline void append16(Bytes& target, std::uint32_t value) {
  append8(target, value & 0xFF);
  append8(target, value >> 8 & 0xFF);
}
inline void append32(Bytes& target, std::uint32_t value) {
  append16(target, value & 0xFFFF);
  append16(target, value >> 16);
}
inline void append64(Bytes& target, std::uint64_t value) {
  append32(target, static_cast<std::uint32_t>(value));
  append32(target, static_cast<std::uint32_t>(value >> 32));
}
inline void appendUtf16(Bytes& target, const Text& text) {
  for (const char16_t unit : text) append16(target, unit);
}
// How definitions and properties store a name: u16 length in bytes, then the units.
inline void appendName(Bytes& target, const Text& name) {
  append16(target, static_cast<std::uint32_t>(2 * name.size()));
  appendUtf16(target, name);
}

inline void append24BigEndian(std::string& target, std::uint32_t value) {
  target.push_back(static_cast<char>(value >> 16 & 0xFF));
  target.push_back(static_cast<char>(value >> 8 & 0xFF));
  target.push_back(static_cast<char>(value & 0xFF));
}

}  // namespace jet::encode
