#include <bit>
#include <limits>
#include <type_traits>

#include "jet/encode/bytes.h"
#include "jet/encode/row_encoder.h"
#include "jet/encode/text_encoder.h"
#include "jet/error.h"
#include "jet/text_codec.h"

namespace jet::encode {

namespace {

[[noreturn]] void fail(ErrorKind kind, const char* reason, const ColumnDefinition& column) {
  throw Error(kind, std::string(reason) + ": column " + toUtf8(column.name));
}

template <typename T>
T& expect(Value& value, const ColumnDefinition& column) {
  if (T* content = std::get_if<T>(&value)) return *content;
  fail(ErrorKind::TypeMismatch, "the value does not have the column's type", column);
}

template <typename Stored>
void checkRange(Value& value, const ColumnDefinition& column) {
  const std::int32_t number = expect<std::int32_t>(value, column);
  if (number < std::numeric_limits<Stored>::min() || number > std::numeric_limits<Stored>::max()) {
    fail(ErrorKind::Limit, "the number is out of the column's range", column);
  }
}

// Minus zero has another index key than zero, although both are equal.
template <typename T>
void normaliseZero(T& number) {
  if (number == 0) number = 0;
}

void checkLength(std::size_t bytes, const ColumnDefinition& column) {
  if (!column.isLongValue() && bytes > column.length) {
    fail(ErrorKind::Limit, "the value is longer than the column", column);
  }
}

int digitsOf(Numeric number) {
  int digits = 0;
  while (number.groups != decltype(number.groups){}) {
    std::uint64_t rest = 0;
    for (std::uint32_t& group : number.groups) {
      const std::uint64_t part = rest << 32 | group;
      group = static_cast<std::uint32_t>(part / 10);
      rest = part % 10;
    }
    ++digits;
  }
  return digits;
}

void checkNumeric(Numeric& number, const ColumnDefinition& column) {
  if (number.scale != column.scale) fail(ErrorKind::TypeMismatch, "the number has another scale", column);
  if (digitsOf(number) > column.precision) {
    fail(ErrorKind::Limit, "the number has too many digits", column);
  }
  if (number.groups == decltype(number.groups){}) number.negative = false;
}

struct Appender {
  Bytes& target;
  const ColumnDefinition& column;

  void operator()(Null) const {}
  void operator()(bool) const {}
  void operator()(std::int32_t number) const {
    if (column.type == ColumnType::Byte) return append8(target, static_cast<std::uint32_t>(number));
    if (column.type == ColumnType::Integer) return append16(target, static_cast<std::uint32_t>(number));
    append32(target, static_cast<std::uint32_t>(number));
  }
  void operator()(float number) const { append32(target, std::bit_cast<std::uint32_t>(number)); }
  void operator()(double number) const { append64(target, std::bit_cast<std::uint64_t>(number)); }
  void operator()(Currency amount) const {
    append64(target, static_cast<std::uint64_t>(amount.tenThousandths));
  }
  void operator()(DateTime date) const { (*this)(date.days); }
  void operator()(const Guid& guid) const {
    target.insert(target.end(), guid.bytes.begin(), guid.bytes.end());
  }
  void operator()(const Numeric& number) const {
    append8(target, number.negative ? 0x80 : 0);
    for (const std::uint32_t group : number.groups) append32(target, group);
  }
  void operator()(const Text& text) const { appendStoredText(target, text, column.compressed); }
  void operator()(const Bytes& bytes) const { target.insert(target.end(), bytes.begin(), bytes.end()); }
};

}  // namespace

Value storableValue(Value value, const ColumnDefinition& column) {
  if (isNull(value)) return column.type == ColumnType::Boolean ? Value(false) : value;
  switch (column.type) {
    case ColumnType::Boolean:
      expect<bool>(value, column);
      break;
    case ColumnType::Byte:
      checkRange<std::uint8_t>(value, column);
      break;
    case ColumnType::Integer:
      checkRange<std::int16_t>(value, column);
      break;
    case ColumnType::Long:
      expect<std::int32_t>(value, column);
      break;
    case ColumnType::Currency:
      expect<Currency>(value, column);
      break;
    case ColumnType::Single:
      normaliseZero(expect<float>(value, column));
      break;
    case ColumnType::Double:
      normaliseZero(expect<double>(value, column));
      break;
    case ColumnType::DateTime:
      normaliseZero(expect<DateTime>(value, column).days);
      break;
    case ColumnType::Guid:
      expect<Guid>(value, column);
      break;
    case ColumnType::Numeric:
      checkNumeric(expect<Numeric>(value, column), column);
      break;
    case ColumnType::Binary:
    case ColumnType::Ole:
      checkLength(expect<Bytes>(value, column).size(), column);
      break;
    case ColumnType::Text:
    case ColumnType::Memo: {
      auto& text = expect<Text>(value, column);
      text = storableText(std::move(text));
      checkLength(2 * text.size(), column);
      break;
    }
  }
  return value;
}

void appendStored(Bytes& target, const Value& value, const ColumnDefinition& column) {
  std::visit(Appender{target, column}, value);
}

}  // namespace jet::encode
