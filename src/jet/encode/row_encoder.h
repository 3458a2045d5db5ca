#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "jet/table_definition.h"
#include "jet/value.h"

namespace jet::encode {

inline constexpr std::size_t largestRow = 4060;  // bytes

// Makes a value fit its column: checks type, range and length, and brings it into the form that is stored
// (so that index keys are those of the stored bytes); a Null truth value becomes false. Errors: TypeMismatch,
// Limit; both name the column.
Value storableValue(Value value, const ColumnDefinition& column);

// Appends the stored bytes of a value that is not Null and not a truth value; of a long value its content.
void appendStored(Bytes& target, const Value& value, const ColumnDefinition& column);

// One row's bytes. Variable columns must come in the order of their variable index.
class RowAssembler {
 public:
  // `fixedBytes`: size of the fixed area. The counts include deleted columns.
  RowAssembler(std::uint16_t columnCount, std::uint16_t variableCount, std::size_t fixedBytes);

  void markNotNull(const ColumnDefinition& column);
  void setFixed(const ColumnDefinition& column, std::span<const std::uint8_t> bytes);
  void appendVariable(const ColumnDefinition& column, std::span<const std::uint8_t> bytes);
  // The whole row; this object is used up.
  Bytes finish();
  // Bytes of a row around the content of its variable columns.
  static std::size_t overhead(std::uint16_t columnCount, std::uint16_t variableCount, std::size_t fixedBytes);

 private:
  Bytes row_;
  std::vector<std::uint16_t> variableStarts_;
  std::uint16_t variableCount_;
  Bytes nullMask_;
};

// The stored bytes of a variable column in a row; empty where the row does not have it.
std::span<const std::uint8_t> storedVariable(std::span<const std::uint8_t> row,
                                             const ColumnDefinition& column);

}  // namespace jet::encode
