#include "jet/sql/parser.h"

#include "jet/error.h"

namespace jet::sql {
namespace {

constexpr std::size_t longestQuery = 64000;
constexpr std::size_t mostTables = 32;
constexpr std::size_t mostColumns = 255;
constexpr int deepestNesting = 50;

class Parser {
 public:
  Parser(std::u16string_view query, Select& target) : lexer_(query), select_(target), token_(lexer_.next()) {}

  void parseSelect() {
    expect(Keyword::Select, "a query starts with SELECT");
    columnList();
    expect(Keyword::From, "expected a comma or FROM");
    fromClause(0);
    if (accept(Keyword::Where)) equalities({});
    if (accept(Keyword::Order)) orderClause();
    accept(u';');
    if (token_.kind != TokenKind::End) notUnderstood(token_, expectedAtEnd());
  }

 private:
  struct Range {
    std::uint8_t begin = 0, end = 0;  // of Select::tables
  };

  void columnList() {
    if (accept(u'*')) {
      select_.allColumns = true;
      return;
    }
    do {
      limit(select_.columns.size() < mostColumns, "too many columns");
      select_.columns.push_back(columnName());
    } while (accept(u','));
  }

  // One source, or one join of two sources.
  Range fromClause(int depth) {
    const Range left = source(depth);
    if (!accept(Keyword::Inner)) return left;
    expect(Keyword::Join, "expected JOIN");
    const Range right = source(depth);
    expect(Keyword::On, "expected ON");
    equalities({left.begin, right.begin, right.end});
    if (token_.is(Keyword::Inner)) notUnderstood(token_, "the first join must stand in parentheses");
    return {left.begin, right.end};
  }

  Range source(int depth) {
    limit(depth < deepestNesting, "too many parentheses");
    if (accept(u'(')) {
      const Range inner = fromClause(depth + 1);
      if (!accept(u')')) notUnderstood(token_, "expected a closing parenthesis");
      return inner;
    }
    limit(select_.tables.size() < mostTables, "too many tables");
    const auto position = static_cast<std::uint8_t>(select_.tables.size());
    select_.tables.push_back(name("expected the name of a table"));
    return {position, static_cast<std::uint8_t>(position + 1)};
  }

  struct Sides {
    std::uint8_t leftBegin = 0, rightBegin = 0, end = 0;
  };

  void equalities(Sides sides) {
    do {
      Equality& equality = select_.conditions.emplace_back();
      equality.leftBegin = sides.leftBegin;
      equality.rightBegin = sides.rightBegin;
      equality.end = sides.end;
      const Token start = token_;
      operand(equality.left);
      if (!accept(u'=')) notUnderstood(token_, "expected =");
      operand(equality.right);
      const bool columnLeft = equality.left.kind == Operand::Kind::Column;
      const bool columnRight = equality.right.kind == Operand::Kind::Column;
      if (!columnLeft && !columnRight) notUnderstood(start, "a comparison needs a column");
      if (equality.isJoin() && !(columnLeft && columnRight)) {
        notUnderstood(start, "ON compares a column of each side");
      }
    } while (accept(Keyword::And));
  }

  void operand(Operand& operand) {
    operand.token = token_;
    if (token_.kind == TokenKind::Text) {
      operand.kind = Operand::Kind::Text;
      advance();
    } else if (token_.kind == TokenKind::Number || token_.is(u'-')) {
      operand.kind = Operand::Kind::Number;
      const bool negative = accept(u'-');
      if (token_.kind != TokenKind::Number) notUnderstood(token_, "expected a number");
      const auto number = parseDecimal(token_.text, negative);
      if (!number) notUnderstood(token_, "the number has too many digits");
      operand.number = *number;
      advance();
    } else {
      operand.kind = Operand::Kind::Column;
      operand.column = columnName("expected a column, a text or a number");
    }
  }

  void orderClause() {
    expect(Keyword::By, "expected BY");
    do {
      limit(select_.order.size() < mostColumns, "too many columns");
      OrderItem& item = select_.order.emplace_back();
      item.column = columnName();
      if (accept(Keyword::Desc)) {
        item.descending = true;
      } else {
        accept(Keyword::Asc);
      }
    } while (accept(u','));
  }

  ColumnName columnName(const char* expected = "expected the name of a column") {
    ColumnName result;
    result.column = name(expected);
    if (accept(u'.')) {
      result.table = result.column;
      result.column = name("expected the name of a column");
    }
    return result;
  }

  Token name(const char* expected) {
    if (token_.kind != TokenKind::Name) notUnderstood(token_, expected);
    const Token name = token_;
    advance();
    return name;
  }

  // What could have stood instead of the token that ends the query too late.
  const char* expectedAtEnd() const {
    if (!select_.order.empty()) return "expected a comma, ASC, DESC or the end";
    if (!select_.conditions.empty()) return "expected AND, ORDER BY or the end";
    return "expected INNER JOIN, WHERE, ORDER BY or the end";
  }

  void advance() { token_ = lexer_.next(); }

  bool accept(Keyword keyword) {
    const bool found = token_.is(keyword);
    if (found) advance();
    return found;
  }
  bool accept(char16_t symbol) {
    const bool found = token_.is(symbol);
    if (found) advance();
    return found;
  }
  void expect(Keyword keyword, const char* expected) {
    if (!accept(keyword)) notUnderstood(token_, expected);
  }
  void limit(bool holds, const char* reason) const {
    if (!holds) notUnderstood(token_, reason);
  }

  Lexer lexer_;
  Select& select_;
  Token token_;
};

}  // namespace

void parse(std::u16string_view query, Select& target) {
  target.clear();
  if (query.size() > longestQuery) throw Error(ErrorKind::Sql, "the query is longer than 64,000 characters");
  Parser(query, target).parseSelect();
}

}  // namespace jet::sql
