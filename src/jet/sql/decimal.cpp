#include "jet/sql/decimal.h"

#include <array>
#include <charconv>
#include <limits>
#include <string>

namespace jet::sql {
namespace {

constexpr UInt128 largestInt64 = static_cast<UInt128>(std::numeric_limits<std::int64_t>::max());

std::string decimalDigits(UInt128 magnitude) {
  std::string digits;
  do {
    digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(magnitude % 10)));
    magnitude /= 10;
  } while (magnitude != 0);
  return digits;
}

// magnitude * 10^steps; nullopt where it does not fit.
std::optional<UInt128> scaledUp(UInt128 magnitude, int steps) {
  constexpr UInt128 largest = ~UInt128{0};
  for (; steps > 0; --steps) {
    if (magnitude > largest / 10) return std::nullopt;
    magnitude *= 10;
  }
  return magnitude;
}

std::optional<std::int64_t> signedWhole(UInt128 magnitude, bool negative) {
  if (magnitude > largestInt64 + (negative ? 1U : 0U)) return std::nullopt;
  const auto bits = static_cast<std::uint64_t>(magnitude);
  return static_cast<std::int64_t>(negative ? ~bits + 1 : bits);
}

UInt128 magnitudeOf(std::int64_t whole) {
  const auto bits = static_cast<std::uint64_t>(whole);
  return whole < 0 ? ~bits + 1 : bits;
}

}  // namespace

Decimal Decimal::make(bool negative, UInt128 magnitude, std::uint8_t scale) {
  while (scale > 0 && magnitude % 10 == 0) {
    magnitude /= 10;
    --scale;
    if (magnitude == 0) scale = 0;
  }
  return {magnitude, scale, negative && magnitude != 0};
}

Decimal Decimal::of(std::int64_t whole) { return {magnitudeOf(whole), 0, whole < 0}; }

Decimal Decimal::of(Currency amount) {
  return make(amount.tenThousandths < 0, magnitudeOf(amount.tenThousandths), 4);
}

Decimal Decimal::of(const Numeric& number) {
  UInt128 magnitude = 0;
  for (const std::uint32_t group : number.groups) magnitude = magnitude << 32 | group;
  return make(number.negative, magnitude, number.scale);
}

double Decimal::toDouble() const {
  constexpr UInt128 exactLimit = UInt128{1} << 53;
  constexpr std::array<double, 16> powers{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                          1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  double result = 0;
  if (magnitude <= exactLimit && scale < powers.size()) {
    result = static_cast<double>(static_cast<std::uint64_t>(magnitude)) / powers[scale];
  } else {
    const std::string written = decimalDigits(magnitude) + "e-" + std::to_string(scale);
    std::from_chars(written.data(), written.data() + written.size(), result);
  }
  return negative ? -result : result;
}

std::optional<std::int64_t> Decimal::toWhole() const {
  if (scale != 0) return std::nullopt;
  return signedWhole(magnitude, negative);
}

std::optional<Currency> Decimal::toCurrency() const {
  if (scale > 4) return std::nullopt;
  const auto units = scaledUp(magnitude, 4 - scale);
  const auto amount = units ? signedWhole(*units, negative) : std::nullopt;
  if (!amount) return std::nullopt;
  return Currency{*amount};
}

std::optional<Numeric> Decimal::toNumeric(std::uint8_t wantedScale) const {
  if (scale > wantedScale) return std::nullopt;
  auto units = scaledUp(magnitude, wantedScale - scale);
  if (!units) return std::nullopt;
  Numeric number{negative, {}, wantedScale};
  for (std::size_t i = number.groups.size(); i-- > 0; *units >>= 32) {
    number.groups[i] = static_cast<std::uint32_t>(*units);
  }
  return number;
}

std::optional<Decimal> parseDecimal(std::u16string_view digits, bool negative) {
  constexpr int mostDigits = 28;
  UInt128 magnitude = 0;
  int count = 0;
  std::uint8_t scale = 0;
  bool behindPoint = false;
  for (const char16_t unit : digits) {
    if (unit == u'.') {
      behindPoint = true;
      continue;
    }
    magnitude = magnitude * 10 + static_cast<unsigned>(unit - u'0');
    if (magnitude != 0 && ++count > mostDigits) return std::nullopt;
    if (behindPoint && ++scale > mostDigits) return std::nullopt;
  }
  return Decimal::make(negative, magnitude, scale);
}

}  // namespace jet::sql
