#include "jet/users_file.h"

#include <gtest/gtest.h>

#include "common/memory_files.h"

#ifndef _WIN32
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace jet {
namespace {

TEST(UsersFile, IsFoundHoweverItsNameIsWritten) {
  for (const char* name : {"d/Verbindo.ldb", "d/Verbindo.LDB", "d/verbindo.ldb", "d/VERBINDO.LDB"}) {
    MemoryFiles files;
    files.put(name, {});
    EXPECT_FALSE(hasUsers(files, "d/Verbindo.mdb")) << "left over by a crash";
    files.locked.insert(name);
    EXPECT_TRUE(hasUsers(files, "d/Verbindo.mdb")) << name;
    EXPECT_FALSE(hasUsers(files, "d/Verbindo2.mdb"));
  }
}

#ifndef _WIN32
// Another process locks one byte of the file for the time of a question.
bool hasUsersWhileLocked(const std::filesystem::path& database, std::uint64_t byte) {
  int ready[2], done[2];
  if (::pipe(ready) != 0 || ::pipe(done) != 0) return false;
  const pid_t other = ::fork();
  char signal = 0;
  if (other == 0) {
    std::filesystem::path path = database;
    const int file = ::open(path.replace_extension(".ldb").c_str(), O_RDWR | O_CREAT, 0600);
    struct flock range {};
    range.l_type = F_WRLCK;
    range.l_whence = SEEK_SET;
    range.l_start = static_cast<off_t>(byte);
    range.l_len = 1;
    if (::fcntl(file, F_SETLK, &range) == 0 && ::write(ready[1], "r", 1) == 1) {
      ::close(done[1]);
      [[maybe_unused]] const auto end = ::read(done[0], &signal, 1);
    }
    ::_exit(0);
  }
  ::close(ready[1]);
  EXPECT_EQ(::read(ready[0], &signal, 1), 1) << "the other process could not lock";
  const bool result = hasUsers(systemFiles(), database);
  for (const int end : {ready[0], done[0], done[1]}) ::close(end);
  ::waitpid(other, nullptr, 0);
  return result;
}

TEST(UsersFile, UsersHoldTheBytesThatAreTheirs) {
  const auto folder = std::filesystem::temp_directory_path() / ("jet-users-" + std::to_string(::getpid()));
  std::filesystem::create_directory(folder);
  const auto database = folder / "Verbindo.mdb";
  EXPECT_FALSE(hasUsers(systemFiles(), database));
  EXPECT_TRUE(hasUsersWhileLocked(database, 0x1000'0001));
  EXPECT_TRUE(hasUsersWhileLocked(database, 0x1000'00FF));
  EXPECT_FALSE(hasUsersWhileLocked(database, 0x1000'0000));
  EXPECT_FALSE(hasUsersWhileLocked(database, 0x1000'0100));
  EXPECT_FALSE(hasUsers(systemFiles(), database)) << "left over by a crash";
  std::filesystem::remove_all(folder);
}
#endif

}  // namespace
}  // namespace jet
