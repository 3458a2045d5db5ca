// Rolling back by the journal. The rules stand in journal.cpp.
#include "jet/recovery.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "jet/error.h"
#include "jet/journal.h"
#include "jet/journal_format.h"

namespace jet {
namespace {

// What a journal is worth beside the database as it is now.
enum class Verdict : std::uint8_t { Void, Fits, Foreign };

// Coarse file systems keep the time of a change in steps of two seconds.
constexpr std::int64_t coarsestTime = 2'000'000'000;

bool liesBetween(std::uint64_t value, std::uint64_t one, std::uint64_t other) {
  return std::min(one, other) <= value && value <= std::max(one, other);
}

// The database beside one journal.
class Comparison {
 public:
  Comparison(const File& file, const JournalHeader& header)
      : file_(file), header_(header), size_(file.size()), untouched_(size_ == header.before.size) {}

  void compare(const JournalRecord& record) {
    const std::uint64_t offset = std::uint64_t{record.number} * jet4.pageSize;
    if (offset >= size_) return;  // cut off already
    page_.resize(std::min<std::uint64_t>(jet4.pageSize, size_ - offset));
    file_.read(offset, page_);
    for (std::size_t i = 0; i < page_.size(); ++i) {
      untouched_ = untouched_ && page_[i] == record.before[i];
      known_ = known_ && (page_[i] == record.before[i] || page_[i] == record.after[i]);
    }
  }

  // As the transaction found it, as far as the compared records tell.
  bool untouched() const { return untouched_; }
  bool fits() const {
    return known_ && liesBetween(size_, header_.before.size, header_.sizeAfter) && hasCommitBytes() &&
           (untouched_ || !isOlder());
  }

 private:
  bool hasCommitBytes() const {
    auto bytes = header_.before.commitBytes;
    if (size_ < jet4.commitBytesOffset + bytes.size()) return false;
    file_.read(jet4.commitBytesOffset, bytes);
    return bytes == header_.before.commitBytes;
  }
  bool isOlder() const {
    const std::int64_t then = header_.before.lastWriteTime, now = file_.lastWriteTime();
    return then != 0 && now != 0 && now < then - coarsestTime;
  }

  const File& file_;
  const JournalHeader& header_;
  std::uint64_t size_;
  bool untouched_;
  bool known_ = true;  // every byte is the old or the new one
  std::vector<std::uint8_t> page_;
};

Verdict judge(const File& journal, const File& file) {
  const std::optional<JournalHeader> header = readJournalHeader(journal);
  if (!header) return Verdict::Void;
  Comparison comparison(file, *header);
  JournalReader records(journal, *header);
  while (const auto record = records.next()) {
    if (record->whole) comparison.compare(*record);
  }
  if (!records.allWhole()) return comparison.untouched() ? Verdict::Void : Verdict::Foreign;
  return comparison.fits() ? Verdict::Fits : Verdict::Foreign;
}

// A journal that vanishes before it is open was ended by whoever held the database.
Verdict judge(FileSystem& files, const std::filesystem::path& journal, const File& file) {
  return files.exists(journal) ? judge(*files.openShared(journal), file) : Verdict::Void;
}

void writeOldPages(File& journal, File& file) {
  const std::optional<JournalHeader> header = readJournalHeader(journal);
  if (!header) throw Error(ErrorKind::Io, "the journal can no longer be read");
  JournalReader records(journal, *header);
  while (const auto record = records.next()) {
    if (!record->whole) throw Error(ErrorKind::Io, "the journal can no longer be read");
    file.write(std::uint64_t{record->number} * jet4.pageSize, record->before);
  }
  file.resize(header->before.size);
  file.flush();
}

// `file` and `journal` are acquired, and the journal fits.
void apply(FileSystem& files, const std::filesystem::path& database, File& file,
           std::unique_ptr<File> journal) {
  // What was read may stand in the system's memory only.
  markJournal(*journal, journalMark);
  writeOldPages(*journal, file);
  endJournal(files, database, journal);
}

std::unique_ptr<File> openedAlone(FileSystem& files, const std::filesystem::path& path) {
  std::unique_ptr<File> file = files.openShared(path);
  file->acquire();
  return file;
}

std::filesystem::path setAside(FileSystem& files, const std::filesystem::path& journal) {
  for (int number = 1;; ++number) {
    std::filesystem::path aside = journal;
    aside += "-";
    aside += std::to_string(number);
    aside += ".aside";
    if (files.exists(aside)) continue;
    files.rename(journal, aside);
    try {
      files.flushFolder(aside);
    } catch (const Error&) {  // at worst the next opening sets it aside again
    }
    return aside;
  }
}

}  // namespace

RecoveryResult recoverAcquired(FileSystem& files, const std::filesystem::path& database, File& file) {
  const std::filesystem::path journal = journalPath(database);
  if (!files.exists(journal)) return {};
  switch (judge(files, journal, file)) {
    case Verdict::Fits:
      apply(files, database, file, openedAlone(files, journal));
      return {Recovery::RolledBack, {}};
    case Verdict::Foreign:
      return {Recovery::SetAside, setAside(files, journal)};
    case Verdict::Void:
      break;
  }
  try {
    files.remove(journal);
  } catch (const Error&) {  // it harms nobody
  }
  return {};
}

RecoveryResult recover(FileSystem& files, const std::filesystem::path& database, File& file) {
  const std::filesystem::path journal = journalPath(database);
  if (!files.exists(journal)) return {};
  try {
    file.acquire();
  } catch (const Error&) {
    // A void journal does not keep us from reading.
    if (judge(files, journal, file) == Verdict::Void) return {};
    throw;
  }
  struct Release {
    ~Release() { file.release(); }
    File& file;
  } const release{file};
  return recoverAcquired(files, database, file);
}

void rollBack(FileSystem& files, const std::filesystem::path& database, File& file,
              std::unique_ptr<File> journal) {
  markJournal(*journal, journalMark);
  if (judge(*journal, file) != Verdict::Fits) throw Error(ErrorKind::Io, "the journal has been changed");
  apply(files, database, file, std::move(journal));
}

}  // namespace jet
