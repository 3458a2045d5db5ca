#include "jet/write/usage_map_editor.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "jet/data_page.h"
#include "jet/encode/bytes.h"
#include "jet/encode/usage_map_bits.h"
#include "jet/error.h"
#include "jet/usage_map.h"
#include "jet/write/data_page_access.h"

namespace jet::write {

using namespace encode;

UsageMapEditor::UsageMapEditor(Transaction& transaction, PageAllocator& allocator, std::uint32_t map,
                               std::uint32_t owner)
    : transaction_(transaction), allocator_(allocator), map_(map), owner_(owner) {}

UsageMapEditor::Row UsageMapEditor::row() const {
  const PageFile& file = transaction_.file();
  PageRef page = checkedDataPage(file, mapPage(), mapPageOwner(mapPage()), owner_);
  const DataPage data(*page, file.format());
  const auto bytes = data.row(map_ & 0xFF);
  const ByteReader reader(bytes, mapPage());
  reader.check((data.slot(map_ & 0xFF) & ~slot_flag::offsetMask) == 0, "a usage map was deleted");
  reader.check(reader.size() >= inlineMapHeader, "a usage map is too short");
  reader.check(reader.u8(0) <= referenceMap, "a usage map is of an unknown kind");
  return {std::move(page), bytes};
}

std::span<std::uint8_t> UsageMapEditor::changeRow() {
  return DataPageWriter(transaction_.change(mapPage(), owner_)).row(map_ & 0xFF);
}

UsageMapEditor::Place UsageMapEditor::find(std::uint32_t page) const {
  const Row row = this->row();
  const ByteReader map(row.bytes, mapPage());
  if (map.u8(0) == inlineMap) {
    const std::uint32_t start = map.u32(1);
    const std::size_t bits = (map.size() - inlineMapHeader) * 8;
    if (page < start || page - start >= bits) return {};
    const auto offset = static_cast<std::size_t>(row.bytes.data() - row.page->bytes.data());
    return {mapPage(), offset + inlineMapHeader, page - start};
  }
  const std::size_t entry = referenceMapHeader + 4 * std::size_t{page / pagesPerBitmap};
  map.check(entry + 4 <= map.size(), "a usage map is too short for its pages");
  const std::uint32_t bitmap = map.u32(entry);
  // Numbers behind the end of the file stand for nothing.
  if (bitmap == 0 || bitmap >= transaction_.file().pageCount()) return {};
  transaction_.file().page(bitmap, mapPage(), PageType::UsageBitmap);
  return {bitmap, bitmapHeader, page % pagesPerBitmap};
}

bool UsageMapEditor::isSet(const Place& place) const {
  if (place.number == 0) return false;
  const PageRef page = transaction_.file().page(place.number, owner_);
  return testBit(std::span(page->bytes).subspan(place.offset), place.bit);
}

bool UsageMapEditor::contains(std::uint32_t page) const { return isSet(find(page)); }

void UsageMapEditor::add(std::uint32_t page) {
  Place place = find(page);
  if (place.number == 0) {
    makePlace(page);
    place = find(page);
  }
  if (isSet(place)) return;
  setBit(transaction_.change(place.number, owner_).subspan(place.offset), place.bit);
}

void UsageMapEditor::remove(std::uint32_t page) {
  const Place place = find(page);
  if (!isSet(place)) return;
  clearBit(transaction_.change(place.number, owner_).subspan(place.offset), place.bit);
}

void UsageMapEditor::makePlace(std::uint32_t page) {
  if (row().bytes[0] == inlineMap) {
    if (moveStart(page)) return;
    turnIntoReferences();
  }
  if (find(page).number == 0) addBitmap(page);
}

// A start from which the inline map reaches all its pages and this one, too. False: there is none.
bool UsageMapEditor::moveStart(std::uint32_t page) {
  const std::vector<std::uint32_t> pages = readUsageMap(transaction_.file(), map_, owner_);
  const std::uint32_t lowest = pages.empty() ? page : std::min(page, pages.front());
  const std::uint32_t highest = pages.empty() ? page : std::max(page, pages.back());
  const std::uint32_t start = lowest / 8 * 8;
  if (highest - start >= (row().bytes.size() - inlineMapHeader) * 8) return false;
  const auto bytes = changeRow();
  const auto bitmap = bytes.subspan(inlineMapHeader);
  put32(bytes, 1, start);
  std::ranges::fill(bitmap, std::uint8_t{0});
  for (const std::uint32_t member : pages) setBit(bitmap, member - start);
  return true;
}

void UsageMapEditor::turnIntoReferences() {
  const std::vector<std::uint32_t> pages = readUsageMap(transaction_.file(), map_, owner_);
  const auto bytes = changeRow();
  std::ranges::fill(bytes, std::uint8_t{0});
  bytes[0] = referenceMap;
  for (const std::uint32_t page : pages) add(page);
}

void UsageMapEditor::addBitmap(std::uint32_t page) {
  const std::uint32_t number = allocator_.allocate();
  const auto bitmap = transaction_.change(number, owner_);
  bitmap[0] = static_cast<std::uint8_t>(PageType::UsageBitmap);
  bitmap[1] = 1;
  put32(changeRow(), referenceMapHeader + 4 * std::size_t{page / pagesPerBitmap}, number);
}

}  // namespace jet::write
