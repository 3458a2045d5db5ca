#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "jet/byte_reader.h"
#include "jet/change_stamp.h"
#include "jet/file.h"
#include "jet/format.h"
#include "jet/header.h"
#include "jet/recovery.h"

namespace jet {

struct IndexLayout;  // index_page.h: where the entries of an index page stand
class Transaction;

// One decoded page. It may outlive its place in the cache; only the transaction that changes a page changes
// its bytes.
struct Page {
  Page();
  ~Page();
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  std::uint32_t number = 0;
  std::vector<std::uint8_t> bytes;
  mutable std::unique_ptr<IndexLayout> indexLayout;  // made when an index first needs it

  ByteReader reader() const { return {bytes, number}; }
  std::uint8_t type() const { return bytes[0]; }
};
using PageRef = std::shared_ptr<const Page>;

// Pages by number, decoded (RC4), through a cache of bounded size (least recently used pages leave first).
class PageFile {
 public:
  // Rolls a journal back that a crash has left behind; then checks page 0 and the length and reads nothing
  // else.
  PageFile(FileSystem& files, const std::filesystem::path& path, std::size_t cacheBytes,
           const RecoverySink& recovered = {});
  ~PageFile();

  const Format& format() const { return *header_.format; }
  const Header& header() const { return header_; }
  std::uint32_t pageCount() const { return pageCount_; }

  // A page other than 0. A number outside the file is Error(Damaged) that blames page `from`.
  PageRef page(std::uint32_t number, std::uint32_t from) const;
  // The same, and its type byte must be `type`.
  PageRef page(std::uint32_t number, std::uint32_t from, PageType type) const;

  // Read anew from the file, not from the cache.
  ChangeStamp stamp() const;
  std::size_t cachedBytes() const;

  // Grows whenever pages may read differently from before: another program has written, a transaction has
  // ended. What was derived from pages under another version (definitions, row counts, hash tables) is stale.
  std::uint64_t version() const { return version_; }
  // Looks whether another program has written since the last look; if so, all cached pages are forgotten.
  // What another one has broken off in the middle is rolled back first: errors as those of `recover`.
  void refresh();
  // What became of journals that were found since the opening; each is told once.
  std::vector<RecoveryResult> takeRecoveries() { return std::exchange(recoveries_, {}); }
  // False: a commit failed half way and could not be undone; nothing can be read until the file is opened
  // anew.
  bool isUsable() const { return !lost_; }
  // False: another file stands at the path now.
  bool isInPlace() const { return !lost_ && file_->isInPlace(); }

  // Tables (by definition page) whose rows and indexes were checked as a whole, since when nobody else has
  // written.
  bool isProvenSound(std::uint32_t definitionPage) const { return provenSound_.contains(definitionPage); }
  void setProvenSound(std::uint32_t definitionPage) { provenSound_.insert(definitionPage); }

 private:
  friend class Transaction;
  struct Cache;
  PageRef load(std::uint32_t number) const;
  // Page 0, the length and the stamp, as they are in the file now.
  void readHeader();
  // Beginning and end of a transaction, see there.
  void take();
  void requireUsable() const;  // Error(Interrupted)
  void look();
  void note(RecoveryResult result);
  void giveBack();
  // So that `adopt` needs no memory: a save that is durable cannot fail any more.
  void makeRoom(std::size_t pages);
  // The transaction's pages are those of the file from now on.
  void adopt(const std::vector<std::shared_ptr<Page>>& pages);

  FileSystem& files_;
  std::filesystem::path path_;
  std::unique_ptr<File> file_;
  Header header_;
  ChangeStamp known_;  // as this program last saw or left the file
  std::uint64_t version_ = 0;
  std::set<std::uint32_t> provenSound_;
  std::vector<RecoveryResult> recoveries_;
  Transaction* transaction_ = nullptr;
  bool lost_ = false;
  bool isDurable_ = false;  // what others wrote is on the disk
  std::uint32_t pageCount_ = 0;
  std::unique_ptr<Cache> cache_;
};

}  // namespace jet
