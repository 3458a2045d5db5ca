// What holds on every system. What each has of its own: system_files_posix_test, system_files_windows_test.
#include <array>

#include "jet/shared_files.h"
#include "jet/system_files_fixture.h"

namespace jet::test {
namespace {

TEST_F(SystemFiles, MissingFilesAreToldFromOthers) {
  EXPECT_EQ(openingOf(folder_ / "missing"), ErrorKind::FileNotFound);
  EXPECT_EQ(openingOf(make("plain", 1) / "below"), ErrorKind::FileNotFound);
  EXPECT_FALSE(systemFiles().exists(folder_ / "missing"));
  EXPECT_FALSE(systemFiles().exists(folder_ / "plain" / "below"));
  EXPECT_TRUE(systemFiles().exists(folder_ / "plain"));
  EXPECT_FALSE(systemFiles().isLocked(folder_ / "missing", 1, 1));
}

TEST_F(SystemFiles, ReadsPartsAndNoticesTheEnd) {
  const auto path = make("parts", 5000);
  const auto file = systemFiles().openShared(path);
  std::array<std::uint8_t, 100> part{};
  file->read(4900, part);
  EXPECT_EQ(part.back(), 0x4D);
  EXPECT_EQ(failureOf([&] { file->read(4901, part); }), ErrorKind::Truncated);
  std::filesystem::resize_file(path, 100);
  EXPECT_EQ(file->size(), 100u);
  EXPECT_EQ(failureOf([&] { file->read(50, part); }), ErrorKind::Truncated);
}

TEST_F(SystemFiles, CreatesWholeFilesAndReplacesNone) {
  const auto path = make("new", 70'000);
  EXPECT_EQ(readAll(path), std::vector<std::uint8_t>(70'000, 0x4D));
  const std::vector<std::uint8_t> other(3, 1);
  EXPECT_EQ(failureOf([&] { writeNewFile(systemFiles(), path, other); }), ErrorKind::Io);
  EXPECT_EQ(failureOf([&] { systemFiles().rename(make("other", 3), path); }), ErrorKind::Io);
  EXPECT_EQ(std::filesystem::file_size(path), 70'000u);
  EXPECT_EQ(failureOf([&] { writeNewFile(systemFiles(), folder_ / "no" / "such", other); }),
            ErrorKind::FileNotFound);

  systemFiles().rename(path, folder_ / u8"Über 5 €");
  EXPECT_EQ(readAll(folder_ / u8"Über 5 €").size(), 70'000u);
  systemFiles().remove(folder_ / u8"Über 5 €");
  EXPECT_FALSE(systemFiles().exists(folder_ / u8"Über 5 €"));
}

TEST_F(SystemFiles, AFileIsTakenByOneAlone) {
  const auto path = make("taken", 10);
  const auto file = systemFiles().openShared(path);
  std::array<std::uint8_t, 1> byte{};
  {
    const auto other = systemFiles().openShared(path);
    EXPECT_EQ(failureOf([&] { file->acquire(); }), ErrorKind::Busy);
    file->read(9, byte);
    EXPECT_EQ(byte[0], 0x4D) << "and is still open for reading";
  }
  file->acquire();
  EXPECT_EQ(openingOf(path), ErrorKind::Busy);
  EXPECT_TRUE(file->isInPlace());
  file->write(20, byte);
  file->resize(25);
  file->flush();
  file->release();
  std::vector<std::uint8_t> expected(25);
  std::fill_n(expected.begin(), 10, 0x4D);
  expected[20] = 0x4D;
  EXPECT_EQ(readAll(path), expected) << "the gap is filled with zeros";
  file->acquire();
  file->resize(5);
  file->release();
  EXPECT_EQ(systemFiles().openShared(path)->size(), 5u);
}

TEST_F(SystemFiles, AnotherFileInItsPlaceIsNoticed) {
  const auto path = make("Verbindo.mdb", 10, 1), other = make("compacted", 10, 2);
  const auto file = systemFiles().openShared(path);
  EXPECT_TRUE(file->isInPlace());
  std::filesystem::rename(path, folder_ / "Verbindo.bak");
  EXPECT_FALSE(file->isInPlace());
  std::filesystem::rename(other, path);
  EXPECT_FALSE(file->isInPlace());
  std::array<std::uint8_t, 1> byte{};
  file->read(0, byte);
  EXPECT_EQ(byte[0], 1) << "what was open stays what it was";
}

TEST_F(SystemFiles, AllWaysToAFileHaveOneName) {
  const auto path = make("name", 1);
  std::filesystem::create_directory(folder_ / "sub");
  EXPECT_EQ(systemFiles().canonical(folder_ / "sub" / ".." / "name"), systemFiles().canonical(path));
  EXPECT_EQ(systemFiles().canonical(folder_ / "." / "missing"), systemFiles().canonical(folder_ / "missing"));
  EXPECT_NE(systemFiles().canonical(path), systemFiles().canonical(make("other", 1)));
}

}  // namespace
}  // namespace jet::test
