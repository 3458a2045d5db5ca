#include "jet/encode/row_encoder.h"

#include <algorithm>

#include "jet/encode/bytes.h"

namespace jet::encode {

namespace {

std::size_t maskSize(std::size_t columns) { return (columns + 7) / 8; }

}  // namespace

RowAssembler::RowAssembler(std::uint16_t columnCount, std::uint16_t variableCount, std::size_t fixedBytes)
    : variableCount_(variableCount), nullMask_(maskSize(columnCount)) {
  row_.reserve(512);
  append16(row_, columnCount);
  row_.resize(row_.size() + fixedBytes);
}

std::size_t RowAssembler::overhead(std::uint16_t columnCount, std::uint16_t variableCount,
                                   std::size_t fixedBytes) {
  const std::size_t variableTable = variableCount == 0 ? 0 : 4 + 2 * std::size_t{variableCount};
  return 2 + fixedBytes + variableTable + maskSize(columnCount);
}

void RowAssembler::markNotNull(const ColumnDefinition& column) {
  auto& mask = nullMask_[column.number / 8];
  mask = static_cast<std::uint8_t>(mask | 1u << column.number % 8);
}

void RowAssembler::setFixed(const ColumnDefinition& column, std::span<const std::uint8_t> bytes) {
  markNotNull(column);
  std::ranges::copy(bytes, row_.begin() + 2 + column.fixedOffset);
}

void RowAssembler::appendVariable(const ColumnDefinition& column, std::span<const std::uint8_t> bytes) {
  markNotNull(column);
  // Columns in between are null or deleted: they end where they start.
  variableStarts_.resize(column.variableIndex + std::size_t{1}, static_cast<std::uint16_t>(row_.size()));
  row_.insert(row_.end(), bytes.begin(), bytes.end());
}

Bytes RowAssembler::finish() {
  if (variableCount_ > 0) {
    const auto end = static_cast<std::uint16_t>(row_.size());
    variableStarts_.resize(variableCount_, end);
    append16(row_, end);
    for (std::size_t i = variableCount_; i-- > 0;) append16(row_, variableStarts_[i]);
    append16(row_, variableCount_);
  }
  row_.insert(row_.end(), nullMask_.begin(), nullMask_.end());
  return std::move(row_);
}

std::span<const std::uint8_t> storedVariable(std::span<const std::uint8_t> row,
                                             const ColumnDefinition& column) {
  const std::uint16_t columns = get16(row, 0);
  if (column.number >= columns) return {};
  const std::size_t mask = row.size() - maskSize(columns);
  if ((row[mask + column.number / 8] & 1u << column.number % 8) == 0) return {};
  if (column.variableIndex >= get16(row, mask - 2)) return {};
  const std::size_t entry = mask - 4 - 2 * std::size_t{column.variableIndex};
  const std::uint16_t start = get16(row, entry), end = get16(row, entry - 2);
  return row.subspan(start, end - start);
}

}  // namespace jet::encode
