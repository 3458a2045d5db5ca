#include "jet/sql/lexer.h"

#include <algorithm>
#include <array>

#include "jet/error.h"
#include "jet/text_codec.h"

namespace jet::sql {
namespace {

constexpr bool isBlank(char16_t unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r'); }
constexpr bool isDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

constexpr bool isLetter(char16_t unit) {
  if (unit < 0x80) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || unit == u'_';
  }
  // Beyond ASCII: not the signs of Latin-1, not punctuation and typographic blanks.
  return unit >= 0xC0 && unit != 0xD7 && unit != 0xF7 && (unit < 0x2000 || unit > 0x2BFF) &&
         (unit < 0x3000 || unit > 0x3004) && unit < 0xFE00;
}

// A word of up to 8 ASCII letters as one number, without case; 0 for any other word.
constexpr std::uint64_t packedWord(std::u16string_view word) {
  if (word.size() > 8) return 0;
  std::uint64_t packed = 0;
  for (const char16_t unit : word) {
    if (unit >= 0x80) return 0;
    const bool lower = unit >= u'a' && unit <= u'z';
    packed = packed << 8 | static_cast<std::uint64_t>(lower ? unit - 0x20 : unit);
  }
  return packed;
}

struct KeywordEntry {
  std::uint64_t word;
  Keyword keyword;
};

constexpr auto keywordTable() {
  std::array table{
      KeywordEntry{packedWord(u"SELECT"), Keyword::Select},
      KeywordEntry{packedWord(u"FROM"), Keyword::From},
      KeywordEntry{packedWord(u"INNER"), Keyword::Inner},
      KeywordEntry{packedWord(u"JOIN"), Keyword::Join},
      KeywordEntry{packedWord(u"ON"), Keyword::On},
      KeywordEntry{packedWord(u"WHERE"), Keyword::Where},
      KeywordEntry{packedWord(u"AND"), Keyword::And},
      KeywordEntry{packedWord(u"ORDER"), Keyword::Order},
      KeywordEntry{packedWord(u"BY"), Keyword::By},
      KeywordEntry{packedWord(u"ASC"), Keyword::Asc},
      KeywordEntry{packedWord(u"DESC"), Keyword::Desc},
      KeywordEntry{packedWord(u"ALL"), Keyword::Reserved},
      KeywordEntry{packedWord(u"AS"), Keyword::Reserved},
      KeywordEntry{packedWord(u"BETWEEN"), Keyword::Reserved},
      KeywordEntry{packedWord(u"DELETE"), Keyword::Reserved},
      KeywordEntry{packedWord(u"DISTINCT"), Keyword::Reserved},
      KeywordEntry{packedWord(u"EXISTS"), Keyword::Reserved},
      KeywordEntry{packedWord(u"FALSE"), Keyword::Reserved},
      KeywordEntry{packedWord(u"GROUP"), Keyword::Reserved},
      KeywordEntry{packedWord(u"HAVING"), Keyword::Reserved},
      KeywordEntry{packedWord(u"IN"), Keyword::Reserved},
      KeywordEntry{packedWord(u"INSERT"), Keyword::Reserved},
      KeywordEntry{packedWord(u"INTO"), Keyword::Reserved},
      KeywordEntry{packedWord(u"IS"), Keyword::Reserved},
      KeywordEntry{packedWord(u"LEFT"), Keyword::Reserved},
      KeywordEntry{packedWord(u"LIKE"), Keyword::Reserved},
      KeywordEntry{packedWord(u"NOT"), Keyword::Reserved},
      KeywordEntry{packedWord(u"NULL"), Keyword::Reserved},
      KeywordEntry{packedWord(u"OR"), Keyword::Reserved},
      KeywordEntry{packedWord(u"OUTER"), Keyword::Reserved},
      KeywordEntry{packedWord(u"RIGHT"), Keyword::Reserved},
      KeywordEntry{packedWord(u"TOP"), Keyword::Reserved},
      KeywordEntry{packedWord(u"TRUE"), Keyword::Reserved},
      KeywordEntry{packedWord(u"UNION"), Keyword::Reserved},
      KeywordEntry{packedWord(u"UPDATE"), Keyword::Reserved},
  };
  std::ranges::sort(table, {}, &KeywordEntry::word);
  return table;
}

constexpr auto keywords = keywordTable();

Keyword keywordOf(std::u16string_view word) {
  const std::uint64_t packed = packedWord(word);
  const auto* found = std::ranges::lower_bound(keywords, packed, {}, &KeywordEntry::word);
  return found != keywords.end() && found->word == packed ? found->keyword : Keyword::None;
}

}  // namespace

Token Lexer::next() {
  while (position_ < query_.size() && isBlank(query_[position_])) ++position_;
  const std::size_t start = position_;
  if (start == query_.size()) return token(TokenKind::End, start);
  const char16_t first = query_[start];
  if (isLetter(first)) return word(start);
  const bool digitFollows = start + 1 < query_.size() && isDigit(query_[start + 1]);
  // ".5" is a number, but the point of "Table.5" belongs to the name.
  const bool afterName = start > 0 && (isLetter(query_[start - 1]) || query_[start - 1] == u']');
  if (isDigit(first) || (first == u'.' && digitFollows && !afterName)) return number(start);
  if (first == u'[') return bracketedName(start);
  if (first == u'\'' || first == u'"') return quotedText(start, first);
  ++position_;
  Token symbol = token(TokenKind::Symbol, start);
  symbol.symbol = first;
  if (std::u16string_view(u"*,.()=-;").find(first) == std::u16string_view::npos) {
    if (first >= 0xD800 && first < 0xDC00 && position_ < query_.size()) {
      ++position_;  // name the whole character in the message
      symbol = token(TokenKind::Symbol, start);
    }
    notUnderstood(symbol, nullptr);
  }
  return symbol;
}

Token Lexer::bracketedName(std::size_t start) {
  const std::size_t close = query_.find_first_of(u"[]", start + 1);
  if (close == std::u16string_view::npos || query_[close] == u'[') {
    position_ = query_.size();
    notUnderstood(token(TokenKind::Name, start), "the closing bracket is missing");
  }
  position_ = close + 1;
  Token name = token(TokenKind::Name, start);
  name.text = query_.substr(start + 1, close - start - 1);
  if (name.text.empty()) notUnderstood(name, "a name must stand between the brackets");
  return name;
}

Token Lexer::quotedText(std::size_t start, char16_t quote) {
  bool doubled = false;
  for (std::size_t close = start + 1;; close += 2) {
    close = query_.find(quote, close);
    if (close == std::u16string_view::npos) {
      position_ = query_.size();
      notUnderstood(token(TokenKind::Text, start), "the closing quote is missing");
    }
    if (close + 1 < query_.size() && query_[close + 1] == quote) {
      doubled = true;
      continue;
    }
    position_ = close + 1;
    Token text = token(TokenKind::Text, start);
    text.text = query_.substr(start + 1, close - start - 1);
    text.symbol = quote;
    text.doubledQuotes = doubled;
    return text;
  }
}

Token Lexer::number(std::size_t start) {
  const auto skipDigits = [this] {
    while (position_ < query_.size() && isDigit(query_[position_])) ++position_;
  };
  skipDigits();
  if (position_ < query_.size() && query_[position_] == u'.') {
    ++position_;
    skipDigits();
  }
  const bool glued = position_ < query_.size() && (isLetter(query_[position_]) || query_[position_] == u'.');
  if (glued) {
    while (position_ < query_.size() && (isLetter(query_[position_]) || isDigit(query_[position_])))
      ++position_;
    notUnderstood(token(TokenKind::Number, start), "a number has digits and at most one point");
  }
  return token(TokenKind::Number, start);
}

Token Lexer::word(std::size_t start) {
  while (position_ < query_.size() && (isLetter(query_[position_]) || isDigit(query_[position_])))
    ++position_;
  Token word = token(TokenKind::Name, start);
  word.keyword = keywordOf(word.text);
  if (word.keyword != Keyword::None) word.kind = TokenKind::Keyword;
  return word;
}

Token Lexer::token(TokenKind kind, std::size_t start) const {
  Token token;
  token.kind = kind;
  token.text = token.written = query_.substr(start, position_ - start);
  token.place = start + 1;
  return token;
}

void notUnderstood(const Token& token, const char* expected) {
  std::string reason;
  if (token.kind == TokenKind::End) {
    reason = "the query ends too early at character " + std::to_string(token.place);
  } else {
    constexpr std::size_t longest = 60;
    const bool cut = token.written.size() > longest;
    reason = "not understood: " + toUtf8(token.written.substr(0, longest)) + (cut ? "..." : "") +
             " at character " + std::to_string(token.place);
  }
  if (expected != nullptr) reason.append("; ").append(expected);
  throw Error(ErrorKind::Sql, reason);
}

}  // namespace jet::sql
