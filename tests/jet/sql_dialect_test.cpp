#include <gtest/gtest.h>

#include "jet/error.h"
#include "jet/sql_database.h"

namespace {

using jet::ColumnType;
using jet::ErrorKind;
using jet::Null;

// Persons and their places; both have a column Name.
jet::create::DatabaseBuilder& dialectData(jet::create::DatabaseBuilder& builder) {
  auto& persons =
      builder.addTable({u"Personen",
                        {sqlColumn(u"ID", ColumnType::Long), sqlColumn(u"Name", ColumnType::Text, 50),
                         sqlColumn(u"Ort ID", ColumnType::Long), sqlColumn(u"Straße", ColumnType::Text, 50),
                         sqlColumn(u"Betrag", ColumnType::Currency)},
                        {sqlIndex(u"PrimaryKey", {u"ID"}, true)}});
  persons.insert({1, u"O'Brien", 10, u"Am \"Eck\"", jet::Currency{15000}});
  persons.insert({2, u"Österreicher", 20, u"Hauptplatz", jet::Currency{-25000}});
  persons.insert({3, u"Huber", 20, Null{}, Null{}});
  auto& places =
      builder.addTable({u"Orte",
                        {sqlColumn(u"ID", ColumnType::Long), sqlColumn(u"Name", ColumnType::Text, 50),
                         sqlColumn(u"Land", ColumnType::Long)},
                        {}});
  places.insert({10, u"Perg", 1});
  places.insert({20, u"Grein", 1});
  auto& countries = builder.addTable(
      {u"Länder", {sqlColumn(u"Nr", ColumnType::Long), sqlColumn(u"Kürzel", ColumnType::Text, 3)}, {}});
  countries.insert({1, u"AT"});
  return builder;
}

class SqlDialect : public testing::Test {
 protected:
  jet::create::DatabaseBuilder builder;
  SqlDatabase data{dialectData(builder)};
};

TEST_F(SqlDialect, Accepts) {
  const std::pair<const char16_t*, const char*> cases[] = {
      {u"SELECT ID FROM Personen", "1;2;3"},
      {u"select id , NAME from personen", "1,O'Brien;2,Österreicher;3,Huber"},
      {u"\tSELECT\r\n ID\nFROM\tPersonen ; ", "1;2;3"},
      {u"SELECT * FROM Orte", "10,Perg,1;20,Grein,1"},
      {u"SELECT*FROM[Orte]WHERE[ID]=10", "10,Perg,1"},
      {u"SELECT Personen.ID, [Personen].[Straße], PERSONEN.[ort id] FROM Personen WHERE ID=2",
       "2,Hauptplatz,20"},
      {u"SELECT STRASSE FROM Personen WHERE ID = 2", "Hauptplatz"},
      {u"SELECT ID FROM Personen WHERE Name = 'O''Brien'", "1"},
      {u"SELECT ID FROM Personen WHERE Name = \"O'Brien\"", "1"},
      {u"SELECT ID FROM Personen WHERE Straße = \"am \"\"eck\"\"\"", "1"},
      {u"SELECT ID FROM Personen WHERE Name = ''", ""},
      {u"SELECT ID FROM Personen WHERE 3 = ID", "3"},
      {u"SELECT ID FROM Personen WHERE [Ort ID] = 20 AND Name = 'huber'", "3"},
      {u"SELECT ID FROM Personen WHERE Betrag = 1.5", "1"},
      {u"SELECT ID FROM Personen WHERE Betrag = 1.50", "1"},
      {u"SELECT ID FROM Personen WHERE Betrag=-2.5", "2"},
      {u"SELECT ID FROM Personen WHERE Betrag = - 2.5", "2"},
      {u"SELECT ID FROM Personen WHERE ID = 1.5", ""},
      {u"SELECT ID FROM Personen WHERE ID = 3000000000", ""},
      {u"SELECT ID FROM Personen WHERE ID = .5", ""},
      {u"SELECT ID FROM Personen ORDER BY Name", "3;1;2"},
      {u"SELECT ID FROM Personen ORDER BY [Ort ID] DESC, Name ASC", "3;2;1"},
      {u"SELECT Personen.ID, Orte.Name FROM Personen INNER JOIN Orte ON Personen.[Ort ID] = Orte.ID",
       "1,Perg;2,Grein;3,Grein"},
      {u"SELECT Kürzel, Personen.ID FROM (Personen INNER JOIN Orte ON Orte.ID = Personen.[Ort ID]) INNER "
       u"JOIN Länder "
       u"ON Länder.Nr = Orte.Land WHERE Personen.ID = 2",
       "AT,2"},
      {u"SELECT Personen.ID FROM Personen INNER JOIN (Orte INNER JOIN Länder ON Nr = Land) ON [Ort ID] = "
       u"Orte.ID",
       "1;2;3"},
      {u"SELECT Personen.ID FROM ((Personen)) INNER JOIN Orte ON [Ort ID]=Orte.ID AND "
       u"Personen.Name=Orte.Name",
       ""},
      {u"SELECT Personen.ID FROM Personen INNER JOIN Orte ON [Ort ID] = Orte.ID WHERE Personen.ID = Land",
       "1"},
  };
  for (const auto& [query, expected] : cases) {
    EXPECT_EQ(rendered(data.session->query(query)), expected) << jet::toUtf8(query);
  }
}

TEST_F(SqlDialect, NamesResultColumnsAsTheTableDoes) {
  const auto result =
      data.session->query(u"SELECT orte.NAME, betrag FROM Personen INNER JOIN Orte ON [Ort ID] = Orte.ID");
  ASSERT_EQ(result.columns.size(), 2u);
  EXPECT_EQ(result.columns[0].name, u"Name");
  EXPECT_EQ(result.columns[1].name, u"Betrag");
  EXPECT_EQ(result.columns[1].type, ColumnType::Currency);
  EXPECT_EQ(data.session->query(u"SELECT * FROM Personen WHERE ID = 77").columns.size(), 5u);
}

TEST_F(SqlDialect, RefusesAndNamesWhatWasNotUnderstood) {
  struct Case {
    const char16_t* query;
    ErrorKind kind;
    const char* named;
  };
  const Case cases[] = {
      {u"", ErrorKind::Sql, "ends too early at character 1"},
      {u"UPDATE Personen", ErrorKind::Sql, "UPDATE at character 1"},
      {u"SELECT FROM Personen", ErrorKind::Sql, "FROM at character 8"},
      {u"SELECT ID, FROM Personen", ErrorKind::Sql, "FROM at character 12"},
      {u"SELECT DISTINCT ID FROM Personen", ErrorKind::Sql, "DISTINCT at character 8"},
      {u"SELECT TOP 5 ID FROM Personen", ErrorKind::Sql, "TOP at character 8"},
      {u"SELECT COUNT(*) FROM Personen", ErrorKind::Sql, "( at character 13"},
      {u"SELECT ID AS Nummer FROM Personen", ErrorKind::Sql, "AS at character 11"},
      {u"SELECT ID", ErrorKind::Sql, "ends too early at character 10"},
      {u"SELECT ID FROM", ErrorKind::Sql, "ends too early at character 15"},
      {u"SELECT ID FROM Personen, Orte", ErrorKind::Sql, ", at character 24"},
      {u"SELECT ID FROM Personen P", ErrorKind::Sql, "P at character 25"},
      {u"SELECT ID FROM Personen LEFT JOIN Orte ON Personen.ID = Orte.ID", ErrorKind::Sql,
       "LEFT at character 25"},
      {u"SELECT ID FROM Personen INNER JOIN Orte", ErrorKind::Sql, "expected ON"},
      {u"SELECT ID FROM (Personen", ErrorKind::Sql, "closing parenthesis"},
      {u"SELECT Nr FROM Personen INNER JOIN Orte ON [Ort ID] = Orte.ID INNER JOIN Länder ON Nr = Land",
       ErrorKind::Sql, "INNER at character 63; the first join must stand in parentheses"},
      {u"SELECT Land FROM Personen INNER JOIN Orte ON Personen.ID = [Ort ID]", ErrorKind::Sql, "each side"},
      {u"SELECT Land FROM Personen INNER JOIN Orte ON Orte.ID = 10", ErrorKind::Sql, "each side"},
      {u"SELECT Nr FROM (Personen INNER JOIN Orte ON Nr = Orte.ID) INNER JOIN Länder ON Nr = Land",
       ErrorKind::NoSuchColumn, "Nr"},
      {u"SELECT Nr FROM (Personen INNER JOIN Orte ON Länder.Nr = Orte.ID) INNER JOIN Länder ON Nr = Land",
       ErrorKind::Sql, "Länder at character 45"},
      {u"SELECT ID FROM Personen INNER JOIN Personen ON ID = ID", ErrorKind::Sql, "only once"},
      {u"SELECT ID FROM Personen WHERE", ErrorKind::Sql, "ends too early"},
      {u"SELECT ID FROM Personen WHERE ID > 1", ErrorKind::Sql, "> at character 34"},
      {u"SELECT ID FROM Personen WHERE ID = 1 OR ID = 2", ErrorKind::Sql, "OR at character 38"},
      {u"SELECT ID FROM Personen WHERE NOT ID = 1", ErrorKind::Sql, "NOT at character 31"},
      {u"SELECT ID FROM Personen WHERE ID = NULL", ErrorKind::Sql, "NULL at character 36"},
      {u"SELECT ID FROM Personen WHERE (ID = 1)", ErrorKind::Sql, "( at character 31"},
      {u"SELECT ID FROM Personen WHERE ID = 1 + 1", ErrorKind::Sql, "+ at character 38"},
      {u"SELECT ID FROM Personen WHERE 1 = 1", ErrorKind::Sql, "needs a column"},
      {u"SELECT ID FROM Personen WHERE ID = 1e5", ErrorKind::Sql, "1e5 at character 36"},
      {u"SELECT ID FROM Personen WHERE ID = 1.2.3", ErrorKind::Sql, "1.2"},
      {u"SELECT ID FROM Personen WHERE ID = 12345678901234567890123456789", ErrorKind::Sql,
       "too many digits"},
      {u"SELECT ID FROM Personen WHERE Name = 'O'Brien'", ErrorKind::Sql, "Brien at character 41"},
      {u"SELECT ID FROM Personen WHERE Name = 'Huber", ErrorKind::Sql, "closing quote"},
      {u"SELECT ID FROM Personen WHERE [Name = 'Huber'", ErrorKind::Sql, "closing bracket"},
      {u"SELECT [] FROM Personen", ErrorKind::Sql, "between the brackets"},
      {u"SELECT ID FROM Personen ORDER Name", ErrorKind::Sql, "expected BY"},
      {u"SELECT ID FROM Personen ORDER BY 1", ErrorKind::Sql, "1 at character 34"},
      {u"SELECT ID FROM Personen GROUP BY Name", ErrorKind::Sql, "GROUP at character 25"},
      {u"SELECT ID FROM Personen; SELECT ID FROM Orte", ErrorKind::Sql, "SELECT at character 26"},
      {u"SELECT ID FROM Personen WHERE ID = 1 \u20AC", ErrorKind::Sql, "€ at character 38"},
      {u"SELECT ID FROM Personen WHERE ID = #1/1/2020#", ErrorKind::Sql, "# at character 36"},
      {u"SELECT ID FROM Kunden", ErrorKind::NoSuchTable, "Kunden"},
      {u"SELECT Kunden.ID FROM Personen", ErrorKind::NoSuchTable, "Kunden"},
      {u"SELECT Orte.ID FROM Personen", ErrorKind::Sql, "Orte at character 8"},
      {u"SELECT Alter FROM Personen", ErrorKind::NoSuchColumn, "Alter"},
      {u"SELECT Personen.Alter FROM Personen", ErrorKind::NoSuchColumn, "Personen.Alter"},
      {u"SELECT ID FROM Personen WHERE Alter = 3", ErrorKind::NoSuchColumn, "Alter"},
      {u"SELECT ID FROM Personen ORDER BY Alter", ErrorKind::NoSuchColumn, "Alter"},
      {u"SELECT Name FROM Personen INNER JOIN Orte ON [Ort ID] = Orte.ID", ErrorKind::Sql,
       "Name at character 8"},
      {u"SELECT ID FROM Personen WHERE ID = '1'", ErrorKind::TypeMismatch, "'1'"},
      {u"SELECT ID FROM Personen WHERE Name = 1", ErrorKind::TypeMismatch, "Name"},
      {u"SELECT ID FROM Personen WHERE Name = ID", ErrorKind::TypeMismatch, "Name"},
  };
  for (const Case& test : cases) {
    try {
      data.session->query(test.query);
      ADD_FAILURE() << "accepted: " << jet::toUtf8(test.query);
    } catch (const jet::Error& error) {
      EXPECT_EQ(error.kind(), test.kind) << jet::toUtf8(test.query) << ": " << error.what();
      EXPECT_NE(error.reason().find(test.named), std::string::npos)
          << jet::toUtf8(test.query) << ": " << error.what();
    }
  }
  // A refused query leaves nothing behind.
  EXPECT_EQ(rendered(data.session->query(u"SELECT ID FROM Personen")), "1;2;3");
}

TEST_F(SqlDialect, BoundsNestingAndLength) {
  const auto kindOf = [this](const std::u16string& query) {
    try {
      data.session->query(query);
    } catch (const jet::Error& error) {
      return error.kind();
    }
    return ErrorKind::Io;
  };
  EXPECT_EQ(kindOf(u"SELECT ID FROM " + std::u16string(50000, u'(')), ErrorKind::Sql);
  EXPECT_EQ(kindOf(u"SELECT ID FROM Personen WHERE Name = '" + std::u16string(70000, u'x') + u"'"),
            ErrorKind::Sql);
  std::u16string longText = u"SELECT ID FROM Personen WHERE Name = '" + std::u16string(60000, u'x') + u"'";
  EXPECT_EQ(data.session->query(longText).rowCount(), 0u);
}

}  // namespace
