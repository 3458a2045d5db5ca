#include "jet/sql/result_order.h"

#include <algorithm>
#include <bit>
#include <string_view>
#include <utility>

#include "jet/collation.h"

namespace jet::sql {
namespace {

constexpr char nullMark = 0;
constexpr char presentMark = 1;
constexpr std::size_t chunkSize = 16;

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
  load(entry, 0);
  entries_.push_back(entry);
}

void ResultOrder::load(Entry& entry, std::size_t depth) const {
  const std::string_view key = std::string_view(keys_).substr(entry.begin, entry.length);
  entry.high = key.size() > depth ? eightBytes(key.substr(depth)) : 0;
  entry.low = key.size() > depth + 8 ? eightBytes(key.substr(depth + 8)) : 0;
}

bool ResultOrder::placesLess(const Entry& left, const Entry& right) const {
  const auto placesOf = [this](const Entry& entry) {
    return places_.begin() + static_cast<std::ptrdiff_t>(entry.number * tableCount_);
  };
  const auto width = static_cast<std::ptrdiff_t>(tableCount_);
  return std::lexicographical_compare(placesOf(left), placesOf(left) + width, placesOf(right),
                                      placesOf(right) + width);
}

bool ResultOrder::isInOrder() const {
  return std::is_sorted(entries_.begin(), entries_.end(), [this](const Entry& left, const Entry& right) {
    if (left.high != right.high) return left.high < right.high;
    if (left.low != right.low) return left.low < right.low;
    const std::string_view keys = keys_;
    const int order = keys.substr(left.begin, left.length).compare(keys.substr(right.begin, right.length));
    return order != 0 ? order < 0 : placesLess(left, right);
  });
}

// Texts of one table are often equal for many bytes: comparing 16 at a time, and reading the next 16 only
// where rows are equal so far, looks at every byte of a key once.
void ResultOrder::sort(Entries begin, Entries end, std::size_t depth) {
  const auto chunk = [](const Entry& entry) { return std::pair(entry.high, entry.low); };
  for (;;) {
    std::sort(begin, end, [&](const Entry& left, const Entry& right) { return chunk(left) < chunk(right); });
    const std::size_t next = depth + chunkSize;
    bool whole = false;
    for (Entries first = begin; first != end;) {
      const Entries last =
          std::find_if(first, end, [&](const Entry& entry) { return chunk(entry) != chunk(*first); });
      const bool ended = std::all_of(first, last, [&](const Entry& entry) { return entry.length <= next; });
      if (last - first > 1 && ended) {
        std::sort(first, last,
                  [this](const Entry& left, const Entry& right) { return placesLess(left, right); });
      } else if (last - first > 1) {
        std::for_each(first, last, [&](Entry& entry) { load(entry, next); });
        whole = first == begin && last == end;
        if (!whole) sort(first, last, next);
      }
      first = last;
    }
    if (!whole) return;
    depth = next;  // all are equal so far: no deeper call for that, keys may be long
  }
}

std::vector<std::uint32_t> ResultOrder::sorted() {
  if (isInOrder()) return {};
  sort(entries_.begin(), entries_.end(), 0);
  std::vector<std::uint32_t> numbers;
  numbers.reserve(entries_.size());
  for (const Entry& entry : entries_) numbers.push_back(entry.number);
  return numbers;
}

}  // namespace jet::sql
