#include <filesystem>
#include <gtest/gtest.h>
#include <iostream>
#include <random>
#include <sstream>

#include "jet/check.h"
#include "jet/kill/killed_program.h"
#include "jet/kill/saves.h"
#include "jet/own_folder.h"

namespace jet {
namespace {

// The last save that the program reported; 0 if none.
std::int32_t runAndKill(const std::filesystem::path& file, std::chrono::microseconds delay) {
  std::istringstream lines(test::outputUntilKilled(file, delay));
  std::int32_t save = 0;
  while (lines >> save) {
  }
  return save;
}

saves::State personsIn(Database& database) {
  saves::State state;
  Row row;
  for (TableScan scan = database.table(u"Personen").scan(); scan.next(row);) {
    state[std::get<std::int32_t>(row.value(0))] = {std::get<Text>(row.value(1)),
                                                   std::get<Text>(row.value(2))};
  }
  return state;
}

std::int32_t savesIn(Database& database) {
  TableScan scan = database.table(u"Stand").scan();
  Row row;
  return scan.next(row) ? std::get<std::int32_t>(row.value(0)) : -1;
}

TEST(Kill, EverySaveIsWholeOrNotThere) {
  constexpr int kills = 20, longest = 250'000;
  const test::OwnFolder folder("kill");
  const auto file = folder.path / "kill.mdb";
  writeNewFile(systemFiles(), file, saves::makeDatabase());
  std::mt19937 random(16);
  saves::State expected;
  std::int32_t done = 0;
  int rolledBack = 0;
  for (int i = 0; i < kills; ++i) {
    SCOPED_TRACE("kill " + std::to_string(i));
    const std::int32_t reported = runAndKill(file, std::chrono::microseconds(random() % longest));
    OpenOptions options;
    options.recovered = [&](const RecoveryResult& result) {
      EXPECT_EQ(result.what, Recovery::RolledBack);
      ++rolledBack;
    };
    Database database(systemFiles(), file, options);
    const std::int32_t found = savesIn(database);
    EXPECT_GE(found, std::max(reported, done)) << "a reported save is lost";
    EXPECT_LE(found, std::max(reported, done) + 1);
    while (done < found) saves::Save(++done).apply(expected);
    EXPECT_TRUE(personsIn(database) == expected) << "after save " << found;
    for (const std::string& error : check(database).errors) ADD_FAILURE() << error;
    if (HasFailure()) break;
  }
  EXPECT_GT(done, kills) << "there was hardly anything to interrupt";
  std::cout << kills << " kills, " << done << " saves, " << rolledBack << " rolled back\n";
}

}  // namespace
}  // namespace jet
