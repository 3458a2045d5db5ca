#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace jet::sql {

enum class TokenKind : std::uint8_t { Name, Keyword, Text, Number, Symbol, End };

// `Reserved` are the words of larger dialects that are not understood here; as names they need brackets.
enum class Keyword : std::uint8_t {
  None,
  Select,
  From,
  Inner,
  Join,
  On,
  Where,
  And,
  Order,
  By,
  Asc,
  Desc,
  Reserved
};

// A piece of the query text; views into that text.
struct Token {
  TokenKind kind = TokenKind::End;
  Keyword keyword = Keyword::None;
  char16_t symbol = 0;          // Symbol: one of * , . ( ) = - ;   Text: its quote
  bool doubledQuotes = false;   // Text: quotes inside are still doubled
  std::u16string_view text;     // name without brackets, text without quotes, otherwise as written
  std::u16string_view written;  // as it stands in the query
  std::size_t place = 0;        // of the first character, counted from 1

  bool is(char16_t wanted) const { return kind == TokenKind::Symbol && symbol == wanted; }
  bool is(Keyword wanted) const { return kind == TokenKind::Keyword && keyword == wanted; }
};

// Cuts a query into tokens, one at a time, without copying. Throws Error(Sql).
class Lexer {
 public:
  explicit Lexer(std::u16string_view query) : query_(query) {}
  Token next();

 private:
  Token bracketedName(std::size_t start);
  Token quotedText(std::size_t start, char16_t quote);
  Token number(std::size_t start);
  Token word(std::size_t start);
  Token token(TokenKind kind, std::size_t start) const;

  std::u16string_view query_;
  std::size_t position_ = 0;
};

// Throws Error(Sql) that names the token, its place, and what should stand there.
[[noreturn]] void notUnderstood(const Token& token, const char* expected);

}  // namespace jet::sql
