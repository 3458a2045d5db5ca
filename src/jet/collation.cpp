#include "jet/collation.h"

#include <algorithm>
#include <cstring>
#include <tuple>

#include "jet/collation_table.h"

namespace jet::collation {

namespace {

constexpr std::size_t indexedUnits = 255;
constexpr char primaryEnd = 0x01;
constexpr char keyEnd = 0x00;
constexpr char emptySlot = 0x02;
constexpr char startAscending = 0x7F;
constexpr char startDescending = '\x80';
// Greater than every known primary byte: units without a weight follow, ordered by their code.
constexpr std::uint8_t unknownUnit = 0xFF;

char asChar(unsigned value) { return static_cast<char>(static_cast<std::uint8_t>(value)); }

std::u16string_view withoutTrailingBlanks(std::u16string_view text) {
  std::size_t length = text.size();
  while (length > 0 && text[length - 1] == u' ') --length;
  return text.substr(0, length);
}

std::u16string_view indexedPart(std::u16string_view text) {
  return withoutTrailingBlanks(text.substr(0, indexedUnits));
}

void invert(std::string& bytes, std::size_t from) {
  for (std::size_t i = from; i < bytes.size(); ++i) bytes[i] = asChar(~static_cast<unsigned>(bytes[i]));
}

Weight primaryOnly(Class kind, unsigned value) {
  Weight weight;
  weight.kind = kind;
  weight.primaryLength = 2;
  weight.primary = {static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value), 0};
  return weight;
}

Weight surrogateWeight(char16_t unit) {
  unsigned shift = 10238;
  if (unit >= 0xDC00) {
    const unsigned low = unit - 0xDC00u;
    shift = low < 8 ? 9992 : low < 262 ? 9990 : low < 516 ? 9988 : low < 770 ? 9986 : 9984;
  }
  Weight weight = primaryOnly(Class::International, unit - shift);
  weight.secondLength = 1;
  weight.second = {0x3F, 0};
  return weight;
}

Weight unknownWeight(char16_t unit) {
  Weight weight = primaryOnly(Class::Unknown, unit);
  weight.primaryLength = 3;
  weight.primary = {unknownUnit, weight.primary[0], weight.primary[1]};
  return weight;
}

// The weight of a unit that the table does not hold.
Weight weightOutsideTable(char16_t unit) {
  return unit >= 0xD800 && unit < 0xE000 ? surrogateWeight(unit) : unknownWeight(unit);
}

// Collects what follows the primary bytes: accents, into memory of two bytes per unit, and the records of
// unprintable units. A unit with primary bytes takes a slot, which its accents fill.
class SecondaryParts {
 public:
  explicit SecondaryParts(char* accents) : accents_(accents), accentsEnd_(accents) {}

  // `slots` counts the units with primary bytes before this one.
  void addAccents(const Weight& weight, std::size_t slots) {
    fillSlots(slots);
    accentsEnd_ = std::copy_n(weight.second.begin(), weight.secondLength, accentsEnd_);
    ++filled_;
  }

  void addModifier(std::uint8_t value, std::size_t slots) {
    fillSlots(slots);
    if (accentsEnd_ == accents_) {
      *accentsEnd_++ = asChar(value);
      startsWithModifier_ = true;
    } else {
      accentsEnd_[-1] = asChar(static_cast<unsigned>(accentsEnd_[-1]) + value);
    }
  }

  void addUnprintable(std::uint8_t code, std::size_t slots) {
    std::size_t before = slots;
    if (accentsEnd_ != accents_) {
      before = static_cast<std::size_t>(accentsEnd_ - accents_) + (slots - filled_) -
               (startsWithModifier_ ? 1 : 0);
    }
    constexpr std::size_t greatestPosition = 0x7FFB;
    const std::size_t position = 7 + 4 * before;
    if (position <= greatestPosition) {
      appendPosition(0x8000u | static_cast<unsigned>(position));
    } else {  // only in sort keys of very long texts, which no index holds
      appendPosition(0xFFFF);
      appendPosition(static_cast<unsigned>(position >> 16));
      appendPosition(static_cast<unsigned>(position & 0xFFFF));
    }
    records_ += '\x06';
    records_ += asChar(code);
  }

  // Without empty slots at the end.
  std::string_view accents() const {
    const char* end = accentsEnd_;
    while (end != accents_ && static_cast<std::uint8_t>(end[-1]) <= emptySlot) --end;
    return {accents_, static_cast<std::size_t>(end - accents_)};
  }
  const std::string& records() const { return records_; }

 private:
  void fillSlots(std::size_t slots) {
    accentsEnd_ = std::fill_n(accentsEnd_, slots - filled_, emptySlot);
    filled_ = slots;
  }
  void appendPosition(unsigned value) {
    records_ += asChar(value >> 8);
    records_ += asChar(value);
  }

  char* accents_;
  char* accentsEnd_;
  std::string records_;
  std::size_t filled_ = 0;  // slots that have bytes in `accents_`
  bool startsWithModifier_ = false;
};

// Everything between the start byte and the last byte; false if a unit has no known weight.
bool appendWeights(std::u16string_view text, std::string& target) {
  bool exact = true;
  // Room for the most that all units can add: primary bytes, their end, accents behind them until they are
  // moved up to that end.
  constexpr std::size_t unitPrimary = std::tuple_size_v<decltype(Weight::primary)>;
  constexpr std::size_t unitAccents = std::tuple_size_v<decltype(Weight::second)>;
  const std::size_t begin = target.size();
  target.resize(begin + text.size() * (unitPrimary + unitAccents) + 1);
  char* next = target.data() + begin;
  SecondaryParts secondary(next + text.size() * unitPrimary + 1);
  std::size_t slots = 0;
  const auto addPrimary = [&](const Weight& weight) {
    std::memcpy(next, weight.primary.data(), unitPrimary);
    next += weight.primaryLength;
  };
  for (const char16_t unit : text) {
    const Weight& known = weightTable.weight(unit);
    if (known.kind == Class::Simple) {  // most units: the switch would cost more than they do
      addPrimary(known);
      ++slots;
      continue;
    }
    switch (known.kind) {
      case Class::Simple:
        break;
      case Class::International:
        addPrimary(known);
        secondary.addAccents(known, slots++);
        break;
      case Class::Unprintable:
        secondary.addUnprintable(known.second[0], slots);
        break;
      case Class::Modifier:
        secondary.addModifier(known.second[0], slots);
        break;
      case Class::Ignored:
        break;
      case Class::Unknown: {
        const Weight outside = weightOutsideTable(unit);
        addPrimary(outside);
        if (outside.secondLength > 0) secondary.addAccents(outside, slots);
        ++slots;
        exact = exact && outside.kind != Class::Unknown;
        break;
      }
    }
  }
  *next++ = primaryEnd;
  const std::string_view accents = secondary.accents();
  next = std::copy(accents.begin(), accents.end(), next);
  target.resize(static_cast<std::size_t>(next - target.data()));
  if (!secondary.records().empty()) {
    target.append(3, primaryEnd);
    target += secondary.records();
  }
  return exact;
}

// Gives the primary bytes of a text one after the other, without building them.
class PrimaryBytes {
 public:
  explicit PrimaryBytes(std::u16string_view text) : text_(text) {}

  // -1 at the end.
  int next() {
    while (taken_ == current_.primaryLength) {
      if (position_ == text_.size()) return -1;
      const char16_t unit = text_[position_++];
      current_ = weightTable.weight(unit);
      if (current_.kind == Class::Unknown) current_ = weightOutsideTable(unit);
      taken_ = 0;
      if (current_.secondLength > 0) plain_ = false;
    }
    return current_.primary[taken_++];
  }
  // Whether nothing but primary bytes was met so far.
  bool plain() const { return plain_; }

 private:
  std::u16string_view text_;
  std::size_t position_ = 0;
  Weight current_;
  std::size_t taken_ = 0;
  bool plain_ = true;
};

}  // namespace

Key indexKey(std::u16string_view text) {
  Key key;
  key.exact = appendIndexKey(text, false, key.bytes);
  return key;
}

bool appendIndexKey(std::u16string_view text, bool descending, std::string& target) {
  target += descending ? startDescending : startAscending;
  const std::size_t begin = target.size();
  const bool exact = appendWeights(indexedPart(text), target);
  if (descending) {
    target += keyEnd;
    invert(target, begin);
  }
  target += keyEnd;
  return exact;
}

void appendSortKey(std::u16string_view text, std::string& target) {
  target += startAscending;
  appendWeights(withoutTrailingBlanks(text), target);
  target += keyEnd;
}

std::strong_ordering compare(std::u16string_view left, std::u16string_view right) {
  left = withoutTrailingBlanks(left);
  right = withoutTrailingBlanks(right);
  // An equal beginning contributes the same to both keys.
  const auto [l, r] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
  if (l == left.end() && r == right.end()) return std::strong_ordering::equal;

  const auto equalUnits = static_cast<std::size_t>(l - left.begin());
  PrimaryBytes leftBytes(left.substr(equalUnits)), rightBytes(right.substr(equalUnits));
  int leftByte = 0, rightByte = 0;
  do {
    leftByte = leftBytes.next();
    rightByte = rightBytes.next();
    if (leftByte != rightByte) return leftByte <=> rightByte;
  } while (leftByte >= 0);
  if (leftBytes.plain() && rightBytes.plain()) return std::strong_ordering::equal;

  std::string leftKey, rightKey;
  appendWeights(left, leftKey);
  appendWeights(right, rightKey);
  return leftKey <=> rightKey;
}

bool equal(std::u16string_view left, std::u16string_view right) { return compare(left, right) == 0; }

bool appendIndexKeyJet3(std::u16string_view text, bool descending, std::string& target) {
  const std::size_t begin = target.size();
  target += startAscending;
  bool exact = true;
  std::size_t pendingSlots = 0;
  std::string nibbles;
  for (const char16_t unit : indexedPart(text)) {
    const WeightJet3& weight = weightTable.weightJet3(unit);
    for (std::size_t i = 0; i < weight.primaryLength; ++i) target += asChar(weight.primary[i]);
    switch (weight.kind) {
      case ClassJet3::Simple:
        break;
      case ClassJet3::Slot:
        ++pendingSlots;
        break;
      case ClassJet3::TwoSlots:
        pendingSlots += 2;
        break;
      case ClassJet3::Accent:
        nibbles.append(pendingSlots, emptySlot);
        pendingSlots = 0;
        nibbles += asChar(weight.nibble);
        break;
      case ClassJet3::None:
        for (const std::uint8_t byte : unknownWeight(unit).primary) target += asChar(byte);
        exact = false;
        break;
    }
  }
  if (nibbles.empty()) {
    target += keyEnd;
  } else {  // packed, framed by zeros
    nibbles = std::string(1, '\0') + nibbles + '\0';
    if (nibbles.size() % 2 != 0) nibbles += '\0';
    for (std::size_t i = 0; i < nibbles.size(); i += 2) {
      target += asChar(static_cast<unsigned>(nibbles[i]) << 4 | static_cast<unsigned>(nibbles[i + 1]));
    }
  }
  if (descending) invert(target, begin);
  return exact;
}

}  // namespace jet::collation
