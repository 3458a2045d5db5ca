#include "jet/collation.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "jet/hex.h"

namespace jet {
namespace {

struct KeyCase {
  std::u16string text;
  const char* key;
};

TEST(Collation, IndexKeysAreThoseOfAccess) {
  const KeyCase cases[] = {
      {u"", "7F 01 00"},
      {u" ", "7F 01 00"},
      {u"A", "7F 4A 01 00"},
      {u"a", "7F 4A 01 00"},
      {u"a b", "7F 4A 07 4C 01 00"},
      {u"x  ", "7F 75 01 00"},
      {u"Ä", "7F 4A 01 13 00"},
      {u"ä", "7F 4A 01 13 00"},
      {u"Öd", "7F 64 4F 01 13 00"},
      {u"naïve", "7F 62 4A 59 71 51 01 02 02 13 00"},
      {u"ß", "7F 6B 6B 01 00"},
      {u"ss", "7F 6B 6B 01 00"},
      {u"Straße Köln", "7F 6B 6D 69 4A 6B 6B 51 07 5C 64 5E 62 01 02 02 02 02 02 02 02 02 13 00"},
      {u"co-op", "7F 4D 64 64 66 01 01 01 01 80 0F 06 82 00"},
      {u"It's", "7F 59 6D 6B 01 01 01 01 80 0F 06 80 00"},
      {u"Müller-Straße", "7F 60 6F 5E 5E 51 69 6B 6D 69 4A 6B 6B 51 01 02 13 01 01 01 80 1F 06 82 00"},
      {u"a-ä-b", "7F 4A 4A 4C 01 02 13 01 01 01 80 0B 06 82 80 0F 06 82 00"},
      {u"€5", "7F 35 A1 40 01 00"},
      {u"A\u0301", "7F 4A 01 0E 00"},
      {u"Á", "7F 4A 01 0E 00"},
      // A mark with nothing before it counts as no slot: the hyphen behind "a" stands at 1.
      {u"\u02B9a-", "7F 4A 01 0C 01 01 01 80 0B 06 82 00"},
      {u"ab\u02B9c", "7F 4A 4C 4D 01 02 0E 00"},
      // Two accent bytes in one slot, then two fillers.
      {u"Ǣabä", "7F 4A 51 4A 4C 4A 01 17 17 02 02 13 00"},
      {std::u16string(u"a\0b", 3), "7F 4A 4C 01 00"},
      {u"\U0001F600", "7F B0 3F B6 FC 01 3F 3F 00"},
  };
  for (const auto& [text, key] : cases) {
    const collation::Key computed = collation::indexKey(text);
    EXPECT_EQ(hex(computed.bytes), key);
    EXPECT_TRUE(computed.exact);
  }
}

TEST(Collation, DescendingKeys) {
  const KeyCase cases[] = {
      {u"Öd", "80 9B B0 FE EC FF 00"},
      {u"co-op", "80 B2 9B 9B 99 FE FE FE FE 7F F0 F9 7D FF 00"},
      {u"", "80 FE FF 00"},
  };
  for (const auto& [text, key] : cases) {
    std::string computed;
    EXPECT_TRUE(collation::appendIndexKey(text, true, computed));
    EXPECT_EQ(hex(computed), key);
  }
}

TEST(Collation, KeysOfAccess97) {
  const KeyCase cases[] = {
      {u"Müller-Straße", "7F 6F 78 6D 6D 66 75 1E 76 77 75 60 76 76 66 06 00"},
      {u"Straße Köln", "7F 76 77 75 60 76 76 66 11 6C 72 6D 70 02 22 22 60"},
      {u"A  ", "7F 60 00"},
      {u"", "7F 00"},
      {std::u16string(1, u'\0'), "7F 10 00"},
  };
  for (const auto& [text, key] : cases) {
    std::string ascending, descending;
    EXPECT_TRUE(collation::appendIndexKeyJet3(text, false, ascending));
    EXPECT_EQ(hex(ascending), key);
    EXPECT_TRUE(collation::appendIndexKeyJet3(text, true, descending));
    for (char& byte : descending) byte = static_cast<char>(~byte);
    EXPECT_EQ(hex(descending), key);
  }
}

TEST(Collation, OnlyTheFirst255UnitsCountInAnIndex) {
  const std::u16string begin(255, u'a');
  EXPECT_EQ(collation::indexKey(begin + u"x").bytes, collation::indexKey(begin + u"y").bytes);
  EXPECT_EQ(collation::indexKey(std::u16string(250, u'a') + u"          b").bytes,
            collation::indexKey(std::u16string(250, u'a')).bytes);
  std::string x, y;
  collation::appendSortKey(begin + u"x", x);
  collation::appendSortKey(begin + u"y", y);
  EXPECT_LT(x, y);
  EXPECT_TRUE(collation::compare(begin + u"x", begin + u"y") < 0);
  // Hyphens far beyond what an index holds still differ by their places.
  const std::u16string longText(40'000, u'a');
  EXPECT_TRUE(collation::compare(longText + u"-bb", longText + u"b-b") < 0);
}

TEST(Collation, UnitsWithoutWeightAreNotExactAndSortLast) {
  const std::u16string japanese = u"\u3042", hebrew = u"\u05D0";
  EXPECT_FALSE(collation::indexKey(japanese).exact);
  EXPECT_FALSE(collation::indexKey(u"ab" + hebrew).exact);
  EXPECT_TRUE(collation::compare(u"zzz", hebrew) < 0);
  EXPECT_TRUE(collation::compare(u"\U0001F600", hebrew) < 0);
  EXPECT_TRUE(collation::compare(hebrew, japanese) < 0);
  std::string key;
  EXPECT_FALSE(collation::appendIndexKeyJet3(u"\u0416", false, key));
}

// Each text is less than the next.
TEST(Collation, Order) {
  const std::vector<std::u16string> ordered = {
      u"",      u"!",     u"€",     u"0",      u"10",     u"2",       u"a",     u"á",    u"ä",
      u"aa",    u"ab",    u"Adler", u"co",     u"coop",   u"co-op",   u"coopa", u"Mull", u"Müll",
      u"Mullz", u"Müllz", u"Oh",    u"strass", u"straßf", u"Strassg", u"z",     u"zz",   u"\u05D0"};
  for (std::size_t i = 0; i < ordered.size(); ++i) {
    for (std::size_t j = 0; j < ordered.size(); ++j) {
      const auto expected = i <=> j;
      EXPECT_EQ(collation::compare(ordered[i], ordered[j]), expected) << i << " and " << j;
      EXPECT_EQ(collation::equal(ordered[i], ordered[j]), i == j) << i << " and " << j;
      std::string left, right;
      collation::appendSortKey(ordered[i], left);
      collation::appendSortKey(ordered[j], right);
      EXPECT_EQ(left <=> right, expected) << i << " and " << j;
    }
  }
}

TEST(Collation, EqualTexts) {
  const std::pair<std::u16string, std::u16string> pairs[] = {
      {u"Straße", u"STRASSE"}, {u"a", u"a   "},    {u"", u"  "},      {u"ÄÖÜ", u"äöü"},    {u"Ære", u"AERE"},
      {u"Œuvre", u"oeuvre"},   {u"Á", u"A\u0301"}, {u"x-y", u"X-Y "}, {u"Þing", u"THING"},
  };
  for (const auto& [left, right] : pairs) {
    EXPECT_TRUE(collation::equal(left, right)) << hex(collation::indexKey(left).bytes);
    EXPECT_EQ(collation::indexKey(left).bytes, collation::indexKey(right).bytes);
  }
  EXPECT_FALSE(collation::equal(u" a", u"a"));
  EXPECT_FALSE(collation::equal(u"ä", u"ae"));
}

// The quick comparison against the keys, over texts made of units that interact.
TEST(Collation, ComparisonAgreesWithKeys) {
  const std::u16string units = u"aAäbsßSÆ-' \u0001\u02B9\u0301\u01E2\u05D0e\U0001F600";
  std::uint32_t state = 7;
  const auto random = [&](std::size_t bound) {
    state = state * 1664525u + 1013904223u;
    return (state >> 8) % bound;
  };
  const auto text = [&] {
    std::u16string result;
    for (std::size_t length = random(6); length > 0; --length) result += units[random(units.size())];
    return result;
  };
  int equals = 0;
  for (int i = 0; i < 20'000; ++i) {
    const std::u16string begin = text(), left = begin + text(), right = begin + text();
    std::string leftKey, rightKey;
    collation::appendSortKey(left, leftKey);
    collation::appendSortKey(right, rightKey);
    ASSERT_EQ(collation::compare(left, right), leftKey <=> rightKey)
        << hex(leftKey) << " / " << hex(rightKey);
    ASSERT_EQ(collation::equal(left, right), leftKey == rightKey);
    equals += left != right && leftKey == rightKey ? 1 : 0;
    // Ascending and descending keys are each other's mirror, also as the beginning of longer keys.
    std::string leftDown, rightDown;
    collation::appendIndexKey(left, true, leftDown);
    collation::appendIndexKey(right, true, rightDown);
    ASSERT_EQ(leftDown <=> rightDown, rightKey <=> leftKey) << hex(leftKey) << " / " << hex(rightKey);
  }
  EXPECT_GT(equals, 50);
}

}  // namespace
}  // namespace jet
