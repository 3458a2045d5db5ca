#include "jet/export.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <utility>

#include "jet/text_codec.h"

namespace jet {
namespace {

// UTF-8, with escapes for the characters that would break a line.
void appendEscaped(std::u16string_view text, std::string& target) {
  static constexpr std::string_view special("\t\n\r\0\\", 5), letters = "tnr0\\";
  for (const char byte : toUtf8(text)) {
    const std::size_t found = special.find(byte);
    if (found != std::string_view::npos) target += '\\';
    target += found != std::string_view::npos ? letters[found] : byte;
  }
}

void appendHex(std::span<const std::uint8_t> bytes, std::string& target) {
  static constexpr std::string_view digits = "0123456789ABCDEF";
  for (const std::uint8_t byte : bytes) {
    target += digits[byte >> 4];
    target += digits[byte & 15];
  }
}

// The shortest digits that read back as the same number, without an exponent.
template <typename Float>
void appendFloat(Float number, std::string& target) {
  if (number == 0) number = 0;  // no minus for the negative zero
  std::array<char, 400> buffer;
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, std::chars_format::fixed);
  target.append(buffer.data(), end.ptr);
}

// `digits` * 10^-scale
void appendDecimal(bool negative, std::string digits, std::size_t scale, std::string& target) {
  if (digits.size() <= scale) digits.insert(0, scale + 1 - digits.size(), '0');
  std::string fraction = digits.substr(digits.size() - scale);
  digits.resize(digits.size() - scale);
  fraction.resize(fraction.find_last_not_of('0') + 1);
  const std::string whole = fraction.empty() ? digits : digits + '.' + fraction;
  if (negative && whole.find_first_not_of("0.") != std::string::npos) target += '-';
  target += whole;
}

std::string magnitudeDigits(std::array<std::uint32_t, 4> groups) {
  std::string digits;
  while (std::any_of(groups.begin(), groups.end(), [](std::uint32_t group) { return group != 0; })) {
    std::uint64_t rest = 0;
    for (std::uint32_t& group : groups) {
      const std::uint64_t dividend = rest << 32 | group;
      group = static_cast<std::uint32_t>(dividend / 10);
      rest = dividend % 10;
    }
    digits.insert(digits.begin(), static_cast<char>('0' + rest));
  }
  return digits.empty() ? "0" : digits;
}

void appendPadded(int number, std::size_t width, std::string& target) {
  const std::string digits = std::to_string(number);
  if (digits.size() < width) target.append(width - digits.size(), '0');
  target += digits;
}

void appendDate(double days, std::string& target) {
  constexpr double firstDay = -657434, lastDay = 2958465;  // years 100 to 9999
  if (!(days > firstDay - 1 && days < lastDay + 1)) {
    target += "date ";
    if (std::isfinite(days)) return appendFloat(days, target);
    target += std::isnan(days) ? "nan" : "inf";
    return;
  }
  int day = static_cast<int>(days);
  int seconds = static_cast<int>(std::lround(std::fabs(days - day) * 86400));
  if (seconds == 86400) {
    ++day;
    seconds = 0;
  }
  using namespace std::chrono;
  const year_month_day date(sys_days(year(1899) / December / 30) + std::chrono::days(day));
  appendPadded(static_cast<int>(date.year()), 4, target);
  const std::array<std::pair<char, unsigned>, 5> parts{{{'-', static_cast<unsigned>(date.month())},
                                                        {'-', static_cast<unsigned>(date.day())},
                                                        {'T', static_cast<unsigned>(seconds / 3600)},
                                                        {':', static_cast<unsigned>(seconds / 60 % 60)},
                                                        {':', static_cast<unsigned>(seconds % 60)}}};
  for (const auto& [separator, number] : parts) {
    target += separator;
    appendPadded(static_cast<int>(number), 2, target);
  }
}

void appendGuid(const Guid& guid, std::string& target) {
  const auto& stored = guid.bytes;
  const std::array<std::uint8_t, 16> printed{
      stored[3], stored[2], stored[1],  stored[0],  stored[5],  stored[4],  stored[7],  stored[6],
      stored[8], stored[9], stored[10], stored[11], stored[12], stored[13], stored[14], stored[15]};
  const std::span bytes(printed);
  target += '{';
  appendHex(bytes.subspan(0, 4), target);
  for (const auto& [start, length] : {std::pair{4, 2}, {6, 2}, {8, 2}, {10, 6}}) {
    target += '-';
    appendHex(bytes.subspan(static_cast<std::size_t>(start), static_cast<std::size_t>(length)), target);
  }
  target += '}';
}

struct CanonicalWriter {
  std::string& target;

  void operator()(Null) const { target += "\\N"; }
  void operator()(bool value) const { target += value ? "true" : "false"; }
  void operator()(std::int32_t value) const { target += std::to_string(value); }
  void operator()(float value) const { appendFloat(value, target); }
  void operator()(double value) const { appendFloat(value, target); }
  void operator()(Currency value) const {
    const bool negative = value.tenThousandths < 0;
    const auto bits = static_cast<std::uint64_t>(value.tenThousandths);
    appendDecimal(negative, std::to_string(negative ? 0 - bits : bits), 4, target);
  }
  void operator()(DateTime value) const { appendDate(value.days, target); }
  void operator()(const Guid& value) const { appendGuid(value, target); }
  void operator()(const Numeric& value) const {
    appendDecimal(value.negative, magnitudeDigits(value.groups), value.scale, target);
  }
  void operator()(const Text& value) const { appendEscaped(value, target); }
  void operator()(const Bytes& value) const {
    target += "0x";
    appendHex(value, target);
  }
};

struct Line {
  std::optional<double> number;  // the first field, where it is a number
  bool null = false;
  std::string text;
  std::size_t firstField = 0;  // its length

  bool operator<(const Line& other) const {
    if (null != other.null) return null;
    if (number && other.number && *number != *other.number) return *number < *other.number;
    if (!number) {
      const int order = text.compare(0, firstField, other.text, 0, other.firstField);
      if (order != 0) return order < 0;
    }
    return text < other.text;
  }
};

bool isNumber(ColumnType type) {
  switch (type) {
    case ColumnType::Byte:
    case ColumnType::Integer:
    case ColumnType::Long:
    case ColumnType::Currency:
    case ColumnType::Single:
    case ColumnType::Double:
    case ColumnType::Numeric:
      return true;
    default:
      return false;
  }
}

Line makeLine(const Row& row, std::size_t columns, bool numeric) {
  Line line;
  for (std::size_t i = 0; i < columns; ++i) {
    if (i != 0) line.text += '\t';
    appendCanonical(row.value(i), line.text);
    if (i == 0) line.firstField = line.text.size();
  }
  line.null = row.isNull(0);
  if (numeric && !line.null) line.number = std::strtod(line.text.c_str(), nullptr);
  return line;
}

}  // namespace

void appendCanonical(const Value& value, std::string& target) { std::visit(CanonicalWriter{target}, value); }

std::string canonicalTypeName(const ColumnDefinition& column, const Format& format) {
  const auto sized = [](const char* name, int size) {
    return std::string(name) + '(' + std::to_string(size) + ')';
  };
  switch (column.type) {
    case ColumnType::Boolean:
      return "BOOLEAN";
    case ColumnType::Byte:
      return "BYTE";
    case ColumnType::Integer:
      return "INT";
    case ColumnType::Long:
      return column.isAutoNumber() ? "LONG AUTO" : "LONG";
    case ColumnType::Currency:
      return "MONEY";
    case ColumnType::Single:
      return "FLOAT";
    case ColumnType::Double:
      return "DOUBLE";
    case ColumnType::DateTime:
      return "SHORT_DATE_TIME";
    case ColumnType::Binary:
      return sized("BINARY", column.length);
    case ColumnType::Text:
      return sized("TEXT", format.version == 4 ? column.length / 2 : column.length);
    case ColumnType::Ole:
      return "OLE";
    case ColumnType::Memo:
      return "MEMO";
    case ColumnType::Guid:
      return "GUID";
    case ColumnType::Numeric:
      return "NUMERIC(" + std::to_string(column.precision) + ',' + std::to_string(column.scale) + ')';
  }
  return sized("UNKNOWN", static_cast<int>(column.type));
}

std::string exportTable(const Table& table) {
  const auto& columns = table.definition().columns;
  std::string result;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (i != 0) result += '\t';
    appendEscaped(columns[i].name, result);
    result += ':' + canonicalTypeName(columns[i], table.file().format());
  }
  result += '\n';
  if (columns.empty()) return result;

  std::vector<Line> lines;
  TableScan scan = table.scan();
  for (Row row; scan.next(row);) {
    lines.push_back(makeLine(row, columns.size(), isNumber(columns[0].type)));
  }
  std::stable_sort(lines.begin(), lines.end());
  for (const Line& line : lines) {
    result += line.text;
    result += '\n';
  }
  return result;
}

}  // namespace jet
