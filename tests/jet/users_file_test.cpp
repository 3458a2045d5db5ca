#include "jet/users_file.h"

#include <gtest/gtest.h>

#include "common/memory_files.h"
#include "jet/own_folder.h"

#ifdef _WIN32
#include "jet/windows_handle.h"
#else
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

// Another one locks a byte of the file for the time of a question.
#ifdef _WIN32
// Here locks belong to handles, so that another one stands for another process.
bool hasUsersWhileLocked(const std::filesystem::path& database, std::uint64_t byte) {
  const auto path = std::filesystem::path(database).replace_extension(".ldb");
  const windows::Handle file(::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                                           FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                           FILE_ATTRIBUTE_NORMAL, nullptr));
  OVERLAPPED place = windows::placeAt(byte);
  constexpr DWORD kind = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
  EXPECT_NE(::LockFileEx(file.get(), kind, 0, 1, 0, &place), 0) << "the other one could not lock";
  return hasUsers(systemFiles(), database);
}
#else
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
#endif

TEST(UsersFile, UsersHoldTheBytesThatAreTheirs) {
  const test::OwnFolder folder("users");
  const auto database = folder.path / "Verbindo.mdb";
  EXPECT_FALSE(hasUsers(systemFiles(), database));
  EXPECT_TRUE(hasUsersWhileLocked(database, 0x1000'0001));
  EXPECT_TRUE(hasUsersWhileLocked(database, 0x1000'00FF));
  EXPECT_FALSE(hasUsersWhileLocked(database, 0x1000'0000));
  EXPECT_FALSE(hasUsersWhileLocked(database, 0x1000'0100));
  EXPECT_FALSE(hasUsers(systemFiles(), database)) << "left over by a crash";
}

}  // namespace
}  // namespace jet
