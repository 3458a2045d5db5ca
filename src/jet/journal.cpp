// How a save survives a crash at any moment, when unflushed writes are done, lost or torn in any order:
//
//  1. A page of the database is written only while a whole journal lies beside it on the disk: records and
//     header are flushed, then the folder, before the first page.
//  2. What the journal calls "before" is on the disk as well: after another program has written, the database
//     is flushed first.
//  3. The header holds a checksum of all records. What an earlier journal left in the same blocks of the disk
//     is never taken for a record.
//  4. A transaction has ended when the first byte of its journal is 0 on the disk: one byte is never half
//     written. Everything else was flushed before. Removing the file only tidies up.
//  5. A journal that is not whole proves that no page was written, and is dropped. If a page of one of its
//     whole records is changed all the same, the journal has suffered later: it is treated by rule 8.
//  6. While a journal counts, nothing of the database is read and no other save begins. Recovery and every
//     save hold the database for themselves.
//  7. Recovery can be repeated from any point: first the journal is flushed once more, then the old pages and
//     the old length are written and flushed, then rule 4.
//  8. A journal that does not fit the database is never applied, overwritten or removed, but renamed; the
//     database is left as it is. It fits if the length lies between the two it knows, the commit bytes are
//     the same, and every byte of every recorded page is the old or the new one. A database that is older
//     than when the transaction began cannot have been written by it: then length and pages must be the old
//     ones exactly. (Times may be unknown, or the clock set back: see `timeThatProves`.)
//  9. When a save fails after the journal was written, the database is put back by the journal, which counts
//     again first; if that fails too, the journal stays for the next opening.
#include "jet/journal.h"

#include <algorithm>
#include <array>

#include "jet/error.h"
#include "jet/journal_format.h"

namespace jet {
namespace {

template <typename Action>
void quietly(Action action) {
  try {
    action();
  } catch (const Error&) {  // whoever calls has something more important to tell, or nothing at all
  }
}

// A void or torn journal that could not be removed stands in the way of the next one.
void clearPlace(FileSystem& files, const std::filesystem::path& journal) {
  if (!files.exists(journal)) return;
  if (readJournalHeader(*files.openShared(journal))) {
    throw Error(ErrorKind::Io, "the journal of an interrupted save lies beside the database");
  }
  files.remove(journal);
}

// The journal is as new as a file can be. A database that claims to be newer says nothing about the order of
// writings.
std::int64_t timeThatProves(const File& journal, const ChangeStamp& before) {
  return before.lastWriteTime <= journal.lastWriteTime() ? before.lastWriteTime : 0;
}

void writeRecords(File& journal, JournalHeader& header, std::span<const JournalPage> pages) {
  std::vector<const JournalPage*> ascending;
  for (const JournalPage& page : pages) ascending.push_back(&page);
  std::ranges::sort(ascending, {}, &JournalPage::number);

  std::vector<std::uint8_t> record;
  for (const JournalPage* page : ascending) {
    const std::uint64_t offset = header.length();
    const auto head = encodeRecordHead(*page, header);
    record.assign(head.begin(), head.end());
    record.insert(record.end(), page->before.begin(), page->before.end());
    record.insert(record.end(), page->after.begin(), page->after.end());
    journal.write(offset, record);
  }
}

}  // namespace

std::filesystem::path journalPath(const std::filesystem::path& database) {
  std::filesystem::path path = database;
  path += ".journal";
  return path;
}

std::unique_ptr<File> writeJournal(FileSystem& files, const std::filesystem::path& database,
                                   const ChangeStamp& before, std::uint64_t sizeAfter,
                                   std::span<const JournalPage> pages) {
  const std::filesystem::path path = journalPath(database);
  clearPlace(files, path);
  std::unique_ptr<File> journal = files.create(path);
  try {
    JournalHeader header;
    header.before = before;
    header.before.lastWriteTime = timeThatProves(*journal, before);
    header.sizeAfter = sizeAfter;
    writeRecords(*journal, header, pages);
    journal->write(0, encodeHeader(header));
    journal->flush();
    files.flushFolder(path);
    return journal;
  } catch (...) {
    quietly([&] { markJournal(*journal, 0); });
    journal.reset();
    quietly([&] { files.remove(path); });
    throw;
  }
}

void endJournal(FileSystem& files, const std::filesystem::path& database, std::unique_ptr<File>& journal) {
  markJournal(*journal, 0);
  journal.reset();
  quietly([&] { files.remove(journalPath(database)); });
}

}  // namespace jet
