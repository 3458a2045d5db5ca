#include "jet/long_value.h"
#include "jet/table.h"
#include "jet/text_codec.h"

namespace jet {
namespace {

// Jet 4 row: u16 column count, fixed values, variable values, u16 end of them, their u16 starts from the
// last to the first, u16 number of them, null mask.
constexpr std::uint32_t jet4Head = 2;
constexpr std::uint32_t jet4Tail = 4;  // the end of the values and the number of them
// Jet 3 row: the same with single bytes; entries above 255 come from a jump table behind the starts.
constexpr std::uint32_t jet3Head = 1;

Numeric readNumeric(const ByteReader& bytes, std::uint8_t scale) {
  Numeric number;
  number.negative = (bytes.u8(0) & 0x80) != 0;
  for (std::size_t i = 0; i < 4; ++i) number.groups[i] = bytes.u32(1 + 4 * i);
  number.scale = scale;
  return number;
}

Guid readGuid(const ByteReader& bytes) {
  Guid guid;
  const auto raw = bytes.slice(0, guid.bytes.size());
  std::copy(raw.begin(), raw.end(), guid.bytes.begin());
  return guid;
}

void decode(const PageFile& file, std::span<const std::uint8_t> bytes, Text& target) {
  file.format().version == 4 ? decodeText(bytes, target) : decodeText1252(bytes, target);
}

}  // namespace

void Row::parse() {
  const ByteReader row = reader();
  const bool jet4Row = table_->file_.format().version == 4;
  columnCount_ = jet4Row ? row.u16(0) : row.u8(0);
  const std::uint32_t head = jet4Row ? jet4Head : jet3Head;
  const std::uint32_t maskSize = (columnCount_ + 7u) / 8u;
  row.check(columnCount_ != 0 && columnCount_ <= table_->definition_.maxColumns,
            "a row has more columns than its table");
  row.check(row.size() >= head + maskSize, "a row is too short");
  nullMask_ = static_cast<std::uint32_t>(row.size()) - maskSize;
  const bool hasVariablePart = columnCount_ >= table_->columnsWithVariablePart_;
  if (!jet4Row) return parseJet3(hasVariablePart);
  if (!hasVariablePart) {
    variableCount_ = 0;
    variableTable_ = valuesEnd_ = nullMask_;
    return;
  }
  row.check(nullMask_ >= jet4Head + jet4Tail, "a row is too short");
  variableCount_ = row.u16(nullMask_ - 2);
  row.check(variableCount_ <= table_->definition_.variableColumns &&
                jet4Head + jet4Tail + 2u * variableCount_ <= nullMask_,
            "a row has more variable columns than its table");
  variableTable_ = nullMask_ - jet4Tail;
  valuesEnd_ = variableTable_ - 2u * variableCount_;
}

void Row::parseJet3(bool hasVariablePart) {
  if (!hasVariablePart) {
    variableCount_ = 0;
    variableTable_ = valuesEnd_ = nullMask_;
    return;
  }
  const ByteReader row = reader();
  const std::uint32_t jumps = static_cast<std::uint32_t>(row.size() - 1) / 256;
  row.check(nullMask_ >= jet3Head + 2 + jumps, "a row is too short");
  variableCount_ = row.u8(nullMask_ - 1);
  variableTable_ = nullMask_ - 2 - jumps;
  row.check(
      variableCount_ <= table_->definition_.variableColumns && jet3Head + variableCount_ <= variableTable_,
      "a row has more variable columns than its table");
  valuesEnd_ = variableTable_ - variableCount_;
}

std::uint32_t Row::variableStart(std::uint32_t index) const {
  const ByteReader row = reader();
  if (table_->file_.format().version == 4) return row.u16(variableTable_ - 2 * index);
  std::uint32_t jumps = static_cast<std::uint32_t>(row.size() - 1) / 256;
  // The last jump is there for nothing when the values end in an earlier stretch of 256 bytes.
  if (jumps != 0 && valuesEnd_ / 256 < jumps) --jumps;
  // Jump j tells which entry is the first behind the border (j + 1) * 256; they ascend.
  std::uint32_t passed = 0;
  while (passed < jumps && row.u8(nullMask_ - 2 - passed) <= index) ++passed;
  return row.u8(variableTable_ - index) + 256 * passed;
}

std::span<const std::uint8_t> Row::variable(std::uint32_t index) const {
  const std::uint32_t start = variableStart(index);
  const std::uint32_t end = variableStart(index + 1);
  reader().check(start >= jet3Head && start <= end && end <= valuesEnd_, "a value lies outside its row");
  return bytes_.subspan(start, end - start);
}

bool Row::maskBit(const ColumnDefinition& column) const {
  return column.number < columnCount_ &&
         (bytes_[nullMask_ + column.number / 8u] >> (column.number % 8) & 1) != 0;
}

bool Row::find(const ColumnDefinition& column, std::span<const std::uint8_t>& bytes) const {
  if (!maskBit(column)) return false;
  if (!column.isFixed()) {
    if (column.variableIndex >= variableCount_) return false;
    bytes = variable(column.variableIndex);
    // Only texts and binaries can be empty; elsewhere nothing stored means no value.
    return !bytes.empty() || column.type == ColumnType::Text || column.type == ColumnType::Binary;
  }
  const std::uint32_t start =
      column.fixedOffset + (table_->file_.format().version == 4 ? jet4Head : jet3Head);
  reader().check(start + column.length <= valuesEnd_, "a value lies outside its row");
  bytes = bytes_.subspan(start, column.length);
  return true;
}

bool Row::isNull(std::size_t position) const {
  const ColumnDefinition& column = table_->definition_.columns[position];
  std::span<const std::uint8_t> bytes;
  return column.type != ColumnType::Boolean && !find(column, bytes);
}

std::optional<std::span<const std::uint8_t>> Row::stored(std::size_t position) const {
  const ColumnDefinition& column = table_->definition_.columns[position];
  std::span<const std::uint8_t> bytes;
  if (column.type == ColumnType::Boolean || !find(column, bytes)) return std::nullopt;
  return bytes;
}

bool Row::asLong(std::size_t position, std::int32_t& target) const {
  const ColumnDefinition& column = table_->definition_.columns[position];
  std::span<const std::uint8_t> bytes;
  if (!find(column, bytes)) return false;
  const ByteReader value(bytes, page_->number);
  switch (column.type) {
    case ColumnType::Byte:
      target = value.u8(0);
      return true;
    case ColumnType::Integer:
      target = static_cast<std::int16_t>(value.u16(0));
      return true;
    default:
      target = static_cast<std::int32_t>(value.u32(0));
      return true;
  }
}

bool Row::asText(std::size_t position, Text& target) const {
  const ColumnDefinition& column = table_->definition_.columns[position];
  std::span<const std::uint8_t> bytes;
  if (!find(column, bytes)) return false;
  if (column.isLongValue()) {
    LongValue content;
    readLongValue(table_->file_, bytes, page_->number, content);
    decode(table_->file_, content.bytes, target);
  } else {
    decode(table_->file_, bytes, target);
  }
  return true;
}

Value Row::value(std::size_t position) const {
  const ColumnDefinition& column = table_->definition_.columns[position];
  if (column.type == ColumnType::Boolean) return maskBit(column);
  std::span<const std::uint8_t> bytes;
  if (!find(column, bytes)) return Null{};
  const ByteReader value(bytes, page_->number);
  switch (column.type) {
    case ColumnType::Byte:
      return std::int32_t{value.u8(0)};
    case ColumnType::Integer:
      return std::int32_t{static_cast<std::int16_t>(value.u16(0))};
    case ColumnType::Long:
      return static_cast<std::int32_t>(value.u32(0));
    case ColumnType::Currency:
      return Currency{static_cast<std::int64_t>(value.u64(0))};
    case ColumnType::Single:
      return value.f32(0);
    case ColumnType::Double:
      return value.f64(0);
    case ColumnType::DateTime:
      return DateTime{value.f64(0)};
    case ColumnType::Guid:
      return readGuid(value);
    case ColumnType::Numeric:
      return readNumeric(value, column.scale);
    case ColumnType::Text:
    case ColumnType::Memo: {
      Text text;
      asText(position, text);
      return text;
    }
    case ColumnType::Ole: {
      LongValue content;
      readLongValue(table_->file_, bytes, page_->number, content);
      return Bytes(content.bytes.begin(), content.bytes.end());
    }
    default:
      return Bytes(bytes.begin(), bytes.end());
  }
}

}  // namespace jet
