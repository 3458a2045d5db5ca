#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "jet/table_definition.h"
#include "jet/value.h"

namespace jet::encode {

// What one column has to put into a row.
struct ColumnContent {
  bool present = false;  // not Null; a truth value: true
  // Long values only: `bytes` are what an earlier row held (reference, and the content if it is inline).
  bool isReference = false;
  Bytes bytes;  // as stored; of a new long value its content

  // A new value, in the form of `storableValue`.
  void set(const Value& value, const ColumnDefinition& column);
};

// Bytes of the fixed area of rows written now.
std::size_t fixedBytesOf(const TableDefinition& definition);

// The variable columns in the order of their values in a row; positions in TableDefinition::columns.
std::vector<std::size_t> variableOrder(const TableDefinition& definition);

// Whether short long values may stand in the row: it must have room for them all. Error(Limit): the row has
// no room even without them.
bool allowsInline(const TableDefinition& definition, std::size_t fixedBytes,
                  std::span<const ColumnContent> contents);

// Appends to `target` what the row holds for a new long value.
using LongValueSink =
    std::function<void(Bytes& target, const ColumnDefinition& column, std::span<const std::uint8_t> content)>;

// The row's bytes. `contents` runs beside TableDefinition::columns. References stay as they are, unless an
// inline one is not allowed.
Bytes assembleRow(const TableDefinition& definition, std::size_t fixedBytes,
                  std::span<const std::size_t> variableOrder, std::span<const ColumnContent> contents,
                  bool inlineAllowed, const LongValueSink& storeLongValue);

}  // namespace jet::encode
