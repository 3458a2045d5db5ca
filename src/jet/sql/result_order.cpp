#include "jet/sql/result_order.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string_view>

#include "jet/collation.h"

namespace jet::sql {
namespace {

constexpr char nullMark = 0;
constexpr char presentMark = 1;

template <typename Unsigned>
void appendBigEndian(Unsigned number, std::string& key) {
  for (int shift = static_cast<int>(sizeof number) * 8 - 8; shift >= 0; shift -= 8) {
    key += static_cast<char>(static_cast<std::uint8_t>(number >> shift));
  }
}

void appendDouble(double number, std::string& key) {
  constexpr std::uint64_t sign = std::uint64_t{1} << 63;
  const auto bits = std::bit_cast<std::uint64_t>(number == 0 ? 0.0 : number);
  appendBigEndian((bits & sign) != 0 ? ~bits : bits | sign, key);
}

void appendNumeric(const Numeric& number, std::string& key) {
  const bool zero = number.groups == decltype(number.groups){};
  const bool negative = number.negative && !zero;
  key += static_cast<char>(negative ? 0 : 1);
  for (const std::uint32_t group : number.groups) appendBigEndian(negative ? ~group : group, key);
}

// In the order in which a GUID is printed: its first three groups are stored little endian.
void appendGuid(const Guid& guid, std::string& key) {
  for (const std::size_t i : {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15}) {
    key += static_cast<char>(guid.bytes[i]);
  }
}

// Segments of 8 bytes, each followed by the count of its valid bytes, 9 where another follows.
void appendBinary(const Bytes& bytes, std::string& key) {
  constexpr std::size_t segment = 8;
  std::size_t position = 0;
  for (; bytes.size() - position > segment; position += segment) {
    key.append(bytes.begin() + static_cast<std::ptrdiff_t>(position),
               bytes.begin() + static_cast<std::ptrdiff_t>(position + segment));
    key += '\x09';
  }
  const std::size_t rest = bytes.size() - position;
  key.append(bytes.begin() + static_cast<std::ptrdiff_t>(position), bytes.end());
  key.append(segment - rest, '\0');
  key += static_cast<char>(rest);
}

void appendValue(const Value& value, std::string& key) {
  constexpr std::uint32_t sign32 = std::uint32_t{1} << 31;
  constexpr std::uint64_t sign64 = std::uint64_t{1} << 63;
  if (const auto* text = std::get_if<Text>(&value)) {
    collation::appendSortKey(*text, key);
  } else if (const auto* number = std::get_if<std::int32_t>(&value)) {
    appendBigEndian(static_cast<std::uint32_t>(*number) ^ sign32, key);
  } else if (const auto* truth = std::get_if<bool>(&value)) {
    key += static_cast<char>(*truth ? 0 : 1);
  } else if (const auto* amount = std::get_if<Currency>(&value)) {
    appendBigEndian(static_cast<std::uint64_t>(amount->tenThousandths) ^ sign64, key);
  } else if (const auto* real = std::get_if<double>(&value)) {
    appendDouble(*real, key);
  } else if (const auto* single = std::get_if<float>(&value)) {
    appendDouble(*single, key);
  } else if (const auto* date = std::get_if<DateTime>(&value)) {
    appendDouble(date->days, key);
  } else if (const auto* numeric = std::get_if<Numeric>(&value)) {
    appendNumeric(*numeric, key);
  } else if (const auto* guid = std::get_if<Guid>(&value)) {
    appendGuid(*guid, key);
  } else if (const auto* bytes = std::get_if<Bytes>(&value)) {
    appendBinary(*bytes, key);
  }
}

std::uint64_t eightBytes(std::string_view bytes) {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < 8; ++i) {
    number = number << 8 | (i < bytes.size() ? static_cast<std::uint8_t>(bytes[i]) : 0U);
  }
  return number;
}

}  // namespace

void appendOrderKey(const Value& value, bool descending, std::string& key) {
  const std::size_t begin = key.size();
  key += isNull(value) ? nullMark : presentMark;
  appendValue(value, key);
  if (!descending) return;
  for (std::size_t i = begin; i < key.size(); ++i) key[i] = static_cast<char>(~key[i]);
}

void ResultOrder::begin(std::size_t tableCount) {
  tableCount_ = tableCount;
  places_.clear();
  keys_.clear();
  entries_.clear();
}

void ResultOrder::endRow() {
  Entry entry;
  if (!entries_.empty()) entry.begin = entries_.back().begin + entries_.back().length;
  entry.length = static_cast<std::uint32_t>(keys_.size() - entry.begin);
  entry.number = static_cast<std::uint32_t>(entries_.size());
  const std::string_view key = std::string_view(keys_).substr(entry.begin);
  entry.first = eightBytes(key);
  entry.second = key.size() > 8 ? eightBytes(key.substr(8)) : 0;
  entries_.push_back(entry);
}

bool ResultOrder::less(const Entry& left, const Entry& right) const {
  if (left.first != right.first) return left.first < right.first;
  if (left.second != right.second) return left.second < right.second;
  const int order =
      std::memcmp(keys_.data() + left.begin, keys_.data() + right.begin, std::min(left.length, right.length));
  if (order != 0) return order < 0;
  if (left.length != right.length) return left.length < right.length;
  const auto placesOf = [this](const Entry& entry) {
    return places_.begin() + static_cast<std::ptrdiff_t>(entry.number * tableCount_);
  };
  const auto width = static_cast<std::ptrdiff_t>(tableCount_);
  return std::lexicographical_compare(placesOf(left), placesOf(left) + width, placesOf(right),
                                      placesOf(right) + width);
}

std::vector<std::uint32_t> ResultOrder::sorted() {
  const auto inOrder = [this](const Entry& left, const Entry& right) { return less(left, right); };
  if (std::is_sorted(entries_.begin(), entries_.end(), inOrder)) return {};
  std::sort(entries_.begin(), entries_.end(), inOrder);
  std::vector<std::uint32_t> numbers;
  numbers.reserve(entries_.size());
  for (const Entry& entry : entries_) numbers.push_back(entry.number);
  return numbers;
}

}  // namespace jet::sql
