#include "jet/encode/row_contents.h"

#include <algorithm>

#include "jet/encode/bytes.h"
#include "jet/encode/long_value_encoder.h"
#include "jet/encode/row_encoder.h"
#include "jet/error.h"
#include "jet/long_value.h"

namespace jet::encode {

namespace {

// Bytes of a long value that may stand in the row or not, as is convenient; its content, or nothing.
std::span<const std::uint8_t> movableContent(const ColumnContent& content) {
  const std::span<const std::uint8_t> bytes = content.bytes;
  if (!content.isReference) return bytes.size() <= largestInlineValue ? bytes : bytes.first(0);
  const ByteReader stored(bytes, 0);
  const auto reference = LongValueReference::read(stored);
  return reference.kind == LongValueKind::Inline ? stored.slice(LongValueReference::size, reference.length)
                                                 : bytes.first(0);
}

}  // namespace

void ColumnContent::set(const Value& value, const ColumnDefinition& column) {
  const bool* truth = std::get_if<bool>(&value);
  present = truth != nullptr ? *truth : !isNull(value);
  isReference = false;
  bytes.clear();
  appendStored(bytes, value, column);
}

std::size_t fixedBytesOf(const TableDefinition& definition) {
  std::size_t end = 0;
  for (const ColumnDefinition& column : definition.columns) {
    if (!column.isFixed() || column.type == ColumnType::Boolean) continue;
    end = std::max<std::size_t>(end, column.fixedOffset + column.length);
  }
  return end;
}

std::vector<std::size_t> variableOrder(const TableDefinition& definition) {
  std::vector<std::size_t> order;
  for (std::size_t i = 0; i < definition.columns.size(); ++i) {
    const ColumnDefinition& column = definition.columns[i];
    if (!column.isFixed() && column.type != ColumnType::Boolean) order.push_back(i);
  }
  std::ranges::sort(order, {}, [&](std::size_t i) { return definition.columns[i].variableIndex; });
  return order;
}

bool allowsInline(const TableDefinition& definition, std::size_t fixedBytes,
                  std::span<const ColumnContent> contents) {
  std::size_t length = RowAssembler::overhead(definition.maxColumns, definition.variableColumns, fixedBytes);
  std::size_t inlineLength = 0;
  for (std::size_t i = 0; i < contents.size(); ++i) {
    const ColumnDefinition& column = definition.columns[i];
    if (column.isFixed() || !contents[i].present) continue;
    if (column.isLongValue()) {
      length += LongValueReference::size;
      inlineLength += movableContent(contents[i]).size();
    } else {
      length += contents[i].bytes.size();
    }
  }
  if (length > largestRow) throw Error(ErrorKind::Limit, "a row is larger than a page can hold");
  return length + inlineLength <= largestRow;
}

Bytes assembleRow(const TableDefinition& definition, std::size_t fixedBytes,
                  std::span<const std::size_t> variableOrder, std::span<const ColumnContent> contents,
                  bool inlineAllowed, const LongValueSink& storeLongValue) {
  RowAssembler row(definition.maxColumns, definition.variableColumns, fixedBytes);
  for (std::size_t i = 0; i < contents.size(); ++i) {
    const ColumnDefinition& column = definition.columns[i];
    if (!contents[i].present) continue;
    if (column.type == ColumnType::Boolean) {
      row.markNotNull(column);
    } else if (column.isFixed()) {
      row.setFixed(column, contents[i].bytes);
    }
  }
  Bytes longValue;
  for (const std::size_t i : variableOrder) {
    const ColumnDefinition& column = definition.columns[i];
    const ColumnContent& content = contents[i];
    if (!content.present) continue;
    const bool mustMove = content.isReference && !inlineAllowed && !movableContent(content).empty();
    if (!column.isLongValue() || (content.isReference && !mustMove)) {
      row.appendVariable(column, content.bytes);
    } else {
      longValue.clear();
      storeLongValue(longValue, column, mustMove ? movableContent(content) : std::span(content.bytes));
      row.appendVariable(column, longValue);
    }
  }
  return row.finish();
}

}  // namespace jet::encode
