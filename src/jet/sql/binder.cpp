#include "jet/sql/binder.h"

#include <algorithm>
#include <string>

#include "jet/error.h"
#include "jet/text_codec.h"

namespace jet::sql {
namespace {

class Binder {
 public:
  Binder(const Select& select, Database& database, BoundSelect& target)
      : select_(select), database_(database), target_(target) {}

  void run() {
    bindTables();
    bindOutputs();
    bindConditions();
    bindOrder();
  }

 private:
  struct Tables {
    std::uint8_t begin = 0, end = 0;
  };

  void bindTables() {
    target_.tables.clear();
    for (const Token& name : select_.tables) {
      const Table* table = tableNamed(name.text);
      if (std::ranges::find(target_.tables, table) != target_.tables.end()) {
        notUnderstood(name, "a table can be named only once in FROM");
      }
      target_.tables.push_back(table);
    }
  }

  const Table* tableNamed(std::u16string_view name) const {
    try {
      return &database_.table(name);
    } catch (const Error& error) {
      if (error.kind() != ErrorKind::NoSuchTable) throw;
      throw Error(ErrorKind::NoSuchTable, "there is no table " + toUtf8(name));
    }
  }

  void bindOutputs() {
    target_.outputs.clear();
    if (!select_.allColumns) {
      for (const ColumnName& name : select_.columns) target_.outputs.push_back(resolve(name, allTables()));
      return;
    }
    for (std::uint8_t table = 0; table < allTables().end; ++table) {
      const std::size_t count = target_.tables[table]->definition().columns.size();
      for (std::size_t column = 0; column < count; ++column) {
        target_.outputs.push_back({table, static_cast<std::uint16_t>(column)});
      }
    }
  }

  void bindConditions() {
    target_.literalCount = 0;
    target_.columns.clear();
    for (const Equality& equality : select_.conditions) {
      const bool columnLeft = equality.left.kind == Operand::Kind::Column;
      const bool columnRight = equality.right.kind == Operand::Kind::Column;
      if (columnLeft && columnRight) {
        bindColumns(equality);
      } else if (columnLeft) {
        bindLiteral(equality.left.column, equality.right);
      } else {
        bindLiteral(equality.right.column, equality.left);
      }
    }
  }

  void bindColumns(const Equality& equality) {
    const Tables scope = equality.isJoin() ? Tables{equality.leftBegin, equality.end} : allTables();
    ColumnCondition condition;
    condition.left = resolve(equality.left.column, scope);
    condition.right = resolve(equality.right.column, scope);
    const bool leftFirst = condition.left.table < equality.rightBegin;
    const bool rightFirst = condition.right.table < equality.rightBegin;
    if (equality.isJoin() && leftFirst == rightFirst) {
      notUnderstood(equality.left.token, "ON compares a column of each side");
    }
    condition.comparison =
        comparisonOf(target_.definition(condition.left).type, target_.definition(condition.right).type);
    if (condition.comparison == Comparison::None) {
      throw Error(ErrorKind::TypeMismatch,
                  "columns of types that do not compare: " + written(equality.left.column) + " and " +
                      written(equality.right.column));
    }
    target_.columns.push_back(condition);
  }

  void bindLiteral(const ColumnName& name, const Operand& literal) {
    if (target_.literals.size() == target_.literalCount) target_.literals.emplace_back();
    LiteralCondition& condition = target_.literals[target_.literalCount++];
    condition.column = resolve(name, allTables());
    const ColumnType type = target_.definition(condition.column).type;
    const bool isText = literal.kind == Operand::Kind::Text;
    condition.comparison = isText ? comparisonWithText(type) : comparisonWithNumber(type, literal.number);
    if (condition.comparison == Comparison::None) {
      throw Error(ErrorKind::TypeMismatch,
                  "column " + written(name) + " cannot be compared with " + toUtf8(literal.token.written));
    }
    if (isText) {
      setText(literal.token, condition.literal.text);
    } else {
      setNumber(literal.number, condition.comparison, condition.literal);
    }
  }

  static void setText(const Token& token, Text& target) {
    target.assign(token.text);
    if (!token.doubledQuotes) return;
    for (std::size_t quote = target.find(token.symbol); quote != Text::npos;
         quote = target.find(token.symbol, quote + 1)) {
      target.erase(quote, 1);
    }
  }

  void bindOrder() {
    target_.order.clear();
    for (const OrderItem& item : select_.order) {
      const BoundColumn column = resolve(item.column, allTables());
      if (target_.definition(column).type == ColumnType::Ole) {
        throw Error(ErrorKind::TypeMismatch, "column " + written(item.column) + " has no order");
      }
      target_.order.push_back({column, item.descending});
    }
  }

  BoundColumn resolve(const ColumnName& name, Tables scope) const {
    return name.isQualified() ? resolveQualified(name, scope) : resolveBare(name.column, scope);
  }

  BoundColumn resolveQualified(const ColumnName& name, Tables scope) const {
    const std::uint8_t table = findTable(name.table.text);
    if (table < scope.begin || table >= scope.end) {
      notUnderstood(name.table, "the table is not part of this FROM or join");
    }
    const auto column = target_.tables[table]->findColumn(name.column.text);
    if (!column) throw Error(ErrorKind::NoSuchColumn, "there is no column " + written(name));
    return {table, static_cast<std::uint16_t>(*column)};
  }

  BoundColumn resolveBare(const Token& name, Tables scope) const {
    std::optional<BoundColumn> result;
    for (std::uint8_t table = scope.begin; table < scope.end; ++table) {
      const auto column = target_.tables[table]->findColumn(name.text);
      if (!column) continue;
      if (result) notUnderstood(name, "several tables have this column; name the table too");
      result = BoundColumn{table, static_cast<std::uint16_t>(*column)};
    }
    if (!result) throw Error(ErrorKind::NoSuchColumn, "there is no column " + toUtf8(name.text));
    return *result;
  }

  // The table's place in FROM, or the number of tables if it is not there. The spelling of the FROM clause is
  // the usual one; otherwise the catalog decides.
  std::uint8_t findTable(std::u16string_view name) const {
    auto place = std::ranges::find(select_.tables, name, &Token::text) - select_.tables.begin();
    if (place == std::ssize(select_.tables)) {
      const Table* table = tableNamed(name);
      place = std::ranges::find(target_.tables, table) - target_.tables.begin();
    }
    return static_cast<std::uint8_t>(place);
  }

  static std::string written(const ColumnName& name) {
    const std::string column = toUtf8(name.column.text);
    return name.isQualified() ? toUtf8(name.table.text) + "." + column : column;
  }

  Tables allTables() const { return {0, static_cast<std::uint8_t>(target_.tables.size())}; }

  const Select& select_;
  Database& database_;
  BoundSelect& target_;
};

}  // namespace

void bind(const Select& select, Database& database, BoundSelect& target) {
  Binder(select, database, target).run();
}

}  // namespace jet::sql
