#include "jet/create/usage_map_writer.h"

#include <algorithm>

#include "jet/encode/bytes.h"
#include "jet/encode/data_page_writer.h"
#include "jet/encode/usage_map_bits.h"
#include "jet/format.h"

namespace jet::create {

namespace {

constexpr std::uint32_t inlineBytes = usualMapLength - inlineMapHeader;
constexpr std::uint32_t inlinePages = inlineBytes * 8;
constexpr std::uint32_t largestGlobalInlineBytes = 3900;  // what page 1 has room for

std::uint32_t allocateBitmap(PageArray& pages) {
  const std::uint32_t number = pages.allocate();
  pages.page(number)[0] = static_cast<std::uint8_t>(PageType::UsageBitmap);
  pages.page(number)[1] = 1;
  return number;
}

std::span<std::uint8_t> mapRow(PageArray& pages, std::uint32_t pointer) {
  return DataPageWriter(pages.page(pointer >> 8)).row(pointer & 0xFF);
}

void writeInline(std::span<std::uint8_t> row, std::uint32_t start, std::span<const std::uint32_t> members) {
  row[0] = inlineMap;
  put32(row, 1, start);
  for (const std::uint32_t page : members) setBit(row.subspan(inlineMapHeader), page - start);
}

void writeByReference(PageArray& pages, std::uint32_t pointer, std::span<const std::uint32_t> members) {
  mapRow(pages, pointer)[0] = referenceMap;
  for (const std::uint32_t page : members) {
    const std::size_t entry = referenceMapHeader + 4 * std::size_t{page / pagesPerBitmap};
    std::uint32_t bitmap = get32(mapRow(pages, pointer), entry);
    if (bitmap == 0) {
      bitmap = allocateBitmap(pages);
      put32(mapRow(pages, pointer), entry, bitmap);
    }
    setBit(pages.page(bitmap).subspan(bitmapHeader), page % pagesPerBitmap);
  }
}

// One bitmap page for every range of the file; the bitmap pages themselves lengthen the file.
void writeGlobalByReference(PageArray& pages, std::span<const std::uint8_t> emptyRow) {
  DataPageWriter(pages.page(globalMapPage)).replace(0, emptyRow, 0);
  mapRow(pages, globalMapPage << 8)[0] = referenceMap;
  std::vector<std::uint32_t> bitmaps;
  while (bitmaps.size() * pagesPerBitmap < pages.count()) {
    bitmaps.push_back(allocateBitmap(pages));
    put32(mapRow(pages, globalMapPage << 8), referenceMapHeader + 4 * (bitmaps.size() - 1), bitmaps.back());
    std::ranges::fill(pages.page(bitmaps.back()).subspan(bitmapHeader), std::uint8_t{0xFF});
  }
  for (std::uint32_t page = 0; page < pages.count(); ++page) {
    clearBit(pages.page(bitmaps[page / pagesPerBitmap]).subspan(bitmapHeader), page % pagesPerBitmap);
  }
  for (const std::uint32_t page : pages.released()) {
    setBit(pages.page(bitmaps[page / pagesPerBitmap]).subspan(bitmapHeader), page % pagesPerBitmap);
  }
}

}  // namespace

UsageMapRows::UsageMapRows(PageArray& pages, std::uint32_t firstPage) : pages_(pages), page_(firstPage) {
  DataPageWriter::format(pages_.page(page_), 0);
}

std::uint32_t UsageMapRows::add() {
  const Bytes empty(usualMapLength, 0);
  if (!DataPageWriter(pages_.page(page_)).fits(empty.size())) {
    page_ = pages_.allocate();
    DataPageWriter::format(pages_.page(page_), 0);
  }
  return page_ << 8 | DataPageWriter(pages_.page(page_)).append(empty);
}

void writeUsageMap(PageArray& pages, std::uint32_t pointer, std::span<const std::uint32_t> members) {
  if (members.empty()) return;
  const std::uint32_t start = members.back() < inlinePages ? 0 : members.front() / 8 * 8;
  if (members.back() - start < inlinePages) {
    writeInline(mapRow(pages, pointer), start, members);
  } else {
    writeByReference(pages, pointer, members);
  }
}

void formatGlobalMap(PageArray& pages) {
  DataPageWriter page = DataPageWriter::format(pages.page(globalMapPage), globalMapPage);
  const Bytes empty(usualMapLength, 0);
  page.append(empty);
  page.append(empty);
}

void writeGlobalMap(PageArray& pages) {
  const std::uint32_t needed = std::max(inlineBytes, (pages.count() + 31) / 32 * 4);
  if (needed > largestGlobalInlineBytes) {
    writeGlobalByReference(pages, Bytes(usualMapLength, 0));
    return;
  }
  Bytes row(inlineMapHeader + needed, 0xFF);
  std::fill_n(row.begin(), inlineMapHeader, std::uint8_t{0});
  for (std::uint32_t page = 0; page < pages.count(); ++page) {
    clearBit(std::span(row).subspan(inlineMapHeader), page);
  }
  for (const std::uint32_t page : pages.released()) setBit(std::span(row).subspan(inlineMapHeader), page);
  DataPageWriter(pages.page(globalMapPage)).replace(0, row, 0);
}

}  // namespace jet::create
