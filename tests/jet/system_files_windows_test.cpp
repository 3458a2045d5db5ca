#ifdef _WIN32

#include <chrono>
#include <thread>
#include <windows.h>

#include "jet/system_files_fixture.h"
#include "jet/windows_handle.h"

namespace jet::test {
namespace {

using std::chrono::milliseconds;
using windows::Handle;
using windows::openExisting;
using windows::shareAll;

class SystemFilesWindows : public SystemFiles {
 protected:
  // Another program that has a file open; what it lets others do meanwhile is `share`.
  static Handle otherProgram(const std::filesystem::path& path, DWORD share,
                             DWORD access = GENERIC_READ | GENERIC_WRITE) {
    Handle handle = openExisting(path, access, share);
    EXPECT_TRUE(handle.isOpen()) << ::GetLastError();
    return handle;
  }
  // Lets go after a while, in which the test goes on.
  static std::jthread letGoSoon(Handle handle) {
    return std::jthread([held = std::move(handle)]() mutable {
      std::this_thread::sleep_for(milliseconds(200));
      held.close();
    });
  }
  template <typename Action>
  static milliseconds durationOf(Action action) {
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - start);
  }
};

TEST_F(SystemFilesWindows, ReadsBesideAProgramThatWritesAndKeepsItFromNothing) {
  const auto path = make("shared", 10);
  const Handle writer = otherProgram(path, FILE_SHARE_READ | FILE_SHARE_WRITE);
  const auto file = systemFiles().openShared(path);
  EXPECT_EQ(file->size(), 10u);
  EXPECT_EQ(failureOf([&] { file->acquire(); }), ErrorKind::Busy) << "it may write at any moment";
  EXPECT_EQ(file->size(), 10u) << "and is still open for reading";
  EXPECT_TRUE(openExisting(path, GENERIC_READ | GENERIC_WRITE, shareAll).isOpen());
}

TEST_F(SystemFilesWindows, AFileThatAnotherHasForItselfIsBusy) {
  const auto path = make("held", 10);
  const Handle other = otherProgram(path, 0);
  EXPECT_EQ(openingOf(path), ErrorKind::Busy);
  EXPECT_TRUE(systemFiles().exists(path));
  EXPECT_TRUE(systemFiles().isLocked(path, 0x1000'0001, 255)) << "whoever it is, he uses it";
}

TEST_F(SystemFilesWindows, OthersSeeThatAFileIsReadOrTaken) {
  const auto path = make("ours", 10);
  const auto file = systemFiles().openShared(path);
  EXPECT_FALSE(openExisting(path, GENERIC_READ, 0).isOpen()) << "who wants it alone sees that it is read";
  file->acquire();
  EXPECT_FALSE(openExisting(path, GENERIC_READ, shareAll).isOpen());
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_SHARING_VIOLATION});
  file->release();
  EXPECT_TRUE(openExisting(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ).isOpen());
}

TEST_F(SystemFilesWindows, TakesWhatStandsInItsPlaceNow) {
  const auto path = make("Verbindo.mdb", 10, 1);
  const auto file = systemFiles().openShared(path);
  systemFiles().rename(path, folder_ / "Verbindo.bak");
  make("Verbindo.mdb", 20, 2);
  file->acquire();
  EXPECT_EQ(file->size(), 20u);
  file->release();
  EXPECT_TRUE(file->isInPlace());
}

TEST_F(SystemFilesWindows, RenamingAndRemovingWaitForOthersButNotForEver) {
  const auto path = make("waiting", 10);
  const auto lasting = make("lasting", 10);
  const Handle stays = otherProgram(lasting, FILE_SHARE_READ | FILE_SHARE_WRITE);
  const auto waited = durationOf([&] {
    EXPECT_EQ(failureOf([&] { systemFiles().rename(lasting, folder_ / "renamed"); }), ErrorKind::Busy);
  });
  EXPECT_GT(waited, milliseconds(1500));
  EXPECT_EQ(failureOf([&] { systemFiles().remove(lasting); }), ErrorKind::Busy);
  EXPECT_TRUE(systemFiles().exists(lasting));

  std::jthread scanner = letGoSoon(otherProgram(path, FILE_SHARE_READ));
  systemFiles().rename(path, folder_ / "renamed");
  scanner = letGoSoon(otherProgram(folder_ / "renamed", FILE_SHARE_READ));
  systemFiles().remove(folder_ / "renamed");
  EXPECT_FALSE(systemFiles().exists(folder_ / "renamed"));
}

// Its name is neither there nor free until the last one has closed it.
TEST_F(SystemFilesWindows, AFileThatIsBeingRemovedHasNoUsers) {
  const auto path = make("removed.ldb", 10);
  Handle scanner = otherProgram(path, shareAll, GENERIC_READ);
  systemFiles().remove(path);
  const std::jthread end = letGoSoon(std::move(scanner));
  EXPECT_FALSE(systemFiles().isLocked(path, 0x1000'0001, 255));
}

TEST_F(SystemFilesWindows, NamesDoNotTellUpperFromLowerCase) {
  const auto path = make("Verbindo.mdb", 1);
  EXPECT_EQ(systemFiles().canonical(folder_ / "VERBINDO.MDB"), systemFiles().canonical(path));
  EXPECT_EQ(failureOf([&] { systemFiles().create(folder_ / "verbindo.MDB"); }), ErrorKind::Io);
}

TEST_F(SystemFilesWindows, TheTimeOfTheLastChangeIsExact) {
  const auto path = make("time", 1);
  const auto file = systemFiles().openShared(path);
  EXPECT_GT(file->lastWriteTime(), std::int64_t{1'700'000'000} * 1'000'000'000);
  const std::uint64_t time = 134'168'400'000'000'007;  // 2026-03-01 12:00:00.0000007 UTC
  const FILETIME set{static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
  const Handle other = otherProgram(path, shareAll);
  ASSERT_NE(::SetFileTime(other.get(), nullptr, nullptr, &set), 0);
  EXPECT_EQ(file->lastWriteTime(), std::int64_t{1'772'366'400} * 1'000'000'000 + 700);
}

TEST_F(SystemFilesWindows, FoldersAreNoFiles) { EXPECT_EQ(openingOf(folder_), ErrorKind::AccessDenied); }

}  // namespace
}  // namespace jet::test

#endif
