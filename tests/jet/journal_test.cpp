// The rules of the journal that no crash matrix shows. The others: crash_matrix_test.cpp.
#include "jet/journal.h"

#include <gtest/gtest.h>

#include "crash/crash_files.h"
#include "jet/create/database_builder.h"
#include "jet/journal_format.h"
#include "jet/page_file.h"
#include "jet/transaction.h"

namespace jet::test {
namespace {

const std::filesystem::path database = "folder/rules.mdb", journal = journalPath(database);
constexpr std::int64_t second = 1'000'000'000, startTime = 1'700'000'000 * second;
constexpr std::size_t recordSize = journalRecordHead + 2 * 4096;

class Journal : public testing::Test {
 protected:
  static StoredFile newDatabase() { return {create::DatabaseBuilder().finish(), startTime}; }

  // Changes pages 7 and 9 and adds one.
  static void save(PageFile& file, std::uint8_t value) {
    Transaction transaction(file);
    transaction.change(7, 0)[4000] += value;
    transaction.change(9, 0)[10] += value;
    transaction.change(transaction.append(), 0)[0] = value;
    transaction.commit();
  }
  // How a disk stands when the program dies in a save, after it wrote some of the three pages.
  static Disk interrupted(StoredFile start, int pagesWritten, std::uint8_t value = 1) {
    CrashFiles files({{database, std::move(start)}});
    Disk disk;
    int writes = 0;
    files.onOperation = [&](std::uint64_t, Operation operation, const std::filesystem::path& path) {
      const bool counts = path == database && operation == Operation::Write;
      if ((counts && ++writes == pagesWritten) ||
          (pagesWritten == 0 && operation == Operation::FlushFolder)) {
        disk = files.now();
      }
    };
    PageFile file(files, database, 1u << 20);
    save(file, value);
    EXPECT_TRUE(disk.contains(journal));
    return disk;
  }

  // Opens the database of this disk; what became of its journal.
  Recovery opening(Disk disk) {
    CrashFiles files(std::move(disk));
    told_ = {};
    const PageFile file(files, database, 1u << 20, [this](const RecoveryResult& result) {
      EXPECT_EQ(told_.what, Recovery::None) << "told once";
      told_ = result;
    });
    left_ = files.now();
    return told_.what;
  }
  // A journal that must not be applied: nothing changes but its name.
  void expectSetAside(const Disk& disk, const char* name = "folder/rules.mdb.journal-1.aside") {
    EXPECT_EQ(opening(disk), Recovery::SetAside);
    EXPECT_EQ(told_.keptAs, name);
    EXPECT_EQ(left_.at(database).content, disk.at(database).content);
    EXPECT_FALSE(left_.contains(journal));
    ASSERT_TRUE(left_.contains(name));
    EXPECT_EQ(left_.at(name).content, disk.at(journal).content);
    EXPECT_EQ(opening(left_), Recovery::None) << "the user is told once";
  }
  void expectDropped(const Disk& disk) {
    EXPECT_EQ(opening(disk), Recovery::None);
    EXPECT_EQ(left_.size(), 1u);
    EXPECT_EQ(left_.at(database).content, disk.at(database).content);
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

  RecoveryResult told_;
  Disk left_;
};

TEST_F(Journal, OneThatIsNotWholeIsDropped) {
  const Disk disk = interrupted(newDatabase(), 0);
  const std::size_t length = disk.at(journal).content.size();
  ASSERT_EQ(length, journalHeaderSize + 2 * recordSize);
  for (const std::size_t kept :
       {std::size_t{0}, std::size_t{1}, std::size_t{512}, journalHeaderSize - 1, journalHeaderSize,
        journalHeaderSize + 8, journalHeaderSize + recordSize, length - 4096, length - 1}) {
    SCOPED_TRACE(kept);
    Disk shorter = disk;
    shorter.at(journal).content.resize(kept);
    expectDropped(shorter);
  }
  for (std::size_t at = 0; at < length; at += at < 64 ? 1 : 331) {
    SCOPED_TRACE(at);
    Disk flipped = disk;
    flipped.at(journal).content[at] ^= 0x10;
    expectDropped(flipped);
  }
  Disk zeros = disk;
  std::fill_n(zeros.at(journal).content.begin() + journalHeaderSize, recordSize, 0);
  expectDropped(zeros);
}

TEST_F(Journal, OneThatWasWholeBeforeItsPagesWereWrittenIsKeptForSupport) {
  Disk disk = interrupted(newDatabase(), 2);
  disk.at(journal).content.back() ^= 1;  // the last record; the first one tells that pages were written
  expectSetAside(disk);
}

TEST_F(Journal, RecordsOfAnEarlierJournalAreNeverApplied) {
  const Disk earlier = interrupted(newDatabase(), 0, 1);
  StoredFile later = newDatabase();
  later.content[7 * 4096 + 4000] += 1;
  Disk disk = interrupted(later, 0, 5);
  auto& content = disk.at(journal).content;
  // Right in itself, but of another save: what stale blocks of the disk may hold.
  std::copy_n(earlier.at(journal).content.begin() + journalHeaderSize, recordSize,
              content.begin() + journalHeaderSize);
  EXPECT_NE(opening(disk), Recovery::RolledBack);
  EXPECT_EQ(left_.at(database).content, disk.at(database).content);
}

TEST_F(Journal, OneThatDoesNotFitIsSetAsideAndNeverApplied) {
  const Disk disk = interrupted(newDatabase(), 2);
  const auto changed = [&](auto change) {
    Disk result = disk;
    change(result.at(database));
    return result;
  };
  expectSetAside(changed([](StoredFile& file) { file.content[7 * 4096 + 4000] = 0x77; }));
  expectSetAside(changed([](StoredFile& file) { file.content[9 * 4096 + 4095] ^= 1; }));
  expectSetAside(changed([](StoredFile& file) { ++file.content[0xE00]; }));
  expectSetAside(changed([](StoredFile& file) { file.content.resize(file.content.size() + 4096); }));
  expectSetAside(changed([](StoredFile& file) { file.content.resize(15 * 4096); }));
  expectSetAside(changed([](StoredFile& file) { file.lastWriteTime = startTime - 3 * second; }));
  Disk twice = changed([](StoredFile& file) { ++file.content[0xE00]; });
  twice["folder/rules.mdb.journal-1.aside"] = {{1, 2, 3}, 1};
  expectSetAside(twice, "folder/rules.mdb.journal-2.aside");
}

TEST_F(Journal, TimesThatProveNothingDoNotKeepItFromBeingApplied) {
  const Bytes before = newDatabase().content;
  const auto appliedTo = [&](Disk disk, std::int64_t time) {
    disk.at(database).lastWriteTime = time;
    EXPECT_EQ(opening(disk), Recovery::RolledBack);
    EXPECT_EQ(left_.at(database).content, before);
  };
  const Disk disk = interrupted(newDatabase(), 2);
  appliedTo(disk, 0);                                                     // unknown
  appliedTo(disk, startTime - 2 * second);                                // the steps of a coarse file system
  appliedTo(interrupted(newDatabase(), 0), startTime - 86'400 * second);  // a copy without any change
  // The clock was set back between the last save and this one.
  CrashFiles files({{database, newDatabase()}});
  PageFile file(files, database, 1u << 20);
  ChangeStamp stamp = file.stamp();
  stamp.lastWriteTime += 3600 * second;
  const std::span page(before);
  Bytes after(4096, 1);
  const JournalPage pages[]{{7, page.subspan(7 * 4096, 4096), after}};
  writeJournal(files, database, stamp, stamp.size, pages);
  Disk setBack = files.now();
  std::ranges::copy(after, setBack.at(database).content.begin() + 7 * 4096);
  appliedTo(setBack, startTime);
}

TEST_F(Journal, NothingIsReadWhileItCannotBeApplied) {
  const Disk disk = interrupted(newDatabase(), 2);
  const auto openingFails = [&](CrashFiles& files) {
    const ErrorKind kind = failureOf([&] { const PageFile file(files, database, 1u << 20); });
    EXPECT_EQ(files.now().at(database).content, disk.at(database).content);
    EXPECT_TRUE(files.exists(journal));
    return kind;
  };
  CrashFiles files(disk);
  {
    const auto other = files.openShared(database);
    EXPECT_EQ(openingFails(files), ErrorKind::Busy);
  }
  files.acquireFails = ErrorKind::AccessDenied;
  EXPECT_EQ(openingFails(files), ErrorKind::AccessDenied);
  files.acquireFails.reset();
  {
    const auto holder = files.openShared(journal);  // by a virus scanner, say
    EXPECT_EQ(openingFails(files), ErrorKind::Busy);
  }
  files.failure = Failure{.at = 1, .fromThenOn = true, .kind = ErrorKind::DiskFull};
  EXPECT_EQ(openingFails(files), ErrorKind::DiskFull);
  files.failure.reset();
  const PageFile file(files, database, 1u << 20);
  EXPECT_EQ(files.now().at(database).content, newDatabase().content);
}

TEST_F(Journal, AVoidOneStandsInNobodysWay) {
  Disk disk = interrupted(newDatabase(), 3);
  disk.at(journal).content[0] = 0;
  const Bytes saved = disk.at(database).content;
  expectDropped(disk);
  CrashFiles files(disk);
  files.acquireFails = ErrorKind::AccessDenied;
  { const PageFile file(files, database, 1u << 20); }
  files.acquireFails.reset();
  files.removeFails = ErrorKind::AccessDenied;
  PageFile file(files, database, 1u << 20);
  EXPECT_EQ(failureOf([&] { save(file, 1); }), ErrorKind::AccessDenied);
  EXPECT_EQ(files.now().at(database).content, saved);
  files.removeFails.reset();
  save(file, 1);
  EXPECT_NE(files.now().at(database).content, saved);
  EXPECT_FALSE(files.exists(journal));
}

TEST_F(Journal, ASaveRollsBackWhatAnotherProgramBrokeOffMeanwhile) {
  CrashFiles files({{database, newDatabase()}});
  PageFile file(files, database, 1u << 20);
  file.page(7, 0);
  for (const auto& [path, stored] : interrupted(newDatabase(), 2)) files.put(path, stored);
  {
    const Transaction transaction(file);
    EXPECT_EQ(file.page(7, 0)->bytes[4000], newDatabase().content[7 * 4096 + 4000]);
  }
  EXPECT_EQ(files.now().at(database).content, newDatabase().content);
}

TEST_F(Journal, WhatAnotherProgramWroteWithoutAFlushIsSafeFirst) {
  CrashFiles files({{database, newDatabase()}});
  {
    const auto foreign = files.openShared(database);
    foreign->acquire();
    foreign->write(7 * 4096 + 4000, Bytes(20, 0xEE));
  }
  const Bytes before = files.now().at(database).content;
  PageFile file(files, database, 1u << 20);
  std::vector<Disk> disks;
  files.onOperation = [&](std::uint64_t, Operation, const std::filesystem::path&) {
    if (files.exists(journal)) {
      for (std::uint64_t seed = 0; seed < 8; ++seed) disks.push_back(files.afterPowerLoss(Loss::Torn, seed));
    }
  };
  save(file, 1);
  const Bytes after = files.now().at(database).content;
  for (const Disk& disk : disks) {
    EXPECT_NE(opening(disk), Recovery::SetAside);
    const Bytes& found = left_.at(database).content;
    EXPECT_TRUE(found == before || found == after);
  }
}

}  // namespace
}  // namespace jet::test
