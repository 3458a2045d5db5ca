#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <random>
#include <span>

#include "jet/collation.h"
#include "jet/error.h"
#include "jet/sql_database.h"

namespace {

using jet::ColumnType;
using jet::Null;
using jet::Value;

// What the tests put into the tables, with the places the rows got.
struct PlannedRows {
  struct Person {
    std::int32_t id;
    Value name;
    jet::RowId row;
  };
  struct Membership {
    Value person, group;
    jet::RowId row;
  };
  std::vector<Person> persons;
  std::vector<Membership> memberships;
};

enum class Indexing { Complete, PersonOnly, GroupOnly, None };

constexpr std::array plannedNames{u"Huber", u"HUBER ", u"Müller", u"Muller",  u"müller",
                                  u"Weiß",  u"weiss",  u"",       u"Öllinger"};

// Random rows with Nulls, duplicates and references to persons that do not exist; some rows have moved, some
// are deleted. The same for every kind of indexing.
PlannedRows fillPlanned(jet::create::DatabaseBuilder& builder, Indexing indexing) {
  std::mt19937 random(7);
  PlannedRows rows;
  const bool complete = indexing == Indexing::Complete;
  std::vector<jet::create::IndexSpec> personIndexes, membershipIndexes;
  if (complete) {
    personIndexes = {sqlIndex(u"PrimaryKey", {u"ID"}, true), sqlIndex(u"Name", {u"-Name"})};
    membershipIndexes = {sqlIndex(u"GruppePerson", {u"GruppenID", u"-PersonenID"})};
  }
  if (indexing == Indexing::PersonOnly) membershipIndexes = {sqlIndex(u"PersonenID", {u"PersonenID"})};
  if (indexing == Indexing::GroupOnly) membershipIndexes = {sqlIndex(u"GruppenID", {u"GruppenID"})};
  auto& persons =
      builder.addTable({u"Namen",
                        {sqlColumn(u"ID", ColumnType::Long), sqlColumn(u"Name", ColumnType::Text, 60)},
                        personIndexes});
  auto& memberships =
      builder.addTable({u"Mitglieder",
                        {sqlColumn(u"Nr", ColumnType::Long), sqlColumn(u"PersonenID", ColumnType::Long),
                         sqlColumn(u"GruppenID", ColumnType::Long)},
                        membershipIndexes});
  for (std::int32_t id = 200; id >= 1; --id) {
    const Value name =
        random() % 10 == 0 ? Value{Null{}} : Value{jet::Text(plannedNames[random() % plannedNames.size()])};
    rows.persons.push_back({id, name, persons.insert({id, name})});
  }
  for (std::int32_t number = 0; number < 3000; ++number) {
    const Value person =
        random() % 20 == 0 ? Value{Null{}} : Value{static_cast<std::int32_t>(random() % 230)};
    const Value group = random() % 20 == 0 ? Value{Null{}} : Value{static_cast<std::int32_t>(random() % 5)};
    const jet::RowId row = memberships.insert({number, person, group});
    if (number % 97 == 0) {
      memberships.erase(row);
      rows.memberships.push_back({Null{}, Null{}, row});
      continue;
    }
    if (number % 31 == 0) memberships.move(row);
    rows.memberships.push_back({person, group, row});
  }
  return rows;
}

constexpr std::array allIndexings{Indexing::Complete, Indexing::PersonOnly, Indexing::GroupOnly,
                                  Indexing::None};

std::u16string digits(std::size_t number) {
  const std::string text = std::to_string(number);
  return {text.begin(), text.end()};
}

bool sameNumber(const Value& value, std::int32_t wanted) {
  const auto* number = std::get_if<std::int32_t>(&value);
  return number != nullptr && *number == wanted;
}

TEST(SqlPlans, TakeTheIndexThatIsThereOrAHash) {
  struct Case {
    Indexing indexing;
    const char16_t* query;
    const char* plan;
  };
  constexpr const char16_t* join =
      u"SELECT Nr FROM Mitglieder INNER JOIN Namen ON Namen.ID = Mitglieder.PersonenID WHERE Name = 'Weiss'";
  const Case cases[] = {
      {Indexing::Complete, u"SELECT Name FROM Namen WHERE ID = 7", "Namen: index PrimaryKey"},
      {Indexing::Complete, u"SELECT ID FROM Namen WHERE Name = 'Huber'", "Namen: index Name"},
      {Indexing::Complete, u"SELECT ID FROM Namen WHERE Name = 'Huber' AND ID = 3",
       "Namen: index PrimaryKey"},
      {Indexing::Complete, u"SELECT Nr FROM Mitglieder WHERE PersonenID = 5 AND GruppenID = 3",
       "Mitglieder: index GruppePerson"},
      {Indexing::Complete, u"SELECT Nr FROM Mitglieder WHERE GruppenID = 3",
       "Mitglieder: index GruppePerson"},
      {Indexing::Complete, u"SELECT Nr FROM Mitglieder WHERE PersonenID = 5", "Mitglieder: hash PersonenID"},
      {Indexing::PersonOnly, u"SELECT Nr FROM Mitglieder WHERE PersonenID = 5 AND GruppenID = 3",
       "Mitglieder: index PersonenID"},
      {Indexing::None, u"SELECT Nr FROM Mitglieder WHERE GruppenID = 3 AND PersonenID = 5",
       "Mitglieder: hash PersonenID, GruppenID"},
      {Indexing::None, u"SELECT Nr FROM Mitglieder", "Mitglieder: scan"},
      {Indexing::Complete, join, "Namen: index Name; Mitglieder: hash PersonenID"},
      {Indexing::PersonOnly, join, "Namen: hash Name; Mitglieder: index PersonenID"},
      {Indexing::Complete,
       u"SELECT Name FROM Namen INNER JOIN Mitglieder ON ID = PersonenID WHERE GruppenID = 1 AND ID = 9",
       "Namen: index PrimaryKey; Mitglieder: index GruppePerson"},
  };
  for (const Case& test : cases) {
    jet::create::DatabaseBuilder builder;
    fillPlanned(builder, test.indexing);
    SqlDatabase data(builder);
    jet::sql::Plan plan;
    data.session->query(test.query, &plan);
    EXPECT_EQ(rendered(plan), test.plan) << jet::toUtf8(test.query);
  }
}

TEST(SqlPlans, ManyHashedQueriesCostOneScan) {
  jet::create::DatabaseBuilder builder;
  fillPlanned(builder, Indexing::None);
  SqlDatabase data(builder);
  data.database =
      std::make_unique<jet::Database>(data.files, "test.mdb", jet::OpenOptions{.cacheBytes = 0, .warn = {}});
  data.session = std::make_unique<jet::sql::Session>(*data.database);
  const auto readsOf = [&](std::size_t person) {
    const auto before = data.files.at("test.mdb").reads;
    data.session->query(u"SELECT Nr FROM Mitglieder WHERE PersonenID = " + digits(person) +
                        u" AND GruppenID = 2");
    return data.files.at("test.mdb").reads - before;
  };
  EXPECT_GT(readsOf(1), 15u);  // reads the table once, then only the pages of the rows it found
  for (std::size_t person = 2; person < 200; ++person) EXPECT_LE(readsOf(person), 12u);
}

TEST(SqlPlans, AnIndexThatMostlyMissesGivesWayToAHash) {
  jet::create::DatabaseBuilder builder;
  const PlannedRows rows = fillPlanned(builder, Indexing::GroupOnly);
  SqlDatabase data(builder);
  std::string first, last;
  for (std::int32_t person = 0; person < 60; ++person) {
    jet::sql::Plan plan;
    const auto result =
        data.session->query(u"SELECT Nr FROM Mitglieder WHERE PersonenID = " +
                                digits(static_cast<std::size_t>(person)) + u" AND GruppenID = 3",
                            &plan);
    const auto expected = std::ranges::count_if(rows.memberships, [&](const PlannedRows::Membership& row) {
      return sameNumber(row.person, person) && sameNumber(row.group, 3);
    });
    ASSERT_EQ(result.rowCount(), static_cast<std::size_t>(expected)) << person;
    (person == 0 ? first : last) = rendered(plan);
  }
  EXPECT_EQ(first, "Mitglieder: index GruppenID");
  EXPECT_EQ(last, "Mitglieder: hash PersonenID, GruppenID");
}

// The numbers of the memberships that meet the conditions, in stored order, by looking at every row.
std::string expectedNumbers(const PlannedRows& rows, std::int32_t person, std::int32_t group) {
  std::vector<std::pair<jet::RowId, std::size_t>> found;
  for (std::size_t i = 0; i < rows.memberships.size(); ++i) {
    const auto& row = rows.memberships[i];
    if (sameNumber(row.person, person) && sameNumber(row.group, group)) found.emplace_back(row.row, i);
  }
  std::ranges::sort(found);
  std::string text;
  for (const auto& [row, number] : found) text += (text.empty() ? "" : ";") + std::to_string(number);
  return text;
}

// The same for persons of one name in one group, ordered by name, then number descending where `ordered`.
std::string expectedJoin(const PlannedRows& rows, std::u16string_view name, std::int32_t group,
                         bool ordered) {
  struct Found {
    jet::RowId membership, person;
    std::size_t number;
  };
  std::vector<Found> found;
  for (std::size_t i = 0; i < rows.memberships.size(); ++i) {
    const auto& membership = rows.memberships[i];
    if (!sameNumber(membership.group, group)) continue;
    for (const auto& person : rows.persons) {
      const auto* text = std::get_if<jet::Text>(&person.name);
      if (text == nullptr || !jet::collation::equal(*text, name) || !sameNumber(membership.person, person.id))
        continue;
      found.push_back({membership.row, person.row, i});
    }
  }
  std::ranges::sort(found, [ordered](const Found& left, const Found& right) {
    if (ordered) return left.number > right.number;
    return std::tie(left.membership, left.person) < std::tie(right.membership, right.person);
  });
  std::string text;
  for (const Found& row : found) text += (text.empty() ? "" : ";") + std::to_string(row.number);
  return text;
}

TEST(SqlPlans, EveryPathGivesTheSameRowsInStoredOrder) {
  for (const Indexing indexing : allIndexings) {
    jet::create::DatabaseBuilder builder;
    const PlannedRows rows = fillPlanned(builder, indexing);
    SqlDatabase data(builder);
    for (std::int32_t person = 0; person < 230; person += 3) {
      const std::int32_t group = person % 6;
      const auto result = data.session->query(u"SELECT Nr FROM Mitglieder WHERE PersonenID = " +
                                              digits(static_cast<std::size_t>(person)) +
                                              u" AND GruppenID = " + digits(static_cast<std::size_t>(group)));
      ASSERT_EQ(rendered(result), expectedNumbers(rows, person, group))
          << static_cast<int>(indexing) << person;
    }
    for (const char16_t* name : plannedNames) {
      for (std::int32_t group = 0; group < 6; ++group) {
        const std::u16string conditions = std::u16string(u" WHERE Namen.Name = '") + name +
                                          u"' AND GruppenID = " + digits(static_cast<std::size_t>(group));
        const std::u16string fromMembers =
            u"SELECT Nr FROM Mitglieder INNER JOIN Namen ON Namen.ID = Mitglieder.PersonenID" + conditions;
        ASSERT_EQ(rendered(data.session->query(fromMembers)), expectedJoin(rows, name, group, false))
            << static_cast<int>(indexing) << jet::toUtf8(name) << group;
        // All names are equal in the database's eyes, whatever their spelling.
        ASSERT_EQ(rendered(data.session->query(fromMembers + u" ORDER BY Name, Nr DESC")),
                  expectedJoin(rows, name, group, true));
        ASSERT_EQ(rendered(data.session->query(fromMembers + u" ORDER BY Nr DESC, Name")),
                  expectedJoin(rows, name, group, true));
      }
    }
  }
}

TEST(SqlPlans, WholeJoinLeavesOutDanglingReferencesWhateverTheIndexes) {
  std::string first;
  for (const Indexing indexing : allIndexings) {
    jet::create::DatabaseBuilder builder;
    const PlannedRows rows = fillPlanned(builder, indexing);
    SqlDatabase data(builder);
    const auto result = data.session->query(
        u"SELECT ID, Name, Nr FROM Namen INNER JOIN Mitglieder ON PersonenID = ID ORDER BY Name DESC");
    const auto expected = std::ranges::count_if(rows.memberships, [](const PlannedRows::Membership& row) {
      const auto* person = std::get_if<std::int32_t>(&row.person);
      return person != nullptr && *person >= 1 && *person <= 200;
    });
    EXPECT_EQ(result.rowCount(), static_cast<std::size_t>(expected));
    if (first.empty()) first = rendered(result);
    EXPECT_EQ(rendered(result), first);
  }
}

// Every place in the file where an index leaf holds this key.
std::vector<std::size_t> placesOf(std::span<const std::uint8_t> file, std::span<const std::uint8_t> key) {
  std::vector<std::size_t> places;
  for (auto at = file.begin();;) {
    at = std::search(at, file.end(), key.begin(), key.end());
    if (at == file.end()) return places;
    places.push_back(static_cast<std::size_t>(at - file.begin()));
    ++at;
  }
}

TEST(SqlPlans, AnIndexThatContradictsItsTableIsDamaged) {
  jet::create::DatabaseBuilder builder;
  auto& table = builder.addTable({u"T",
                                  {sqlColumn(u"ID", ColumnType::Long), sqlColumn(u"Wert", ColumnType::Long)},
                                  {sqlIndex(u"PrimaryKey", {u"ID"}, true)}});
  for (std::int32_t id = 70001; id <= 70020; ++id) table.insert({id, id * 2});
  const jet::RowId deleted = table.insert({70021, 5});
  table.erase(deleted);
  SqlDatabase data(builder);
  auto& file = data.files.at("test.mdb").content;
  constexpr std::size_t keyLength = 5;
  const auto entryOf = [&](std::uint32_t id) {
    const std::uint32_t flipped = id ^ 0x80000000U;
    const std::array<std::uint8_t, keyLength> key{
        0x7F, static_cast<std::uint8_t>(flipped >> 24), static_cast<std::uint8_t>(flipped >> 16),
        static_cast<std::uint8_t>(flipped >> 8), static_cast<std::uint8_t>(flipped)};
    const auto places = placesOf(file, key);
    EXPECT_EQ(places.size(), 1u);
    return places.empty() ? 0 : places.front();
  };
  // Two entries exchange their rows; a third one leads to the row that was deleted.
  std::swap_ranges(file.begin() + static_cast<std::ptrdiff_t>(entryOf(70003) + keyLength),
                   file.begin() + static_cast<std::ptrdiff_t>(entryOf(70003) + keyLength + 4),
                   file.begin() + static_cast<std::ptrdiff_t>(entryOf(70005) + keyLength));
  file[entryOf(70007) + keyLength + 3] = deleted.slot;
  data.open();
  for (const char16_t* query :
       {u"SELECT Wert FROM T WHERE ID = 70003", u"SELECT Wert FROM T WHERE ID = 70007",
        u"SELECT Wert FROM T WHERE Wert = 1 AND ID = 70005"}) {
    try {
      data.session->query(query);
      ADD_FAILURE() << "answered: " << jet::toUtf8(query);
    } catch (const jet::Error& error) {
      EXPECT_EQ(error.kind(), jet::ErrorKind::Damaged) << error.what();
    }
  }
  EXPECT_EQ(rendered(data.session->query(u"SELECT Wert FROM T WHERE ID = 70004")), "140008");
  EXPECT_EQ(rendered(data.session->query(u"SELECT ID FROM T WHERE Wert = 140006")), "70003");
}

// Conditions on both columns of a join leave no way between the tables but these; each is still read once.
TEST(SqlPlans, JoinedColumnsMayAllHaveAWantedValue) {
  jet::create::DatabaseBuilder builder;
  for (const char16_t* name : {u"A", u"B", u"C"}) {
    auto& table = builder.addTable({name, {sqlColumn(u"ID", ColumnType::Long)}, {}});
    for (std::int32_t id = 1; id <= 9; ++id) table.insert({id});
  }
  SqlDatabase data(builder);
  const auto answer = [&](const char16_t* query) { return rendered(data.session->query(query)); };
  EXPECT_EQ(answer(u"SELECT A.ID, B.ID FROM A INNER JOIN B ON A.ID = B.ID WHERE A.ID = 5 AND B.ID = 5"),
            "5,5");
  EXPECT_EQ(answer(u"SELECT A.ID, B.ID FROM A INNER JOIN B ON A.ID = B.ID WHERE A.ID = 5 AND B.ID = 6"), "");
  EXPECT_EQ(
      answer(u"SELECT A.ID, B.ID, C.ID FROM (A INNER JOIN B ON A.ID = B.ID) INNER JOIN C ON B.ID = C.ID "
             u"WHERE A.ID = 7 AND B.ID = 7 AND C.ID = 7"),
      "7,7,7");
}

}  // namespace
