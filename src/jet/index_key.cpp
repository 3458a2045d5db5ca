#include "jet/index_key.h"

#include <algorithm>
#include <array>
#include <bit>
#include <span>

#include "jet/collation.h"
#include "jet/error.h"

namespace jet {

namespace {

constexpr char nullKey = 0x00;
constexpr char valueKey = 0x7F;
constexpr std::size_t binarySegment = 8;
constexpr char segmentFollows = 0x09;

void invertFrom(std::string& key, std::size_t begin) {
  for (std::size_t i = begin; i < key.size(); ++i) {
    key[i] = static_cast<char>(~static_cast<unsigned char>(key[i]));
  }
}

void appendBigEndian(std::uint64_t bits, int bytes, std::string& key) {
  for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8) {
    key += static_cast<char>(static_cast<unsigned char>(bits >> shift));
  }
}

std::uint64_t signBit(int bytes) { return std::uint64_t{1} << (8 * bytes - 1); }

void appendInteger(std::int64_t value, int bytes, std::string& key) {
  appendBigEndian(static_cast<std::uint64_t>(value) ^ signBit(bytes), bytes, key);
}

void appendFloatKey(std::uint64_t bits, int bytes, std::string& key) {
  appendBigEndian((bits & signBit(bytes)) != 0 ? ~bits : bits ^ signBit(bytes), bytes, key);
}

// Segments of 8 bytes. The mark between two segments is the only byte that descending order leaves alone.
void appendBinary(std::span<const std::uint8_t> value, bool descending, std::string& key) {
  for (std::size_t offset = 0; offset < value.size(); offset += binarySegment) {
    const std::size_t begin = key.size();
    const std::size_t valid = std::min(binarySegment, value.size() - offset);
    for (const std::uint8_t byte : value.subspan(offset, valid)) key += static_cast<char>(byte);
    key.append(binarySegment - valid, '\0');
    const bool last = offset + valid == value.size();
    if (last) key += static_cast<char>(valid);
    if (descending) invertFrom(key, begin);
    if (!last) key += segmentFollows;
  }
}

std::array<std::uint8_t, 16> printedOrder(const Guid& guid) {
  std::array<std::uint8_t, 16> bytes = guid.bytes;
  std::reverse(bytes.begin(), bytes.begin() + 4);
  std::reverse(bytes.begin() + 4, bytes.begin() + 6);
  std::reverse(bytes.begin() + 6, bytes.begin() + 8);
  return bytes;
}

// The sign byte is never inverted, which is what Access 2000 to 2003 store.
void appendNumeric(const Numeric& value, bool descending, std::string& key) {
  key += static_cast<char>(value.negative ? 0x00 : 0xFF);
  const std::size_t begin = key.size();
  for (const std::uint32_t group : value.groups) appendBigEndian(group, 4, key);
  if (value.negative != descending) invertFrom(key, begin);
}

template <typename T>
const T& as(const Value& value) {
  if (const T* held = std::get_if<T>(&value)) return *held;
  throw Error(ErrorKind::TypeMismatch, "a value is not of its index column's type");
}

bool appendText(const Text& text, bool descending, const Format& format, std::string& key) {
  return format.version == 3 ? collation::appendIndexKeyJet3(text, descending, key)
                             : collation::appendIndexKey(text, descending, key);
}

// The whole numbers of every width; false if the value does not fit.
bool appendWholeNumber(std::int32_t value, ColumnType type, std::string& key) {
  switch (type) {
    case ColumnType::Byte:
      key += static_cast<char>(static_cast<unsigned char>(value));
      return value >= 0 && value <= 0xFF;
    case ColumnType::Integer:
      appendInteger(value, 2, key);
      return value >= -0x8000 && value <= 0x7FFF;
    default:
      appendInteger(value, 4, key);
      return true;
  }
}

// The types whose descending key is nothing but the inverse of the ascending one.
bool appendPlain(const Value& value, ColumnType type, std::string& key) {
  switch (type) {
    case ColumnType::Boolean:
      key += static_cast<char>(as<bool>(value) ? 0x00 : 0xFF);
      return true;
    case ColumnType::Byte:
    case ColumnType::Integer:
    case ColumnType::Long:
      return appendWholeNumber(as<std::int32_t>(value), type, key);
    case ColumnType::Currency:
      appendInteger(as<Currency>(value).tenThousandths, 8, key);
      return true;
    case ColumnType::Single:
      appendFloatKey(std::bit_cast<std::uint32_t>(as<float>(value)), 4, key);
      return true;
    case ColumnType::Double:
      appendFloatKey(std::bit_cast<std::uint64_t>(as<double>(value)), 8, key);
      return true;
    case ColumnType::DateTime:
      appendFloatKey(std::bit_cast<std::uint64_t>(as<DateTime>(value).days), 8, key);
      return true;
    default:
      return false;
  }
}

}  // namespace

bool hasComputableKey(const ColumnDefinition& column, const Format&) {
  switch (column.type) {
    case ColumnType::Text:
    case ColumnType::Memo:
      return column.sortOrder == sortOrderGeneral && column.sortOrderVersion == 0;
    case ColumnType::Boolean:
    case ColumnType::Byte:
    case ColumnType::Integer:
    case ColumnType::Long:
    case ColumnType::Currency:
    case ColumnType::Single:
    case ColumnType::Double:
    case ColumnType::DateTime:
    case ColumnType::Binary:
    case ColumnType::Guid:
    case ColumnType::Numeric:
      return true;
    default:
      return false;
  }
}

bool appendKey(const Value& value, const ColumnDefinition& column, bool descending, const Format& format,
               std::string& key) {
  const std::size_t begin = key.size();
  if (isNull(value)) {
    key += nullKey;
    if (descending) invertFrom(key, begin);
    return true;
  }
  if (column.type == ColumnType::Text || column.type == ColumnType::Memo) {
    return appendText(as<Text>(value), descending, format, key);
  }
  key += valueKey;
  if (column.type == ColumnType::Binary || column.type == ColumnType::Guid ||
      column.type == ColumnType::Numeric) {
    if (descending) invertFrom(key, begin);
    if (column.type == ColumnType::Binary) appendBinary(as<Bytes>(value), descending, key);
    if (column.type == ColumnType::Guid) appendBinary(printedOrder(as<Guid>(value)), descending, key);
    if (column.type == ColumnType::Numeric) {
      appendNumeric(as<Numeric>(value), descending, key);
      return as<Numeric>(value).scale == column.scale;
    }
    return true;
  }
  const bool exact = appendPlain(value, column.type, key);
  if (descending) invertFrom(key, begin);
  return exact;
}

}  // namespace jet
