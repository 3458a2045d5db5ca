#pragma once

#include <random>
#include <string>
#include <vector>

#include "jet/create/database_builder.h"
#include "jet/value.h"

namespace jet::test {

// Tables for long random changes. "Personen": every column type, indexes of all kinds, one of them over a
// memo. "Zuordnung": longs and a unique index over two. "Protokoll": rules for its texts and no index.
std::vector<create::TableSpec> randomTables();

// A value for a column of these tables, Null among them where the column may be Null. Texts that are compared
// or indexed are such that equal keys mean equal bytes.
Value randomValue(const create::ColumnSpec& column, std::mt19937& random);

// Text as plain as possible of a value, see appendCanonical.
std::string plainText(const Value& value);

}  // namespace jet::test
