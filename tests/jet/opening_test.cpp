#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <string_view>

#include "common/memory_files.h"
#include "jet/database.h"
#include "jet/error.h"
#include "jet/worn_database.h"

namespace jet {
namespace {

using Content = std::vector<std::uint8_t>;

Content soundFile() { return test::makeWornDatabase().file; }

Content renamed(std::string_view formatName) {
  Content content = soundFile();
  std::fill_n(content.begin() + 4, 16, std::uint8_t{0});
  std::copy(formatName.begin(), formatName.end(), content.begin() + 4);
  return content;
}

Content cutTo(std::size_t length) {
  Content content = soundFile();
  content.resize(length);
  return content;
}

Content ofVersion(std::uint8_t version) {
  Content content = soundFile();
  content[0x14] = version;
  return content;
}

// A file of Access 97 with the given password area; no more than page 0.
Content jet3Header(std::string_view password) {
  Content content(2048, 0);
  content[1] = 1;
  constexpr std::string_view name = "Standard Jet DB";
  std::copy(name.begin(), name.end(), content.begin() + 4);
  std::copy(password.begin(), password.end(), content.begin() + 0x42);
  maskHeader(content, jet3);
  return content;
}

ErrorKind failureOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const Error& error) {
    return error.kind();
  }
  ADD_FAILURE() << "nothing failed";
  return ErrorKind::Io;
}

TEST(Opening, EveryRefusalHasItsOwnKind) {
  struct Case {
    const char* what;
    Content content;
    ErrorKind kind;
  };
  const std::string_view letter = "Sehr geehrte Damen und Herren! ";
  Content text;
  while (text.size() < 9000) text.insert(text.end(), letter.begin(), letter.end());
  const Case cases[] = {
      {"empty", {}, ErrorKind::NotADatabase},
      {"one byte", {0}, ErrorKind::NotADatabase},
      {"zeros", Content(8192, 0), ErrorKind::NotADatabase},
      {"a text", text, ErrorKind::NotADatabase},
      {"less than a page", cutTo(3000), ErrorKind::NotADatabase},
      {"cut inside a page", cutTo(4096 * 9 + 17), ErrorKind::Truncated},
      {"cut behind page 0", cutTo(4096), ErrorKind::Damaged},
      {"accdb", renamed("Standard ACE DB"), ErrorKind::UnsupportedFormat},
      {"Money", renamed("MSISAM Database"), ErrorKind::UnsupportedFormat},
      {"another name", renamed("Standard Jot DB"), ErrorKind::NotADatabase},
      {"version of 2007", ofVersion(2), ErrorKind::UnsupportedFormat},
      {"password", test::makeWornDatabase({.password = u"geheim"}).file, ErrorKind::PasswordRequired},
      {"password of 97", jet3Header("geheim"), ErrorKind::PasswordRequired},
      {"no password, but no catalog either", jet3Header(""), ErrorKind::Damaged},
  };
  MemoryFiles files;
  for (const Case& each : cases) {
    SCOPED_TRACE(each.what);
    files.put("case.mdb", each.content);
    EXPECT_EQ(failureOf([&] { Database database(files, "case.mdb"); }), each.kind);
  }
  EXPECT_EQ(failureOf([&] { Database database(files, "missing.mdb"); }), ErrorKind::FileNotFound);
  files.at("case.mdb").openFails = ErrorKind::Busy;
  EXPECT_EQ(failureOf([&] { Database database(files, "case.mdb"); }), ErrorKind::Busy);
}

TEST(Opening, APasswordHidesNothingFromThoseWhoMayIgnoreIt) {
  MemoryFiles files;
  files.put("secret.mdb", test::makeWornDatabase({.password = u"äöü"}).file);
  Database database(files, "secret.mdb", {.ignorePassword = true, .warn = {}});
  EXPECT_TRUE(database.header().hasPassword);
  Row row;
  EXPECT_TRUE(database.table(u"Personen").scan().next(row));
}

TEST(Opening, ReadsTwoPagesAndTheRestWhenAsked) {
  MemoryFiles files;
  auto& stored = files.put("lazy.mdb", soundFile());
  Database database(files, "lazy.mdb");
  EXPECT_LE(stored.bytesRead, 2 * 4096u);
  stored.readFails = ErrorKind::Io;
  EXPECT_EQ(failureOf([&] { database.tables(); }), ErrorKind::Io);
  stored.readFails.reset();
  EXPECT_EQ(database.tables().size(), 7u) << "a failure must not stick";
}

TEST(Opening, TablesAreFoundInAnyLetterCase) {
  MemoryFiles files;
  files.put("names.mdb", soundFile());
  Database database(files, "names.mdb");
  Table& table = database.table(u"pErSoNeN");
  EXPECT_EQ(table.name(), u"Personen");
  EXPECT_EQ(&table, &database.table(u"Personen"));
  EXPECT_EQ(table.findColumn(u"KÜRZEL"), table.findColumn(u"Kürzel"));
  EXPECT_FALSE(table.findColumn(u"Alt"));
  EXPECT_EQ(failureOf([&] { database.table(u"Persone"); }), ErrorKind::NoSuchTable);
  EXPECT_FALSE(database.tableProperties(u"Personen").empty());
}

TEST(Opening, TheStampTellsOfWrites) {
  MemoryFiles files;
  auto& stored = files.put("stamp.mdb", soundFile());
  Database database(files, "stamp.mdb");
  const ChangeStamp before = database.stamp();
  EXPECT_EQ(before, database.stamp());
  ++stored.content[0xE00 + 4];
  EXPECT_NE(before, database.stamp());
  --stored.content[0xE00 + 4];
  EXPECT_EQ(before, database.stamp());
  ++stored.lastWriteTime;
  EXPECT_NE(before, database.stamp());
}

}  // namespace
}  // namespace jet
