#pragma once

#include <optional>
#include <vector>

#include "jet/properties.h"
#include "jet/table_definition.h"
#include "jet/value.h"

namespace jet::write {

// What the columns of a table ask of their values. Positions are those of TableDefinition::columns.
class ColumnRules {
 public:
  // `definition` must outlive this.
  ColumnRules(const TableDefinition& definition, const std::vector<ColumnProperties>& properties);

  // What a new row gets where no value is given; not for automatic numbers. Error(NotWritable), naming the
  // column: its default value cannot be computed here.
  Value defaultOf(std::size_t column) const;
  // The value in the form in which it is stored. Errors, naming the column: TypeMismatch, Limit, Constraint
  // (Null or an empty text where there must be none).
  Value checked(Value value, std::size_t position) const;

 private:
  const TableDefinition& definition_;
  std::vector<ColumnProperties> properties_;
  std::vector<std::optional<Value>> defaults_;  // nullopt: not understood
};

}  // namespace jet::write
