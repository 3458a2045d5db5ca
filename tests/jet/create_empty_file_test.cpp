#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "jet/create_fixture.h"
#include "jet/header.h"

namespace {

using jet::create::DatabaseBuilder;

// What the real engine writes for an empty database.
class EmptyFile : public ::testing::Test {
 protected:
  DatabaseBuilder builder_{{.created = 38000.25, .accessVersion = u""}};
  Created file_{builder_};
};

TEST_F(EmptyFile, PagesStandWhereAccessPutsThem) {
  ASSERT_EQ(file_.pageCount(), 16u);
  struct Expected {
    std::uint32_t page;
    std::uint8_t type;
    std::uint32_t freeBytes, owner;
  };
  for (const Expected& expected : std::initializer_list<Expected>{{1, 1, 3940, 1},
                                                                  {6, 1, 1881, 0},
                                                                  {10, 4, 3616, 4},
                                                                  {11, 4, 3616, 5},
                                                                  {12, 4, 3616, 5},
                                                                  {13, 4, 3616, 5}}) {
    SCOPED_TRACE(expected.page);
    EXPECT_EQ(file_.page(expected.page)[0], expected.type);
    EXPECT_EQ(u16At(file_.page(expected.page), 2), expected.freeBytes);
    EXPECT_EQ(u32At(file_.page(expected.page), 4), expected.owner);
  }
  const std::uint32_t lengths[] = {1050, 335, 525, 813}, rows[] = {8, 16, 0, 0}, keys[] = {8, 8, 0, 0};
  for (std::uint32_t table = 0; table < 4; ++table) {
    SCOPED_TRACE(table);
    const auto page = file_.page(2 + table);
    EXPECT_EQ(page[0], 2);
    EXPECT_EQ(u32At(page, 8), lengths[table]);
    EXPECT_EQ(u16At(page, 2), 4096 - lengths[table] - 8);
    EXPECT_EQ(u32At(page, 16), rows[table]);
    EXPECT_EQ(u32At(page, 63 + 4), keys[table]);  // distinct keys of the first index
    EXPECT_EQ(page[40], 0x53);
  }
  EXPECT_EQ(u32At(file_.page(14), 4), 2u);
  EXPECT_EQ(u32At(file_.page(15), 4), 3u);
}

TEST_F(EmptyFile, UsageMapsNameTheirPages) {
  const auto maps = file_.page(6);
  ASSERT_EQ(u16At(maps, 12), 31u);
  const std::map<std::size_t, std::uint32_t> members = {{0, 14},  {1, 14},  {16, 7}, {17, 8},
                                                        {18, 15}, {19, 15}, {20, 9}, {25, 10},
                                                        {28, 11}, {29, 12}, {30, 13}};
  for (std::size_t row = 0; row < 31; ++row) {
    SCOPED_TRACE(row);
    std::vector<std::uint8_t> expected(69, 0);
    if (const auto found = members.find(row); found != members.end()) {
      expected[5 + found->second / 8] = static_cast<std::uint8_t>(1 << found->second % 8);
    }
    EXPECT_TRUE(std::ranges::equal(slotAt(maps, row), expected));
  }
  std::vector<std::uint8_t> global(69, 0xFF);
  std::fill_n(global.begin(), 7, std::uint8_t{0});  // type, start 0, pages 0 to 15 in use
  EXPECT_TRUE(std::ranges::equal(slotAt(file_.page(1), 0), global));
  EXPECT_EQ(u16At(file_.page(1), 14), 4027u);
  EXPECT_EQ(u16At(file_.page(1), 16), 3958u);
}

TEST_F(EmptyFile, RowsOfTheCatalogAreThoseOfTheEngine) {
  const std::string date = "00 00 00 00 08 8E E2 40";
  EXPECT_EQ(
      hexOf(slotAt(file_.page(14), 5)),
      "11 00 03 00 00 00 01 00 00 0F 01 00 " + date + " " + date +
          " 00 00 00 80 4D 00 53 00 79 00 73 00 41 00 43 00 45 00 73 00 A7 31 32 00 32 00 32 00 32 00 32 "
          "00 32 00 32 00 32 00 32 00 32 00 30 00 20 00 0B 00 FF 00 00");
  EXPECT_EQ(hexOf(slotAt(file_.page(15), 0)), "04 00 02 00 00 00 00 00 06 00 A6 33 0C 00 0A 00 01 00 07");
  EXPECT_EQ(u16At(file_.page(15), 12), 16u);
}

TEST_F(EmptyFile, HeaderHoldsTheKnownPairOfDateAndAccountMask) {
  std::vector<std::uint8_t> page(file_.page(0).begin(), file_.page(0).end());
  jet::maskHeader(page, jet::jet4);
  EXPECT_EQ(u32At(page, 0x18), 0x100u);
  EXPECT_EQ(u32At(page, 0x1C), 0x101u);
  for (std::uint32_t table = 0; table < 4; ++table) EXPECT_EQ(u32At(page, 0x20 + 4 * table), 2 + table);
  EXPECT_EQ(u16At(page, 0x3C), 1252u);
  EXPECT_EQ(u32At(page, 0x3E), 0u);
  EXPECT_EQ(u16At(page, 0x6A), 8618u);
  EXPECT_EQ(u16At(page, 0x6E), 0x0409u);
  EXPECT_EQ(hexOf(std::span(page).subspan(0x72, 8)), "BC 72 1F 7D F1 9F E2 40");
  // No password: the area holds nothing but its mask, the date as a whole number.
  for (std::size_t i = 0; i < 40; i += 4) EXPECT_EQ(u32At(page, 0x42 + i), 38143u);
  EXPECT_EQ(u16At(page, 0xE00), 0x0101u);
  for (std::size_t slot = 1; slot < 256; ++slot) EXPECT_EQ(u16At(page, 0xE00 + 2 * slot), 0x0100u);
}

TEST_F(EmptyFile, IsInOrderAndNamesItsTables) {
  EXPECT_EQ(file_.errors(), "");
  std::set<jet::Text> names;
  for (const jet::TableEntry& entry : file_.database->tables()) {
    EXPECT_TRUE(entry.system);
    names.insert(entry.name);
  }
  EXPECT_EQ(names, (std::set<jet::Text>{u"MSysObjects", u"MSysACEs", u"MSysQueries", u"MSysRelationships"}));
}

}  // namespace
