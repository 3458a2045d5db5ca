#ifndef _WIN32

#include <array>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "jet/error.h"
#include "jet/file.h"
#include "jet/shared_files.h"

namespace jet {
namespace {

class SystemFiles : public testing::Test {
 protected:
  SystemFiles()
      : folder_(std::filesystem::temp_directory_path() / ("jet-files-" + std::to_string(::getpid()))) {
    std::filesystem::create_directory(folder_);
  }
  ~SystemFiles() override { std::filesystem::remove_all(folder_); }

  std::filesystem::path make(const char* name, std::size_t size) {
    writeNewFile(systemFiles(), folder_ / name, std::vector<std::uint8_t>(size, 0x4D));
    return folder_ / name;
  }
  template <typename Action>
  static ErrorKind failureOf(Action action) {
    try {
      action();
    } catch (const Error& error) {
      return error.kind();
    }
    ADD_FAILURE() << "nothing failed";
    return ErrorKind::Sql;
  }
  static ErrorKind openingOf(const std::filesystem::path& path) {
    return failureOf([&] { systemFiles().openShared(path); });
  }

  std::filesystem::path folder_;
};

TEST_F(SystemFiles, AFileThatAnotherHoldsForItselfIsBusy) {
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

TEST_F(SystemFiles, WhatCannotBeOpened) {
  EXPECT_EQ(openingOf(folder_ / "missing"), ErrorKind::FileNotFound);
  EXPECT_EQ(openingOf(make("plain", 1) / "below"), ErrorKind::FileNotFound);
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

TEST_F(SystemFiles, ReadsPartsAndNoticesTheEnd) {
  const auto path = make("parts", 5000);
  const auto file = systemFiles().openShared(path);
  std::array<std::uint8_t, 100> part{};
  file->read(4900, part);
  EXPECT_EQ(part.back(), 0x4D);
  EXPECT_EQ(failureOf([&] { file->read(4901, part); }), ErrorKind::Truncated);
  const std::int64_t before = file->lastWriteTime();
  EXPECT_GT(before, std::int64_t{1'700'000'000} * 1'000'000'000);
  std::filesystem::last_write_time(path,
                                   std::filesystem::last_write_time(path) + std::chrono::nanoseconds(1000));
  EXPECT_EQ(file->lastWriteTime(), before + 1000);
  std::filesystem::resize_file(path, 100);
  EXPECT_EQ(file->size(), 100u);
  EXPECT_EQ(failureOf([&] { file->read(50, part); }), ErrorKind::Truncated);
}

TEST_F(SystemFiles, CreatesWholeFilesAndReplacesNone) {
  const auto path = make("new", 70'000);
  EXPECT_EQ(test::readAll(path), std::vector<std::uint8_t>(70'000, 0x4D));
  const std::vector<std::uint8_t> other(3, 1);
  EXPECT_EQ(failureOf([&] { writeNewFile(systemFiles(), path, other); }), ErrorKind::Io);
  EXPECT_EQ(std::filesystem::file_size(path), 70'000u);
  EXPECT_EQ(failureOf([&] { writeNewFile(systemFiles(), folder_ / "no" / "such", other); }),
            ErrorKind::FileNotFound);
}

}  // namespace
}  // namespace jet

#endif
