#include <algorithm>
#include <array>
#include <optional>

#include "common/memory_files.h"
#include "fuzz/patches.h"
#include "fuzz/targets.h"
#include "jet/create/database_builder.h"
#include "jet/error.h"
#include "jet/file.h"
#include "jet/journal.h"

namespace jet::fuzz {
namespace {

constexpr const char* name = "fuzz.mdb";
constexpr std::size_t pageSize = 4096;

// A transaction that changes three pages and adds one.
struct Transaction {
  Content before, after, journal;
  static constexpr std::array<std::uint32_t, 3> changed{1, 6, 15};

  Transaction() {
    create::DatabaseBuilder builder;
    builder.addTable({.name = u"T", .columns = {{.name = u"ID", .type = ColumnType::Long}}}).insert({1});
    before = after = builder.finish();
    after.resize(after.size() + pageSize, 0x5A);
    MemoryFiles files;
    files.put(name, before);
    std::vector<JournalPage> pages;
    for (const std::uint32_t page : changed) {
      std::fill_n(after.begin() + static_cast<std::ptrdiff_t>(page * pageSize + 100), 50, 0xA5);
      pages.push_back({page, pageOf(before, page), pageOf(after, page)});
    }
    writeJournal(files, name, stamp(files), after.size(), pages);
    journal = files.at(journalPath(name)).content;
  }

  static std::span<const std::uint8_t> pageOf(const Content& file, std::uint32_t page) {
    return std::span(file).subspan(page * pageSize, pageSize);
  }
  static ChangeStamp stamp(MemoryFiles& files) {
    const auto file = files.openShared(name);
    ChangeStamp stamp{file->size(), file->lastWriteTime(), {}};
    file->read(jet4.commitBytesOffset, stamp.commitBytes);
    return stamp;
  }
};

// How far the transaction had come when the power went: whole pages and halves of pages.
Content interrupted(const Transaction& transaction, InputReader& input) {
  Content file = transaction.before;
  const std::uint16_t halves = input.u16();
  if ((halves & 0x8000) != 0) file.resize(transaction.after.size());
  for (std::size_t i = 0; i < transaction.changed.size() * 2; ++i) {
    if ((halves >> i & 1) == 0) continue;
    const std::size_t start = transaction.changed[i / 2] * pageSize + i % 2 * (pageSize / 2);
    std::copy_n(transaction.after.begin() + static_cast<std::ptrdiff_t>(start), pageSize / 2,
                file.begin() + static_cast<std::ptrdiff_t>(start));
  }
  if (file.size() == transaction.after.size() && (halves & 0x4000) != 0) {
    std::copy(transaction.after.end() - pageSize, transaction.after.end(), file.end() - pageSize);
  }
  return file;
}

// The rest of the input as changes of the journal; a first byte that is odd: as the journal itself.
Content journalFrom(const Transaction& transaction, InputReader& input) {
  if (input.u8() % 2 != 0) return {input.rest().begin(), input.rest().end()};
  Content journal = transaction.journal;
  std::vector<Place> places;
  for (std::size_t at = 0; at < journal.size(); at += at < 256 ? 4 : 512) places.push_back({at, 4});
  applyPatches(input, places, pageSize, journal);
  return journal;
}

std::optional<RecoveryResult> recovered(MemoryFiles& files) {
  const auto file = files.openShared(name);
  try {
    return recover(files, name, *file);
  } catch (const Error&) {
    return std::nullopt;
  }
}

}  // namespace

void runJournal(Input input) {
  static const Transaction transaction;
  InputReader reader(input);
  const Content given = interrupted(transaction, reader);
  MemoryFiles files;
  files.put(name, given);
  files.put(journalPath(name), journalFrom(transaction, reader));
  const auto first = recovered(files);
  const Content& now = files.at(name).content;
  require(now == given || now == transaction.before, "untouched, or as before the transaction");
  if (first && first->what == Recovery::RolledBack) require(now == transaction.before, "rolled back");
  if (first && first->what == Recovery::SetAside) require(now == given, "a journal set aside is not applied");
  if (!first) return;
  const Content once = now;
  const auto second = recovered(files);
  require(second && second->what == Recovery::None, "after a recovery there is nothing to recover");
  require(files.at(name).content == once, "a second recovery changes nothing");
}

}  // namespace jet::fuzz
