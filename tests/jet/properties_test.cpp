#include "jet/properties.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "jet/create/properties.h"
#include "jet/error.h"

namespace jet {
namespace {

create::TableLayout layout() {
  create::TableLayout result;
  for (const char16_t* name : {u"Name", u"Ort", u"Größe"}) {
    result.definition.columns.push_back({.name = name, .type = ColumnType::Text});
  }
  result.rules = {{u"\"neu\"", true, false}, {u"", false, true}, {u"5", false, true}};
  return result;
}

TEST(Properties, AreFoundByTheNameOfTheirColumn) {
  create::TableLayout table = layout();
  const Bytes block = create::tableProperties(table);
  std::ranges::reverse(table.definition.columns);
  table.definition.columns.push_back({.name = u"später", .type = ColumnType::Long});
  const auto found = readColumnProperties(block, table.definition);
  ASSERT_EQ(found.size(), 4u);
  EXPECT_EQ(found[0].defaultValue, u"5");
  EXPECT_EQ(found[2].defaultValue, u"\"neu\"");
  EXPECT_TRUE(found[2].required);
  EXPECT_FALSE(found[2].allowZeroLength);
  EXPECT_TRUE(found[1].allowZeroLength && !found[1].required && found[3].allowZeroLength);
  EXPECT_EQ(readColumnProperties({}, table.definition).size(), 4u);
}

// Whatever stands there: properties or Error(Damaged), nothing else.
TEST(Properties, DamageIsReported) {
  const create::TableLayout table = layout();
  const Bytes block = create::tableProperties(table);
  const auto isDamaged = [&](const Bytes& bytes) {
    try {
      readColumnProperties(bytes, table.definition);
      return false;
    } catch (const Error& error) {
      EXPECT_EQ(error.kind(), ErrorKind::Damaged);
      return true;
    }
  };
  std::size_t sound = 0;
  for (std::size_t length = 1; length < block.size(); ++length) {
    if (!isDamaged({block.begin(), block.begin() + static_cast<std::ptrdiff_t>(length)})) ++sound;
  }
  EXPECT_LE(sound, 4u);  // cut between two blocks
  for (std::size_t at = 0; at < block.size(); ++at) {
    for (const int bit : {0, 3, 7}) {
      Bytes changed = block;
      changed[at] = static_cast<std::uint8_t>(changed[at] ^ 1 << bit);
      isDamaged(changed);
    }
  }
  Bytes otherKind = block;
  otherKind[0] = 'X';
  EXPECT_TRUE(isDamaged(otherKind));
}

}  // namespace
}  // namespace jet
