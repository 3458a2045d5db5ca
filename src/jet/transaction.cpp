#include "jet/transaction.h"

#include <algorithm>
#include <tuple>
#include <utility>
#include <vector>

#include "jet/error.h"
#include "jet/index_page.h"
#include "jet/journal.h"

namespace jet {
namespace {

constexpr std::uint64_t largestFile = std::uint64_t{2} << 30;  // bytes

// Programs that know nothing of our journal should meet a page before anything refers to it.
int turn(const Page& page, std::uint32_t pagesBefore) {
  if (page.number >= pagesBefore) return 0;
  if (page.number == globalMapPage) return 2;
  return page.type() == static_cast<std::uint8_t>(PageType::TableDefinition) ? 3 : 1;
}

}  // namespace

Transaction::Transaction(PageFile& file) : file_(file) {
  file_.take();
  file_.transaction_ = this;
  pagesBefore_ = file_.pageCount_;
}

Transaction::~Transaction() {
  if (ended_) return;
  file_.pageCount_ = pagesBefore_;
  file_.giveBack();
}

const std::shared_ptr<Page>* Transaction::find(std::uint32_t number) const {
  const auto found = changed_.find(number);
  return found == changed_.end() ? nullptr : &found->second;
}

std::span<std::uint8_t> Transaction::change(std::uint32_t number, std::uint32_t from) {
  ++file_.version_;
  if (const auto* page = find(number)) {
    (*page)->indexLayout.reset();
    return (*page)->bytes;
  }
  const PageRef original = file_.page(number, from);
  auto page = std::make_shared<Page>();
  page->number = number;
  page->bytes = original->bytes;
  return changed_.emplace(number, std::move(page)).first->second->bytes;
}

std::uint32_t Transaction::append() {
  const std::uint32_t pageSize = file_.format().pageSize;
  if ((std::uint64_t{file_.pageCount_} + 1) * pageSize > largestFile) {
    throw Error(ErrorKind::Limit, "the file would grow beyond 2 GiB");
  }
  auto page = std::make_shared<Page>();
  page->number = file_.pageCount_++;
  page->bytes.resize(pageSize);
  ++file_.version_;
  return changed_.emplace(page->number, std::move(page)).first->first;
}

std::vector<std::shared_ptr<Page>> Transaction::pagesInOrder() const {
  std::vector<std::shared_ptr<Page>> pages;
  pages.reserve(changed_.size());
  for (const auto& [number, page] : changed_) pages.push_back(page);
  std::ranges::sort(pages, {}, [this](const std::shared_ptr<Page>& page) {
    return std::tuple(turn(*page, pagesBefore_), page->number);
  });
  return pages;
}

void Transaction::commit() {
  const std::vector<std::shared_ptr<Page>> pages = pagesInOrder();
  if (!pages.empty()) {
    file_.makeRoom(pages.size());
    save(pages);
    file_.adopt(pages);
  }
  ended_ = true;
  file_.giveBack();
}

void Transaction::save(const std::vector<std::shared_ptr<Page>>& pages) {
  const std::uint32_t pageSize = file_.format().pageSize;
  File& disk = *file_.file_;
  std::vector<std::vector<std::uint8_t>> originals;
  std::vector<JournalPage> journal;
  originals.reserve(pages.size());
  for (const auto& page : pages) {
    if (page->number >= pagesBefore_) continue;
    originals.emplace_back(pageSize);
    disk.read(std::uint64_t{page->number} * pageSize, originals.back());
    journal.push_back({page->number, originals.back(), page->bytes});
  }
  if (!file_.isDurable_) disk.flush();
  file_.isDurable_ = true;
  std::unique_ptr<File> written = writeJournal(file_.files_, file_.path_, file_.known_,
                                               std::uint64_t{file_.pageCount_} * pageSize, journal);
  try {
    for (const auto& page : pages) disk.write(std::uint64_t{page->number} * pageSize, page->bytes);
    disk.flush();
    endJournal(file_.files_, file_.path_, written);
  } catch (...) {
    undo(std::move(written));
    file_.requireUsable();
    throw;
  }
}

// Where the old pages cannot be written back, the next opening does it.
void Transaction::undo(std::unique_ptr<File> journal) {
  try {
    rollBack(file_.files_, file_.path_, *file_.file_, std::move(journal));
    file_.known_ = file_.stamp();
  } catch (...) {
    file_.lost_ = true;
  }
}

}  // namespace jet
