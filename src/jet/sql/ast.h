#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "jet/sql/decimal.h"
#include "jet/sql/lexer.h"

namespace jet::sql {

// The parsed query. Everything points into the query text; the vectors are reused from query to query.

struct ColumnName {
  Token table;  // kind End where the name is not qualified
  Token column;
  bool isQualified() const { return table.kind != TokenKind::End; }
};

struct Operand {
  enum class Kind : std::uint8_t { Column, Text, Number };
  Kind kind = Kind::Column;
  ColumnName column;  // Column
  Token token;        // Text: the literal; Number: its digits (or the sign), for messages
  Decimal number;     // Number
};

struct Equality {
  Operand left, right;
  // Of ON: the joined sides are tables [leftBegin, rightBegin) and [rightBegin, end). Of WHERE: all 0.
  std::uint8_t leftBegin = 0, rightBegin = 0, end = 0;
  bool isJoin() const { return end != 0; }
};

struct OrderItem {
  ColumnName column;
  bool descending = false;
};

struct Select {
  bool allColumns = false;
  std::vector<ColumnName> columns;
  std::vector<Token> tables;  // in the order of the FROM clause
  std::vector<Equality> conditions;
  std::vector<OrderItem> order;

  void clear() {
    allColumns = false;
    columns.clear();
    tables.clear();
    conditions.clear();
    order.clear();
  }
};

}  // namespace jet::sql
