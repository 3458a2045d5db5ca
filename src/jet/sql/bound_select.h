#pragma once

#include <cstdint>
#include <vector>

#include "jet/sql/ast.h"
#include "jet/sql/scalar.h"
#include "jet/table.h"

namespace jet::sql {

// The query with every name resolved. Table numbers are places in the FROM clause. Reused from query to
// query.

struct BoundColumn {
  std::uint8_t table = 0;
  std::uint16_t column = 0;  // position in TableDefinition::columns
  bool operator==(const BoundColumn&) const = default;
};

struct LiteralCondition {
  BoundColumn column;
  Comparison comparison = Comparison::None;
  Scalar literal;
};

struct ColumnCondition {
  BoundColumn left, right;
  Comparison comparison = Comparison::None;
};

struct BoundOrder {
  BoundColumn column;
  bool descending = false;
};

struct BoundSelect {
  std::vector<const Table*> tables;
  std::vector<BoundColumn> outputs;
  std::vector<LiteralCondition> literals;
  std::size_t literalCount = 0;  // of `literals`: those beyond are kept for their memory
  std::vector<ColumnCondition> columns;
  std::vector<BoundOrder> order;

  const ColumnDefinition& definition(BoundColumn column) const {
    return tables[column.table]->definition().columns[column.column];
  }
};

}  // namespace jet::sql
