#ifndef _WIN32

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "jet/system_files_fixture.h"

namespace jet::test {
namespace {

using SystemFilesPosix = SystemFiles;

TEST_F(SystemFilesPosix, AFileThatAnotherHoldsForItselfIsBusy) {
  const auto path = make("busy", 10);
  const int other = ::open(path.c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(::flock(other, LOCK_EX | LOCK_NB), 0);
  EXPECT_EQ(openingOf(path), ErrorKind::Busy);
  ASSERT_EQ(::flock(other, LOCK_SH | LOCK_NB), 0);
  {
    const auto file = systemFiles().openShared(path);
    EXPECT_EQ(file->size(), 10u);
    EXPECT_NE(::flock(other, LOCK_EX | LOCK_NB), 0) << "who wants the file alone must see that it is read";
  }
  EXPECT_EQ(::flock(other, LOCK_EX | LOCK_NB), 0) << "closing gives the file free";
  ::close(other);
}

TEST_F(SystemFilesPosix, WhatCannotBeOpened) {
  EXPECT_EQ(openingOf(folder_), ErrorKind::Io);
  const auto pipe = folder_ / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(openingOf(pipe), ErrorKind::Io) << "and must not wait for a writer";
  const auto secret = make("secret", 1);
  std::filesystem::permissions(secret, std::filesystem::perms::none);
  if (::geteuid() != 0) {
    EXPECT_EQ(openingOf(secret), ErrorKind::AccessDenied);
  }
}

TEST_F(SystemFilesPosix, TheTimeOfTheLastChangeIsExact) {
  const auto path = make("time", 1);
  const auto file = systemFiles().openShared(path);
  const std::int64_t before = file->lastWriteTime();
  EXPECT_GT(before, std::int64_t{1'700'000'000} * 1'000'000'000);
  std::filesystem::last_write_time(path,
                                   std::filesystem::last_write_time(path) + std::chrono::nanoseconds(1000));
  EXPECT_EQ(file->lastWriteTime(), before + 1000);
}

}  // namespace
}  // namespace jet::test

#endif
