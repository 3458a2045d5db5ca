#pragma once

#include <compare>
#include <string>
#include <string_view>

#include "jet/value.h"

namespace jet {

// The order of texts in the database: "General" (0409), the older version that Access 2000 to 2003 use.
// Without case; accents decide where all letters are equal; hyphen and apostrophe last; trailing blanks do
// not count; ss equals ß. The weights are data: data/jet-sort-general.tsv, compiled in.
namespace collation {

struct Key {
  std::string bytes;  // compares bytewise (unsigned)
  // False if the text holds a character that the weights do not cover: it sorts behind all others by its
  // code, and the bytes are not those that Access would store.
  bool exact = true;
};

// The key as an index entry holds it, ascending, start byte 7F included. Only the first 255 units count.
Key indexKey(std::u16string_view text);
// Appends the same to `target`; returns `exact`. For hot loops.
bool appendIndexKey(std::u16string_view text, bool descending, std::string& target);
// The same order without the limit of 255 units: what =, < and ORDER BY see.
void appendSortKey(std::u16string_view text, std::string& target);

std::strong_ordering compare(std::u16string_view left, std::u16string_view right);
bool equal(std::u16string_view left, std::u16string_view right);

// Keys of "General" of Access 97 files; text is that of code page 1252.
bool appendIndexKeyJet3(std::u16string_view text, bool descending, std::string& target);

}  // namespace collation
}  // namespace jet
