#include "jet/write/default_value.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>

namespace jet::write {
namespace {

constexpr std::array<std::string_view, 5> trueWords = {"true", "yes", "on", "ja", "wahr"};
constexpr std::array<std::string_view, 5> falseWords = {"false", "no", "off", "nein", "falsch"};

Text trimmed(const Text& text) {
  const std::size_t begin = text.find_first_not_of(u" \t\r\n");
  if (begin == Text::npos) return {};
  return text.substr(begin, text.find_last_not_of(u" \t\r\n") - begin + 1);
}

// Plain ASCII in small letters; empty if the text is something else.
std::string asciiWord(const Text& text) {
  std::string word;
  for (const char16_t unit : text) {
    if (unit < u' ' || unit > u'~') return {};
    const char letter = static_cast<char>(unit);
    word += letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
  }
  return word;
}

// "text" or 'text' as a whole; a quote inside stands twice.
std::optional<Text> unquoted(const Text& text) {
  if (text.size() < 2 || (text.front() != u'"' && text.front() != u'\'') || text.back() != text.front()) {
    return std::nullopt;
  }
  Text content;
  for (std::size_t i = 1; i + 1 < text.size(); ++i) {
    content += text[i];
    if (text[i] == text.front() && (++i + 1 >= text.size() || text[i] != text.front())) return std::nullopt;
  }
  return content;
}

// A decimal number without exponent: sign, digits without the point, how many of them stand behind it.
struct Decimal {
  bool negative = false;
  std::uint64_t digits = 0;
  unsigned scale = 0;
};

std::optional<Decimal> decimal(std::string_view word) {
  Decimal number;
  if (word.starts_with('-') || word.starts_with('+')) {
    number.negative = word.front() == '-';
    word.remove_prefix(1);
  }
  const std::size_t point = word.find('.');
  std::string digits(word.substr(0, point));
  if (point != std::string_view::npos) {
    digits += word.substr(point + 1);
    number.scale = static_cast<unsigned>(word.size() - point - 1);
  }
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number.digits);
  const bool whole =
      !digits.empty() && result.ec == std::errc() && result.ptr == digits.data() + digits.size();
  return whole ? std::optional(number) : std::nullopt;
}

// The digits at another scale; nullopt where digits would be lost or do not fit.
std::optional<std::uint64_t> digitsAt(Decimal number, unsigned scale) {
  for (; number.scale > scale && number.digits % 10 == 0; --number.scale) number.digits /= 10;
  for (; number.scale < scale; ++number.scale) {
    if (number.digits > std::numeric_limits<std::int64_t>::max() / 10) return std::nullopt;
    number.digits *= 10;
  }
  if (number.scale != scale || number.digits > std::numeric_limits<std::int64_t>::max()) return std::nullopt;
  return number.digits;
}

std::optional<Value> numberFor(const Decimal& number, const ColumnDefinition& column) {
  const unsigned scale = column.type == ColumnType::Currency  ? 4
                         : column.type == ColumnType::Numeric ? column.scale
                                                              : 0;
  const bool isFloat = column.type == ColumnType::Single || column.type == ColumnType::Double;
  if (isFloat) {
    const double size = static_cast<double>(number.digits) / std::pow(10.0, number.scale);
    const double value = number.negative ? -size : size;
    if (column.type == ColumnType::Single) return static_cast<float>(value);
    return value;
  }
  const auto digits = digitsAt(number, scale);
  if (!digits) return std::nullopt;
  const auto value =
      number.negative ? -static_cast<std::int64_t>(*digits) : static_cast<std::int64_t>(*digits);
  switch (column.type) {
    case ColumnType::Boolean:
      return value != 0;
    case ColumnType::Byte:
    case ColumnType::Integer:
    case ColumnType::Long:
      if (value != static_cast<std::int32_t>(value)) return std::nullopt;
      return static_cast<std::int32_t>(value);
    case ColumnType::Currency:
      return Currency{value};
    case ColumnType::Numeric:
      return Numeric{number.negative,
                     {0, 0, static_cast<std::uint32_t>(*digits >> 32), static_cast<std::uint32_t>(*digits)},
                     column.scale};
    default:
      return std::nullopt;
  }
}

bool isText(const ColumnDefinition& column) {
  return column.type == ColumnType::Text || column.type == ColumnType::Memo;
}

template <typename Words>
bool contains(const Words& words, std::string_view word) {
  for (const std::string_view known : words) {
    if (known == word) return true;
  }
  return false;
}

std::optional<Value> truthFor(bool truth, const ColumnDefinition& column) {
  if (column.type == ColumnType::Boolean) return truth;
  return numberFor({truth, truth ? 1u : 0u, 0}, column);  // true is -1
}

}  // namespace

std::optional<Value> evaluateDefault(const Text& expression, const ColumnDefinition& column) {
  Text text = trimmed(expression);
  if (text.starts_with(u'=')) text = trimmed(text.substr(1));
  if (text.empty()) return Null{};
  if (auto content = unquoted(text)) {
    if (isText(column)) return *content;
    text = trimmed(*content);  // "5" for a number
  }
  const std::string word = asciiWord(text);
  if (word == "null") return Null{};
  const auto number = decimal(word);
  if (isText(column)) {
    if (!number) return std::nullopt;
    return text;
  }
  if (number) return numberFor(*number, column);
  if (contains(trueWords, word)) return truthFor(true, column);
  if (contains(falseWords, word)) return truthFor(false, column);
  return std::nullopt;
}

}  // namespace jet::write
