#ifndef _WIN32

#include <chrono>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <iostream>
#include <random>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "jet/check.h"
#include "jet/kill/saves.h"

extern char** environ;

namespace jet {
namespace {

// Lets the saving program run on `file` for a while and kills it. Returns the last save that it reported; 0
// if none.
std::int32_t runAndKill(const std::filesystem::path& file, std::chrono::microseconds delay) {
  int ends[2];
  if (::pipe(ends) != 0) throw std::runtime_error("no pipe");
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addclose(&actions, ends[0]);
  std::string program = KILL_PROGRAM, argument = file.string();
  char* arguments[] = {program.data(), argument.data(), nullptr};
  pid_t child = 0;
  const int started = ::posix_spawn(&child, program.c_str(), &actions, nullptr, arguments, environ);
  posix_spawn_file_actions_destroy(&actions);
  ::close(ends[1]);
  if (started != 0) throw std::runtime_error("the saving program does not start");
  std::this_thread::sleep_for(delay);
  ::kill(child, SIGKILL);
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status)) << "the saving program ended by itself";
  std::string output;
  char piece[4096];
  for (ssize_t length; (length = ::read(ends[0], piece, sizeof piece)) > 0;) {
    output.append(piece, static_cast<std::size_t>(length));
  }
  ::close(ends[0]);
  std::istringstream lines(output);
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
  const auto folder = std::filesystem::temp_directory_path() / ("jet-kill-" + std::to_string(::getpid()));
  std::filesystem::create_directory(folder);
  const auto file = folder / "kill.mdb";
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
  std::filesystem::remove_all(folder);
  EXPECT_GT(done, kills) << "there was hardly anything to interrupt";
  std::cout << kills << " kills, " << done << " saves, " << rolledBack << " rolled back\n";
}

}  // namespace
}  // namespace jet

#endif
