#include "jet/page_file.h"

#include <algorithm>

#include "jet/error.h"
#include "jet/index_page.h"
#include "jet/journal.h"
#include "jet/rc4.h"
#include "jet/transaction.h"
#include "jet/users_file.h"

namespace jet {
namespace {

// What a page weighs in the cache beside its bytes: its own fields and its place in the lists.
constexpr std::size_t pageOverhead = 160;

void decode(std::uint32_t databaseKey, std::uint32_t number, std::vector<std::uint8_t>& bytes) {
  // Pages that were allocated but never written stand as zeros.
  if (std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t byte) { return byte == 0; })) return;
  const std::uint32_t key = databaseKey ^ number;
  const std::array<std::uint8_t, 4> keyBytes{
      static_cast<std::uint8_t>(key), static_cast<std::uint8_t>(key >> 8),
      static_cast<std::uint8_t>(key >> 16), static_cast<std::uint8_t>(key >> 24)};
  rc4(keyBytes, bytes);
}

std::size_t weightOf(const Page& page) {
  const bool isIndex = page.type() == static_cast<std::uint8_t>(PageType::IndexNode) ||
                       page.type() == static_cast<std::uint8_t>(PageType::IndexLeaf);
  // An index page gets a layout later; with its spare room it is at most about as large as the page.
  const std::size_t layout = isIndex ? sizeof(IndexLayout) + page.bytes.size() : 0;
  return page.bytes.size() + pageOverhead + layout;
}

}  // namespace

Page::Page() = default;
Page::~Page() = default;

// Pages in a doubly linked list from the newest to the oldest use; `places` finds a page's entry directly by
// its number. Entry 0 is the ring's anchor.
struct PageFile::Cache {
  struct Entry {
    PageRef page;
    std::size_t weight = 0;
    std::uint32_t newer = 0, older = 0;
  };

  std::size_t limit = 0;
  std::size_t bytes = 0;
  std::vector<std::uint32_t> places;
  std::vector<Entry> entries{1};
  std::vector<std::uint32_t> unused;

  Cache(std::size_t limitBytes, std::uint32_t pageCount) : limit(limitBytes), places(pageCount) {}

  void unlink(const Entry& entry) {
    entries[entry.newer].older = entry.older;
    entries[entry.older].newer = entry.newer;
  }
  void linkAsNewest(std::uint32_t place) {
    Entry& entry = entries[place];
    entry.newer = 0;
    entry.older = entries[0].older;
    entries[entry.older].newer = place;
    entries[0].older = place;
  }

  // For `more` pages of a file of `pageCount` pages nothing has to be allocated afterwards.
  void makeRoom(std::uint32_t pageCount, std::size_t more) {
    if (places.size() < pageCount) places.resize(pageCount);
    entries.reserve(entries.size() + more);
    unused.reserve(entries.capacity());
  }

  const PageRef* find(std::uint32_t number) {
    const std::uint32_t place = places[number];
    if (place == 0) return nullptr;
    if (entries[0].older != place) {
      unlink(entries[place]);
      linkAsNewest(place);
    }
    return &entries[place].page;
  }

  void dropOldest() { drop(entries[entries[0].newer].page->number); }

  void drop(std::uint32_t number) {
    const std::uint32_t place = places[number];
    if (place == 0) return;
    Entry& entry = entries[place];
    unlink(entry);
    bytes -= entry.weight;
    places[number] = 0;
    entry.page.reset();
    unused.push_back(place);
  }

  void insert(const PageRef& page, std::size_t weight) {
    while (bytes != 0 && bytes + weight > limit) dropOldest();
    std::uint32_t place;
    if (unused.empty()) {
      place = static_cast<std::uint32_t>(entries.size());
      entries.emplace_back();
    } else {
      place = unused.back();
      unused.pop_back();
    }
    entries[place].page = page;
    entries[place].weight = weight;
    linkAsNewest(place);
    places[page->number] = place;
    bytes += weight;
  }
};

PageFile::PageFile(FileSystem& files, const std::filesystem::path& path, std::size_t cacheBytes,
                   const RecoverySink& recovered)
    : files_(files), path_(path), file_(files.openShared(path)) {
  const RecoveryResult result = recover(files_, path_, *file_);
  if (recovered && result.what != Recovery::None) recovered(result);
  readHeader();
  cache_ = std::make_unique<Cache>(cacheBytes, pageCount_);
}

void PageFile::readHeader() {
  const std::uint64_t size = file_->size();
  ChangeStamp now{.size = size, .lastWriteTime = file_->lastWriteTime(), .commitBytes = {}};
  std::vector<std::uint8_t> page0(std::min<std::uint64_t>(size, jet4.pageSize));
  file_->read(0, page0);
  header_ = jet::readHeader(page0);
  const std::uint32_t pageSize = header_.format->pageSize;
  if (size % pageSize != 0) {
    throw Error(ErrorKind::Truncated, "the file's length is no multiple of its page size",
                static_cast<std::uint32_t>(std::min(size / pageSize, largestPageCount)));
  }
  if (size / pageSize > largestPageCount) {
    throw Error(ErrorKind::Damaged, "the file is larger than its format allows");
  }
  pageCount_ = static_cast<std::uint32_t>(size / pageSize);
  // A whole page was read: the length is a multiple of it.
  std::copy_n(page0.begin() + format().commitBytesOffset, now.commitBytes.size(), now.commitBytes.begin());
  known_ = now;
}

PageFile::~PageFile() = default;

PageRef PageFile::load(std::uint32_t number) const {
  auto page = std::make_shared<Page>();
  page->number = number;
  page->bytes.resize(format().pageSize);
  file_->read(std::uint64_t{number} * format().pageSize, page->bytes);
  if (header_.databaseKey != 0) decode(header_.databaseKey, number, page->bytes);
  cache_->insert(page, weightOf(*page));
  return page;
}

PageRef PageFile::page(std::uint32_t number, std::uint32_t from) const {
  if (number == 0 || number >= pageCount_) {
    throw Error(ErrorKind::Damaged,
                "a reference leads to page " + std::to_string(number) + " outside the file", from);
  }
  requireUsable();
  if (transaction_ != nullptr) {
    if (const std::shared_ptr<Page>* changed = transaction_->find(number)) return *changed;
  }
  if (const PageRef* cached = cache_->find(number)) return *cached;
  return load(number);
}

PageRef PageFile::page(std::uint32_t number, std::uint32_t from, PageType type) const {
  PageRef result = page(number, from);
  if (result->type() != static_cast<std::uint8_t>(type)) {
    throw Error(ErrorKind::Damaged, "page " + std::to_string(number) + " is of another kind than expected",
                from);
  }
  return result;
}

ChangeStamp PageFile::stamp() const {
  requireUsable();
  ChangeStamp stamp;
  stamp.size = file_->size();
  stamp.lastWriteTime = file_->lastWriteTime();
  file_->read(format().commitBytesOffset, stamp.commitBytes);
  return stamp;
}

void PageFile::requireUsable() const {
  if (lost_) throw Error(ErrorKind::Interrupted, "an interrupted save could not be undone");
}

void PageFile::note(RecoveryResult result) {
  if (result.what != Recovery::None) recoveries_.push_back(std::move(result));
}

void PageFile::refresh() {
  requireUsable();
  if (transaction_ != nullptr) return;
  note(recover(files_, path_, *file_));
  look();
}

void PageFile::look() {
  if (stamp() == known_) return;
  readHeader();
  cache_ = std::make_unique<Cache>(cache_->limit, pageCount_);
  provenSound_.clear();
  ++version_;
  isDurable_ = false;
}

// Whatever stands in the way is told before the file is taken; what another program wrote meanwhile is seen
// after it.
void PageFile::take() {
  if (transaction_ != nullptr) throw Error(ErrorKind::Busy, "a transaction is under way already");
  requireUsable();
  const auto requireWritable = [this] {
    if (format().version == jet4.version && header_.databaseKey == 0) return;
    throw Error(ErrorKind::ReadOnly, "only files of Jet 4 that are not encoded are written");
  };
  requireWritable();
  if (hasUsers(files_, path_)) throw Error(ErrorKind::Busy, "another program has the database open");
  file_->acquire();
  try {
    // Another one may have failed in its save since this file was opened.
    note(recoverAcquired(files_, path_, *file_));
    look();
    requireWritable();  // it may have become another file since it was opened
  } catch (...) {
    file_->release();
    throw;
  }
}

// Who opens a lost file anew rolls it back: this object must not stand in his way.
void PageFile::giveBack() {
  lost_ ? file_.reset() : file_->release();
  transaction_ = nullptr;
  ++version_;
}

void PageFile::makeRoom(std::size_t pages) { cache_->makeRoom(pageCount_, pages); }

void PageFile::adopt(const std::vector<std::shared_ptr<Page>>& pages) {
  for (const std::shared_ptr<Page>& page : pages) {
    cache_->drop(page->number);
    cache_->insert(page, weightOf(*page));
  }
  try {
    known_ = stamp();
  } catch (const Error&) {
    known_ = {};  // the save is done; the next look reads everything anew
  }
}

std::size_t PageFile::cachedBytes() const { return cache_->bytes; }

}  // namespace jet
