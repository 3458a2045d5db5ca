#include "jet/sql/scalar.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

#include "jet/collation.h"

namespace jet::sql {
namespace {

constexpr bool isWholeType(ColumnType type) {
  return type == ColumnType::Boolean || type == ColumnType::Byte || type == ColumnType::Integer ||
         type == ColumnType::Long;
}
constexpr bool isFloatingType(ColumnType type) {
  return type == ColumnType::Single || type == ColumnType::Double;
}
constexpr bool isNumberType(ColumnType type) {
  return isWholeType(type) || isFloatingType(type) || type == ColumnType::Currency ||
         type == ColumnType::Numeric;
}
constexpr bool isTextType(ColumnType type) { return type == ColumnType::Text || type == ColumnType::Memo; }

std::int64_t wholeOf(const Value& value) {
  if (const bool* truth = std::get_if<bool>(&value)) return *truth ? -1 : 0;
  return std::get<std::int32_t>(value);
}

Decimal exactOf(const Value& value) {
  if (const auto* amount = std::get_if<Currency>(&value)) return Decimal::of(*amount);
  if (const auto* number = std::get_if<Numeric>(&value)) return Decimal::of(*number);
  return Decimal::of(wholeOf(value));
}

double floatingOf(const Value& value) {
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* number = std::get_if<float>(&value)) return *number;
  return exactOf(value).toDouble();
}

constexpr std::uint64_t mixed(std::uint64_t a, std::uint64_t b) {
  const UInt128 product = static_cast<UInt128>(a ^ 0x9E3779B97F4A7C15U) * (b ^ 0xD1B54A32D192ED03U);
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

std::uint64_t hashOfBytes(const void* bytes, std::size_t size, std::uint64_t seed) {
  const auto* position = static_cast<const char*>(bytes);
  std::uint64_t result = mixed(seed, size);
  for (; size >= 8; size -= 8, position += 8) {
    std::uint64_t block = 0;
    std::memcpy(&block, position, 8);
    result = mixed(result, block);
  }
  std::uint64_t rest = 0;
  std::memcpy(&rest, position, size);
  return mixed(result, rest);
}

template <typename T>
IndexValue found(T value, Value& target) {
  target = std::move(value);
  return IndexValue::Found;
}

IndexValue wholeIndexValue(std::int64_t whole, ColumnType type, Value& target) {
  const auto within = [whole](std::int64_t low, std::int64_t high) { return whole >= low && whole <= high; };
  bool fits = false;
  switch (type) {
    case ColumnType::Boolean:
      if (!within(-1, 0)) return IndexValue::Nothing;
      return found(whole != 0, target);
    case ColumnType::Byte:
      fits = within(0, 255);
      break;
    case ColumnType::Integer:
      fits = within(std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max());
      break;
    case ColumnType::Long:
      fits = within(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max());
      break;
    default:
      return IndexValue::Unknown;
  }
  return fits ? found(static_cast<std::int32_t>(whole), target) : IndexValue::Nothing;
}

IndexValue exactIndexValue(const Decimal& exact, const ColumnDefinition& column, Value& target) {
  if (isWholeType(column.type)) {
    const auto whole = exact.toWhole();
    return whole ? wholeIndexValue(*whole, column.type, target) : IndexValue::Nothing;
  }
  if (column.type == ColumnType::Currency) {
    const auto amount = exact.toCurrency();
    return amount ? found(*amount, target) : IndexValue::Nothing;
  }
  const auto number = exact.toNumeric(column.scale);
  return number ? found(*number, target) : IndexValue::Nothing;
}

IndexValue floatingIndexValue(double floating, ColumnType type, Value& target) {
  // 0 and -0 are equal but have two keys.
  if (floating == 0) return IndexValue::Unknown;
  if (type == ColumnType::Double) return found(floating, target);
  if (type == ColumnType::Single) {
    if (std::fabs(floating) > std::numeric_limits<float>::max()) return IndexValue::Unknown;
    const auto single = static_cast<float>(floating);
    return static_cast<double>(single) == floating ? found(single, target) : IndexValue::Nothing;
  }
  constexpr double limit = 2147483648.0;
  if (!(floating >= -limit && floating < limit) || floating != std::floor(floating)) {
    return IndexValue::Nothing;
  }
  return wholeIndexValue(static_cast<std::int64_t>(floating), type, target);
}

}  // namespace

Comparison comparisonOf(ColumnType left, ColumnType right) {
  if (isNumberType(left) && isNumberType(right)) {
    if (isFloatingType(left) || isFloatingType(right)) return Comparison::Floating;
    return isWholeType(left) && isWholeType(right) ? Comparison::Whole : Comparison::Exact;
  }
  if (isTextType(left) && isTextType(right)) return Comparison::Text;
  if (left != right) return Comparison::None;
  switch (left) {
    case ColumnType::DateTime:
      return Comparison::Date;
    case ColumnType::Guid:
      return Comparison::Guid;
    case ColumnType::Binary:
      return Comparison::Binary;
    default:
      return Comparison::None;
  }
}

Comparison comparisonWithText(ColumnType column) {
  return isTextType(column) ? Comparison::Text : Comparison::None;
}

Comparison comparisonWithNumber(ColumnType column, const Decimal& number) {
  if (!isNumberType(column)) return Comparison::None;
  if (isFloatingType(column)) return Comparison::Floating;
  return isWholeType(column) && number.toWhole() ? Comparison::Whole : Comparison::Exact;
}

bool read(const Row& row, std::size_t column, ColumnType type, Comparison comparison, Scalar& target) {
  if (comparison == Comparison::Text) return row.asText(column, target.text);
  if (comparison == Comparison::Whole && type != ColumnType::Boolean) {
    std::int32_t number = 0;
    const bool present = row.asLong(column, number);
    target.whole = number;
    return present;
  }
  const Value value = row.value(column);
  if (isNull(value)) return false;
  switch (comparison) {
    case Comparison::Whole:
      target.whole = wholeOf(value);
      return true;
    case Comparison::Exact:
      target.exact = exactOf(value);
      return true;
    case Comparison::Floating:
      target.floating = floatingOf(value);
      return !std::isnan(target.floating);
    case Comparison::Date:
      target.floating = std::get<DateTime>(value).days;
      return !std::isnan(target.floating);
    case Comparison::Guid:
      target.guid = std::get<Guid>(value).bytes;
      return true;
    case Comparison::Binary:
      target.binary = std::get<Bytes>(value);
      return true;
    case Comparison::Text:
    case Comparison::None:
      break;
  }
  return false;
}

void setNumber(const Decimal& number, Comparison comparison, Scalar& target) {
  if (comparison == Comparison::Whole) {
    target.whole = number.toWhole().value_or(0);
  } else if (comparison == Comparison::Exact) {
    target.exact = number;
  } else {
    target.floating = number.toDouble();
  }
}

bool equal(const Scalar& left, const Scalar& right, Comparison comparison) {
  switch (comparison) {
    case Comparison::Whole:
      return left.whole == right.whole;
    case Comparison::Exact:
      return left.exact == right.exact;
    case Comparison::Floating:
    case Comparison::Date:
      return left.floating == right.floating;
    case Comparison::Text:
      return left.text == right.text || collation::equal(left.text, right.text);
    case Comparison::Guid:
      return left.guid == right.guid;
    case Comparison::Binary:
      return left.binary == right.binary;
    case Comparison::None:
      break;
  }
  return false;
}

std::uint64_t hash(const Scalar& value, Comparison comparison, std::uint64_t seed, std::string& buffer) {
  switch (comparison) {
    case Comparison::Whole:
      return mixed(seed, static_cast<std::uint64_t>(value.whole));
    case Comparison::Exact:
      return mixed(mixed(seed, static_cast<std::uint64_t>(value.exact.magnitude)),
                   static_cast<std::uint64_t>(value.exact.magnitude >> 64) ^
                       static_cast<std::uint64_t>(value.exact.scale) << 33 ^
                       static_cast<std::uint64_t>(value.exact.negative) << 32);
    case Comparison::Floating:
    case Comparison::Date:
      return mixed(seed, value.floating == 0 ? 0 : std::bit_cast<std::uint64_t>(value.floating));
    case Comparison::Text:
      buffer.clear();
      collation::appendSortKey(value.text, buffer);
      return hashOfBytes(buffer.data(), buffer.size(), seed);
    case Comparison::Guid:
      return hashOfBytes(value.guid.data(), value.guid.size(), seed);
    case Comparison::Binary:
      return hashOfBytes(value.binary.data(), value.binary.size(), seed);
    case Comparison::None:
      break;
  }
  return seed;
}

IndexValue toIndexValue(const Scalar& value, Comparison comparison, const ColumnDefinition& column,
                        Value& target) {
  switch (comparison) {
    case Comparison::Whole:
      return wholeIndexValue(value.whole, column.type, target);
    case Comparison::Exact:
      return exactIndexValue(value.exact, column, target);
    case Comparison::Floating:
      return floatingIndexValue(value.floating, column.type, target);
    case Comparison::Date:
      if (value.floating == 0) return IndexValue::Unknown;
      return found(DateTime{value.floating}, target);
    case Comparison::Text:
      if (Text* text = std::get_if<Text>(&target)) {
        *text = value.text;
        return IndexValue::Found;
      }
      return found(value.text, target);
    case Comparison::Guid:
      return found(jet::Guid{value.guid}, target);
    case Comparison::Binary:
      return found(value.binary, target);
    case Comparison::None:
      break;
  }
  return IndexValue::Unknown;
}

bool isIndexable(ColumnType column, Comparison comparison) {
  // A double can equal more than one amount or decimal number beyond 15 digits.
  const bool exactColumn = column == ColumnType::Currency || column == ColumnType::Numeric;
  return comparison != Comparison::None && !(comparison == Comparison::Floating && exactColumn);
}

}  // namespace jet::sql
