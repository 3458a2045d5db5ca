#pragma once

#include <string>

#include "jet/table_definition.h"
#include "jet/value.h"

namespace jet {

// Whether keys over this column can be computed as Access computes them.
bool hasComputableKey(const ColumnDefinition& column, const Format& format);

// Appends the key bytes of one column's value, start byte included; multi-column keys are the columns' keys
// one after another. False if the bytes would not be those of Access (characters without a known weight).
// The value must have the column's type or be Null.
bool appendKey(const Value& value, const ColumnDefinition& column, bool descending, const Format& format,
               std::string& key);

}  // namespace jet
