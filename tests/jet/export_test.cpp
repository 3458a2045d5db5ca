#include "jet/export.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "jet/database.h"
#include "jet/shared_files.h"
#include "jet/text_codec.h"

namespace jet {
namespace {

TEST(Canonical, Values) {
  struct Case {
    Value value;
    const char* text;
  };
  const Case cases[] = {
      {Null{}, "\\N"},
      {true, "true"},
      {std::int32_t{-2147483647 - 1}, "-2147483648"},
      {-0.0, "0"},
      {0.1F, "0.1"},
      {1.5e15, "1500000000000000"},
      {-2.5e-7, "-0.00000025"},
      {Currency{15'000}, "1.5"},
      {Currency{-1}, "-0.0001"},
      {Currency{0}, "0"},
      {Currency{std::numeric_limits<std::int64_t>::min()}, "-922337203685477.5808"},
      {Numeric{true, {0, 0, 0, 0}, 3}, "0"},
      {Numeric{true, {0, 0, 0, 1'230}, 3}, "-1.23"},
      {Numeric{false, {0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF}, 2},
       "3402823669209384634633746074317682114.55"},
      {DateTime{0}, "1899-12-30T00:00:00"},
      {DateTime{-1.25}, "1899-12-29T06:00:00"},
      {DateTime{46022.999999}, "2026-01-01T00:00:00"},
      {DateTime{2958465}, "9999-12-31T00:00:00"},
      {DateTime{1e300}, nullptr},
      {DateTime{std::nan("")}, "date nan"},
      {Guid{{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}},
       "{03020100-0504-0706-0809-0A0B0C0D0E0F}"},
      {Text(u"a\tb\r\n\\\0ä€𝄞", 11), "a\\tb\\r\\n\\\\\\0ä€𝄞"},
      {Bytes{0x00, 0xAB}, "0x00AB"},
  };
  for (const Case& each : cases) {
    std::string text;
    appendCanonical(each.value, text);
    if (each.text == nullptr) {
      EXPECT_TRUE(text.starts_with("date 1")) << text;
    } else {
      EXPECT_EQ(text, each.text);
    }
  }
}

// What an independent reader made of the same files.
TEST(Export, EveryTableOfTheSharedFiles) {
  const auto files = test::sharedFiles();
  if (files.empty()) GTEST_SKIP() << "the shared files are not there";
  int compared = 0;
  for (const test::SharedFile& file : files) {
    std::vector<std::string> warnings;
    Database database(systemFiles(), file.database,
                      {.warn = [&](const auto& text) { warnings.push_back(text); }});
    for (const TableEntry& entry : database.tables()) {
      SCOPED_TRACE(file.database.filename().string() + " " + toUtf8(entry.name));
      const std::string text = exportTable(database.table(entry.name));
      if (entry.system) continue;
      const auto expected = test::readAll(file.expected / (toUtf8(entry.name) + ".tsv"));
      EXPECT_EQ(text, std::string(expected.begin(), expected.end()));
      ++compared;
    }
    EXPECT_EQ(warnings, std::vector<std::string>());
  }
  EXPECT_EQ(compared, 42);
}

}  // namespace
}  // namespace jet
