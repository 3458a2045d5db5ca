#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <vector>

#include "jet/change_stamp.h"
#include "jet/file.h"
#include "jet/recovery.h"

namespace jet {

// The rollback journal of one transaction: a file beside the database, named like it with ".journal" behind,
// that holds what every page to be written holds now and will hold. Rules: journal.cpp; bytes:
// journal_format.h.

std::filesystem::path journalPath(const std::filesystem::path& database);

struct JournalPage {
  std::uint32_t number = 0;
  std::span<const std::uint8_t> before;  // whole page
  std::span<const std::uint8_t> after;
};

// Writes the journal; it is on the disk when this returns, and stays acquired: nobody can get between a save
// and its end. `before` is the database's stamp, `sizeAfter` its length in bytes when the transaction is
// done. Pages in any order, each once; pages behind the old end need no entry. After a failure there is no
// journal that counts, or one whose pages nobody has written.
std::unique_ptr<File> writeJournal(FileSystem& files, const std::filesystem::path& database,
                                   const ChangeStamp& before, std::uint64_t sizeAfter,
                                   std::span<const JournalPage> pages);

// Ends the transaction: the journal is void on the disk when this returns, then it is removed. That it could
// not be removed is no failure. After a failure `journal` is still open, void or not: `rollBack`.
void endJournal(FileSystem& files, const std::filesystem::path& database, std::unique_ptr<File>& journal);

// A transaction failed after `writeJournal`: its journal counts again and the database (`file`, acquired) is
// put back. After an error nothing of the database may be read until `recover`.
void rollBack(FileSystem& files, const std::filesystem::path& database, File& file,
              std::unique_ptr<File> journal);

// Before anything is read. `file` is the database, opened shared; it is acquired where there is work to do.
// Errors: Busy, AccessDenied, Io: the journal is still there and nothing may be read.
RecoveryResult recover(FileSystem& files, const std::filesystem::path& database, File& file);
// The same when `file` is acquired already.
RecoveryResult recoverAcquired(FileSystem& files, const std::filesystem::path& database, File& file);

}  // namespace jet
