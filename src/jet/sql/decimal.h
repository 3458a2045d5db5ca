#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "jet/value.h"

namespace jet::sql {

__extension__ using UInt128 = unsigned __int128;

// An exact decimal number: magnitude * 10^-scale. Always in its shortest form (no trailing zeros behind the
// point, zero is not negative), so that equal numbers have equal members.
struct Decimal {
  UInt128 magnitude = 0;
  std::uint8_t scale = 0;
  bool negative = false;
  bool operator==(const Decimal&) const = default;

  static Decimal make(bool negative, UInt128 magnitude, std::uint8_t scale);
  static Decimal of(std::int64_t whole);
  static Decimal of(Currency amount);
  static Decimal of(const Numeric& number);

  // The nearest double.
  double toDouble() const;
  // Exact conversions; nullopt where the number has none.
  std::optional<std::int64_t> toWhole() const;
  std::optional<Currency> toCurrency() const;
  std::optional<Numeric> toNumeric(std::uint8_t wantedScale) const;
};

// Reads digits with at most one point; nullopt for more than 28 digits.
std::optional<Decimal> parseDecimal(std::u16string_view digits, bool negative);

}  // namespace jet::sql
