#pragma once

#include <optional>

#include "jet/table_definition.h"
#include "jet/value.h"

namespace jet::write {

// The value of a DefaultValue property for a column: numbers, texts in quotes, truth values and Null, with or
// without a leading "=". nullopt: not understood (functions, the date of today among them), or not a value
// of the column's type.
std::optional<Value> evaluateDefault(const Text& expression, const ColumnDefinition& column);

}  // namespace jet::write
