#pragma once

#include <string>

#include "jet/table.h"

namespace jet {

// Values and tables as plain text, one way only, so that two files can be compared: UTF-8, \t \n \r \0 \\ for
// the characters that would break a line, \N for Null, numbers without trailing zeros, dates as
// yyyy-mm-ddThh:mm:ss (a stored number that is no date stands as "date" and the number), binary data as 0x
// and hexadecimal digits.

// Appends to `target`.
void appendCanonical(const Value& value, std::string& target);

// LONG, LONG AUTO, TEXT(50), NUMERIC(18,4) and so on.
std::string canonicalTypeName(const ColumnDefinition& column, const Format& format);

// The whole table, tab separated, lines end with a line feed: first `column:type`, then the rows, sorted by
// the first column (as a number where it is one, Nulls first), then by the bytes of the line.
std::string exportTable(const Table& table);

}  // namespace jet
