#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "jet/sql/decimal.h"
#include "jet/table.h"

namespace jet::sql {

// How two operands of = are compared. Numbers: as whole numbers where both sides are, as doubles where one
// side is a single or double, otherwise exactly.
enum class Comparison : std::uint8_t { Whole, Exact, Floating, Date, Text, Guid, Binary, None };

// The comparison of two columns, or of a column with a number or text; None where the types do not compare.
Comparison comparisonOf(ColumnType left, ColumnType right);
Comparison comparisonWithText(ColumnType column);
Comparison comparisonWithNumber(ColumnType column, const Decimal& number);

// A value prepared for one kind of comparison; only the member of that kind is set. Reused in loops, so that
// texts keep their memory.
struct Scalar {
  std::int64_t whole = 0;  // truth values are -1 and 0
  double floating = 0;     // also dates
  Decimal exact;
  Text text;
  std::array<std::uint8_t, 16> guid{};
  Bytes binary;
};

// False for Null (and for a value that is no number: nothing equals it).
bool read(const Row& row, std::size_t column, ColumnType type, Comparison comparison, Scalar& target);
void setNumber(const Decimal& number, Comparison comparison, Scalar& target);

bool equal(const Scalar& left, const Scalar& right, Comparison comparison);

// Equal values have equal hashes. `seed` is the hash of the columns before; `buffer` is working memory.
std::uint64_t hash(const Scalar& value, Comparison comparison, std::uint64_t seed, std::string& buffer);

// A value as the index of a column needs it to find what equals it.
enum class IndexValue : std::uint8_t {
  Found,    // `target` is the only value of the column that equals it
  Nothing,  // no value of the column can equal it
  Unknown,  // several values may equal it, or it cannot be told: the index cannot be used
};
IndexValue toIndexValue(const Scalar& value, Comparison comparison, const ColumnDefinition& column,
                        Value& target);
// Whether the index of a column of this type is of any use for the comparison.
bool isIndexable(ColumnType column, Comparison comparison);

}  // namespace jet::sql
