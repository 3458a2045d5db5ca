#include "jet/write/column_rules.h"

#include <string>
#include <utility>

#include "jet/encode/row_encoder.h"
#include "jet/error.h"
#include "jet/text_codec.h"
#include "jet/write/default_value.h"

namespace jet::write {

namespace {

[[noreturn]] void fail(ErrorKind kind, const char* reason, const ColumnDefinition& column) {
  throw Error(kind, std::string(reason) + ": column " + toUtf8(column.name));
}

}  // namespace

ColumnRules::ColumnRules(const TableDefinition& definition, const std::vector<ColumnProperties>& properties)
    : definition_(definition), properties_(properties) {
  for (std::size_t i = 0; i < properties.size(); ++i) {
    const ColumnDefinition& column = definition.columns[i];
    const bool generated = (column.flags & column_flag::autoGuid) != 0;
    defaults_.push_back(generated ? std::nullopt : evaluateDefault(properties[i].defaultValue, column));
  }
}

Value ColumnRules::defaultOf(std::size_t column) const {
  if (defaults_[column]) return *defaults_[column];
  fail(ErrorKind::NotWritable, "a default value that cannot be computed", definition_.columns[column]);
}

Value ColumnRules::checked(Value value, std::size_t position) const {
  const ColumnDefinition& column = definition_.columns[position];
  value = encode::storableValue(std::move(value), column);
  if (properties_[position].required && isNull(value)) {
    fail(ErrorKind::Constraint, "a required value is missing", column);
  }
  const Text* text = std::get_if<Text>(&value);
  if (text != nullptr && text->empty() && !properties_[position].allowZeroLength) {
    fail(ErrorKind::Constraint, "an empty text where none is allowed", column);
  }
  return value;
}

}  // namespace jet::write
