#include <gtest/gtest.h>

#include "jet/create_fixture.h"
#include "jet/foreign_reader.h"

namespace {

using jet::Bytes;
using jet::ColumnType;
using jet::Null;
using jet::Text;
using jet::Value;
using jet::create::DatabaseBuilder;

// Its own way of printing GUIDs and binary values is left out here.
using CreatedForForeignReader = jet::test::ForeignReader;

TEST_F(CreatedForForeignReader, SeesTheSameTablesAndValues) {
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
  store(builder.finish());

  EXPECT_EQ(output("mdb-tables", "-1"), "Größen\nLeer\n");
  EXPECT_EQ(output("mdb-export", "Größen"),
            "L,Ja,B,I,C,D,W,T,M,N\n"
            "7,1,200,-3,-1.2345,2.5,\"01/01/00 12:00:00\",\"Öl\",\"" +
                std::string(3000, 'x') + "\",-5\n9,0,,,,,,\"Я\",,\n");
  EXPECT_EQ(output("mdb-export", "Leer"), "ID\n");
}

TEST_F(CreatedForForeignReader, CountsTheRowsOfALargeEncodedFile) {
  DatabaseBuilder builder({.databaseKey = 0x12345678});
  auto& table =
      builder.addTable({.name = u"Viele",
                        .columns = {column(u"ID", ColumnType::Long), column(u"T", ColumnType::Text, 20)},
                        .indexes = {{.name = u"P", .columns = {u"ID"}, .primaryKey = true}}});
  for (int i = 0; i < 60000; ++i) table.insert({i, Text(u"zwanzig Zeichen lang")});
  store(builder.finish());
  const std::string rows = output("mdb-export", "Viele");
  EXPECT_EQ(std::count(rows.begin(), rows.end(), '\n'), 60001);
}

}  // namespace
