#include "jet/write/row_store.h"

#include <iterator>

#include "jet/data_page.h"
#include "jet/usage_map.h"
#include "jet/write/data_page_access.h"

namespace jet::write {

using encode::DataPageWriter;

namespace {

// A page with less space is not offered any more once a row did not fit.
constexpr std::size_t worthwhileSpace = 512;  // bytes
constexpr int mostTries = 16;                 // pages that are looked at before a new one is added

}  // namespace

RowStore::RowStore(Transaction& transaction, PageAllocator& allocator, const PageSet& set)
    : transaction_(transaction),
      allocator_(allocator),
      set_(set),
      owned_(transaction, allocator, set.ownedMap, set.table) {
  if (set.freeMap != 0) free_.emplace(transaction, allocator, set.freeMap, set.table);
}

DataPageWriter RowStore::page(RowId place) {
  DataPageWriter page = changeDataPage(transaction_, place.page, set_.owner, set_.table);
  if (place.slot >= page.slotCount()) {
    ByteReader({}, place.page).damaged("a reference names a row that does not exist");
  }
  return page;
}

std::span<std::uint8_t> RowStore::row(RowId place) { return page(place).row(place.slot); }

std::uint16_t RowStore::flags(RowId place) { return page(place).flags(place.slot); }

RowId RowStore::append(std::span<const std::uint8_t> row, std::uint16_t flags) {
  current_ = pageFor(row.size());
  return {current_, DataPageWriter(transaction_.change(current_, set_.table)).append(row, flags)};
}

bool RowStore::replace(RowId place, std::span<const std::uint8_t> row, std::uint16_t flags) {
  DataPageWriter page = this->page(place);
  const std::size_t before = page.row(place.slot).size();
  if (row.size() > before + page.freeBytes()) return false;
  page.replace(place.slot, row, flags);
  if (row.size() < before) offer(place.page);
  return true;
}

void RowStore::erase(RowId place) {
  page(place).erase(place.slot);
  offer(place.page);
}

void RowStore::offer(std::uint32_t number) {
  if (!free_) return;
  if (number != current_) candidates_.insert(number);
  free_->add(number);
}

std::uint32_t RowStore::pageFor(std::size_t length) {
  if (current_ != 0) {
    if (DataPageWriter(transaction_.change(current_, set_.table)).fits(length)) return current_;
    leave(current_);
  }
  readCandidates();
  for (int tries = 0; tries < mostTries && !candidates_.empty(); ++tries) {
    const auto last = std::prev(candidates_.end());
    const std::uint32_t number = *last;
    candidates_.erase(last);
    if (isUsable(number, length)) return number;
  }
  return addPage();
}

// Pages of the free map that are not what it says are left alone.
bool RowStore::isUsable(std::uint32_t number, std::size_t length) {
  const PageFile& file = transaction_.file();
  const PageRef stored = file.page(number, set_.table);
  if (stored->type() != static_cast<std::uint8_t>(PageType::Data) ||
      DataPage(*stored, file.format()).owner() != set_.owner || !owned_.contains(number)) {
    return false;
  }
  const PageRef page = checkedDataPage(file, number, set_.owner, set_.table);
  if (hasRoom(*page, length)) return true;
  leave(number);
  return false;
}

void RowStore::leave(std::uint32_t number) {
  const PageRef page = transaction_.file().page(number, set_.table);
  if (free_ && !hasRoom(*page, worthwhileSpace)) free_->remove(number);
}

void RowStore::readCandidates() {
  if (candidatesRead_ || !free_) return;
  candidatesRead_ = true;
  for (const std::uint32_t number : readUsageMap(transaction_.file(), set_.freeMap, set_.table)) {
    if (number != current_) candidates_.insert(number);
  }
}

std::uint32_t RowStore::addPage() {
  const std::uint32_t number = allocator_.allocate();
  DataPageWriter::format(transaction_.change(number, set_.table), set_.owner);
  owned_.add(number);
  if (free_) free_->add(number);
  return number;
}

}  // namespace jet::write
