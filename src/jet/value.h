#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace jet {

// Text is UTF-16, as the file stores it; unpaired surrogates are replaced when read.
using Text = std::u16string;
using Bytes = std::vector<std::uint8_t>;

struct Null {
  bool operator==(const Null&) const = default;
};

// Fixed point, unit 1/10,000.
struct Currency {
  std::int64_t tenThousandths = 0;
  auto operator<=>(const Currency&) const = default;
};

// Days since 1899-12-30, the fraction is the time of day (also before that day). The stored double is kept
// as it is; it may be a NaN or out of range in a damaged file.
struct DateTime {
  double days = 0;
  bool operator==(const DateTime&) const = default;
};

// The 16 bytes as stored (first three groups little endian).
struct Guid {
  std::array<std::uint8_t, 16> bytes{};
  bool operator==(const Guid&) const = default;
};

// magnitude * 10^-scale; groups[0] is the most significant 32 bits, as stored.
struct Numeric {
  bool negative = false;
  std::array<std::uint32_t, 4> groups{};
  std::uint8_t scale = 0;
  bool operator==(const Numeric&) const = default;
};

// A column's value. byte, integer and long are all std::int32_t; memo is Text; binary and OLE are Bytes.
using Value =
    std::variant<Null, bool, std::int32_t, float, double, Currency, DateTime, Guid, Numeric, Text, Bytes>;

inline bool isNull(const Value& value) { return std::holds_alternative<Null>(value); }

}  // namespace jet
