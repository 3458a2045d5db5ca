#pragma once

#include <array>
#include <cstdint>

namespace jet::collation {

enum class Class : std::uint8_t {
  Unknown,        // no weight is known
  Ignored,        // contributes nothing
  Simple,         // primary bytes only
  International,  // primary bytes, and accent bytes in its slot
  Unprintable,    // no primary bytes; position and code come last
  Modifier,       // no primary bytes; added to the accent byte before it
};

// What one UTF-16 unit contributes to a key.
struct Weight {
  Class kind = Class::Unknown;
  std::uint8_t primaryLength = 0;
  std::uint8_t secondLength = 0;
  std::array<std::uint8_t, 3> primary{};
  std::array<std::uint8_t, 2> second{};  // accent bytes, a modifier's value or an unprintable's code
};

enum class ClassJet3 : std::uint8_t { None, Simple, Slot, TwoSlots, Accent };

// The same for the single-byte texts of Access 97 files.
struct WeightJet3 {
  ClassJet3 kind = ClassJet3::None;
  std::uint8_t primaryLength = 0;
  std::uint8_t nibble = 0;
  std::array<std::uint8_t, 2> primary{};
};

// Units in blocks of 256: only blocks with known weights are kept, all others share block 0, which is empty.
// Block 1 is U+0000 to U+00FF.
inline constexpr std::size_t blockSize = 256;
inline constexpr std::size_t blockCount = 16;

struct WeightTable {
  std::array<std::uint8_t, 256> blockOf{};  // by the unit's high byte
  std::array<Weight, blockCount * blockSize> weights{};
  std::array<WeightJet3, blockCount * blockSize> weightsJet3{};

  std::size_t place(char16_t unit) const { return blockOf[unit >> 8] * blockSize + (unit & 0xFF); }
  const Weight& weight(char16_t unit) const { return weights[place(unit)]; }
  const WeightJet3& weightJet3(char16_t unit) const { return weightsJet3[place(unit)]; }
};

extern const WeightTable weightTable;

}  // namespace jet::collation
