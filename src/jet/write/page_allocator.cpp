#include "jet/write/page_allocator.h"

#include <algorithm>

#include "jet/data_page.h"
#include "jet/encode/bytes.h"
#include "jet/encode/usage_map_bits.h"
#include "jet/error.h"
#include "jet/write/data_page_access.h"

namespace jet::write {

using namespace encode;

namespace {

constexpr std::uint32_t globalPage = 1;
constexpr std::uint8_t globalRow = 0;
constexpr std::uint32_t firstPage = 6;  // those before are the header, this map and the system's definitions
constexpr std::size_t growthStep = 4;   // bytes
constexpr std::uint32_t mostUnusedBehindEnd = 1024;

bool looksUsed(const Page& page) {
  return page.type() >= static_cast<std::uint8_t>(PageType::Data) &&
         page.type() <= static_cast<std::uint8_t>(PageType::UsageBitmap);
}

}  // namespace

std::span<std::uint8_t> PageAllocator::map() {
  if (globalBytes_.empty()) {
    const PageFile& file = transaction_.file();
    const PageRef page = checkedDataPage(file, globalPage, globalPage, globalPage);
    const ByteReader row(DataPage(*page, file.format()).row(globalRow), globalPage);
    row.check(row.size() >= inlineMapHeader && row.u8(0) <= referenceMap,
              "the map of free pages is too short or of an unknown kind");
    globalBytes_ = transaction_.change(globalPage, globalPage);
  }
  return DataPageWriter(globalBytes_).row(globalRow);
}

bool PageAllocator::isFree(std::uint32_t number) {
  const auto row = map();
  const ByteReader reader(row, globalPage);
  if (row[0] == inlineMap) {
    const std::uint32_t start = reader.u32(1);
    const std::size_t bits = (row.size() - inlineMapHeader) * 8;
    // Nothing is known of pages before the map: they are left alone.
    return number >= start &&
           (number - start >= bits || testBit(row.subspan(inlineMapHeader), number - start));
  }
  const std::size_t entry = referenceMapHeader + 4 * std::size_t{number / pagesPerBitmap};
  if (entry + 4 > row.size() || reader.u32(entry) == 0) return true;
  const PageRef bitmap = transaction_.file().page(reader.u32(entry), globalPage, PageType::UsageBitmap);
  return testBit(std::span(bitmap->bytes).subspan(bitmapHeader), number % pagesPerBitmap);
}

std::optional<std::uint32_t> PageAllocator::findInsideFile() {
  const PageFile& file = transaction_.file();
  for (; searchFrom_ < file.pageCount(); ++searchFrom_) {
    if (isFree(searchFrom_) && !looksUsed(*file.page(searchFrom_, globalPage))) return searchFrom_;
  }
  return std::nullopt;
}

std::uint32_t PageAllocator::extendFile() {
  // A page behind the end that is marked as used belongs to nobody who could have written to it; it becomes
  // part of the file and stays unused.
  for (std::uint32_t unused = 0; unused < mostUnusedBehindEnd; ++unused) {
    const std::uint32_t number = transaction_.append();
    if (isFree(number)) return number;
  }
  throw Error(ErrorKind::Damaged, "the map of free pages calls pages used that do not exist", globalPage);
}

std::uint32_t PageAllocator::allocate() {
  const std::optional<std::uint32_t> inside = findInsideFile();
  const std::uint32_t number = inside ? *inside : extendFile();
  setFree(number, false);
  std::ranges::fill(transaction_.change(number, globalPage), std::uint8_t{0});
  searchFrom_ = number + 1;
  return number;
}

void PageAllocator::release(std::uint32_t number) {
  if (number < firstPage)
    throw Error(ErrorKind::Damaged, "a page that is always in use was to be given back", number);
  std::ranges::fill(transaction_.change(number, globalPage).first(4), std::uint8_t{0});
  setFree(number, true);
  searchFrom_ = std::min(searchFrom_, number);
}

void PageAllocator::setFree(std::uint32_t number, bool free) {
  const auto mark = [&](std::span<std::uint8_t> bitmap, std::size_t bit) {
    free ? setBit(bitmap, bit) : clearBit(bitmap, bit);
  };
  if (map()[0] == inlineMap) {
    const std::uint32_t start = ByteReader(map(), globalPage).u32(1);
    if (number < start) return;
    const bool inRange = number - start < (map().size() - inlineMapHeader) * 8;
    if (inRange || growInline(number - start)) {
      return mark(map().subspan(inlineMapHeader), number - start);
    }
    turnIntoReferences();
  }
  const std::size_t range = number / pagesPerBitmap;
  std::uint32_t bitmap = ByteReader(map(), globalPage).u32(referenceMapHeader + 4 * range);
  if (bitmap == 0) bitmap = addBitmap(range);
  transaction_.file().page(bitmap, globalPage, PageType::UsageBitmap);
  mark(transaction_.change(bitmap, globalPage).subspan(bitmapHeader), number % pagesPerBitmap);
}

// Lengthens the map so that it covers `bit`. False: its page has no room for that.
bool PageAllocator::growInline(std::uint32_t bit) {
  const auto row = map();
  const std::size_t missing = bit / 8 + 1 - (row.size() - inlineMapHeader);
  const std::size_t growth = (missing + growthStep - 1) / growthStep * growthStep;
  DataPageWriter page(globalBytes_);
  if (growth > page.freeBytes()) return false;
  Bytes grown(row.begin(), row.end());
  grown.resize(grown.size() + growth, 0xFF);
  page.replace(globalRow, grown, 0);
  return true;
}

void PageAllocator::turnIntoReferences() {
  const auto row = map();
  const std::uint32_t start = ByteReader(row, globalPage).u32(1);
  const Bytes before(row.begin() + inlineMapHeader, row.end());
  if (usualMapLength > row.size() + DataPageWriter(globalBytes_).freeBytes()) {
    throw Error(ErrorKind::Damaged, "the map of free pages has no room to grow", globalPage);
  }
  Bytes references(usualMapLength, 0);
  references[0] = referenceMap;
  DataPageWriter(globalBytes_).replace(globalRow, references, 0);
  const std::uint32_t end = start + static_cast<std::uint32_t>(before.size()) * 8;
  for (std::uint32_t number = 0; number < end; ++number) {
    if (number < start || !testBit(before, number - start)) setFree(number, false);
  }
}

// A bitmap page always comes from the end of the file: the map could not yet note another.
std::uint32_t PageAllocator::addBitmap(std::size_t range) {
  const std::uint32_t number = transaction_.append();
  const auto bytes = transaction_.change(number, globalPage);
  std::ranges::fill(bytes.subspan(bitmapHeader), std::uint8_t{0xFF});
  bytes[0] = static_cast<std::uint8_t>(PageType::UsageBitmap);
  bytes[1] = 1;
  put32(map(), referenceMapHeader + 4 * range, number);
  setFree(number, false);
  return number;
}

}  // namespace jet::write
