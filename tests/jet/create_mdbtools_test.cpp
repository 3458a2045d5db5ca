#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

#include "jet/create_fixture.h"

namespace {

using jet::Bytes;
using jet::ColumnType;
using jet::Null;
using jet::Text;
using jet::Value;
using jet::create::DatabaseBuilder;

// What an independent reader makes of our files. It has its own way of printing GUIDs and binary values, so
// those columns are left out here.
class ForeignReader : public ::testing::Test {
 protected:
  void SetUp() override {
    if (std::system("command -v mdb-export >/dev/null 2>&1") != 0)
      GTEST_SKIP() << "mdbtools are not installed";
    path_ = std::filesystem::temp_directory_path() / ("pelvanto-create-" + std::to_string(getpid()) + ".mdb");
  }
  void TearDown() override { std::filesystem::remove(path_); }

  void store(DatabaseBuilder& builder) {
    const auto content = builder.finish();
    std::ofstream(path_, std::ios::binary)
        .write(reinterpret_cast<const char*>(content.data()), static_cast<std::streamsize>(content.size()));
  }
  std::string output(const std::string& program, const std::string& options) {
    const std::string command = program + " " + path_.string() + " " + options + " 2>&1";
    std::string text;
    FILE* pipe = popen(command.c_str(), "r");
    for (int byte = std::fgetc(pipe); byte != EOF; byte = std::fgetc(pipe))
      text.push_back(static_cast<char>(byte));
    pclose(pipe);
    return text;
  }

  std::filesystem::path path_;
};

TEST_F(ForeignReader, SeesTheSameTablesAndValues) {
  DatabaseBuilder builder;
  auto& table =
      builder.addTable({.name = u"Größen",
                        .columns = {column(u"L", ColumnType::Long), column(u"Ja", ColumnType::Boolean),
                                    column(u"B", ColumnType::Byte), column(u"I", ColumnType::Integer),
                                    column(u"C", ColumnType::Currency), column(u"D", ColumnType::Double),
                                    column(u"W", ColumnType::DateTime), column(u"T", ColumnType::Text, 40),
                                    column(u"M", ColumnType::Memo), column(u"N", ColumnType::Numeric)},
                        .indexes = {{.name = u"P", .columns = {u"L"}, .primaryKey = true}}});
  const jet::Numeric half{true, {0, 0, 0, 5}, 0};
  table.insert({7, true, 200, -3, jet::Currency{-12345}, 2.5, jet::DateTime{36526.5}, Text(u"Öl"),
                Text(3000, u'x'), half});
  table.erase(
      table.insert({8, false, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, Text(9000, u'y'), Null{}}));
  table.move(table.insert({9, false, Null{}, Null{}, Null{}, Null{}, Null{}, Text(u"Я"), Null{}, Null{}}));
  builder.addTable({.name = u"Leer", .columns = {column(u"ID", ColumnType::Long)}});
  store(builder);

  EXPECT_EQ(output("mdb-tables", "-1"), "Größen\nLeer\n");
  EXPECT_EQ(output("mdb-export", "Größen"),
            "L,Ja,B,I,C,D,W,T,M,N\n"
            "7,1,200,-3,-1.2345,2.5,\"01/01/00 12:00:00\",\"Öl\",\"" +
                std::string(3000, 'x') + "\",-5\n9,0,,,,,,\"Я\",,\n");
  EXPECT_EQ(output("mdb-export", "Leer"), "ID\n");
}

TEST_F(ForeignReader, CountsTheRowsOfALargeEncodedFile) {
  DatabaseBuilder builder({.databaseKey = 0x12345678});
  auto& table =
      builder.addTable({.name = u"Viele",
                        .columns = {column(u"ID", ColumnType::Long), column(u"T", ColumnType::Text, 20)},
                        .indexes = {{.name = u"P", .columns = {u"ID"}, .primaryKey = true}}});
  for (int i = 0; i < 60000; ++i) table.insert({i, Text(u"zwanzig Zeichen lang")});
  store(builder);
  const std::string rows = output("mdb-export", "Viele");
  EXPECT_EQ(std::count(rows.begin(), rows.end(), '\n'), 60001);
}

}  // namespace
