#include "jet/usage_map.h"

#include <algorithm>

#include "jet/data_page.h"
#include "jet/row_id.h"

namespace jet {
namespace {

constexpr std::size_t bitmapPageHeader = 4;

struct Collector {
  std::uint32_t pageCount;
  std::vector<std::uint32_t> pages;
  bool outside = false;

  void addBits(std::span<const std::uint8_t> bitmap, std::uint64_t firstPage) {
    for (std::size_t i = 0; i < bitmap.size(); ++i) {
      for (unsigned bit = 0; bitmap[i] >> bit != 0; ++bit) {
        if ((bitmap[i] >> bit & 1) == 0) continue;
        const std::uint64_t page = firstPage + i * 8 + bit;
        if (page >= 1 && page < pageCount) {
          pages.push_back(static_cast<std::uint32_t>(page));
        } else {
          outside = true;
        }
      }
    }
  }
};

void readReferences(const PageFile& file, const ByteReader& row, Collector& collector) {
  const std::uint64_t pagesPerBitmap = std::uint64_t{file.format().pageSize - bitmapPageHeader} * 8;
  std::vector<std::uint32_t> seen;
  for (std::size_t i = 0; 1 + 4 * (i + 1) <= row.size(); ++i) {
    const std::uint32_t number = row.u32(1 + 4 * i);
    if (number == 0) continue;
    if (number >= file.pageCount()) {
      collector.outside = true;
      continue;
    }
    row.check(std::find(seen.begin(), seen.end(), number) == seen.end(),
              "a usage map names a bitmap page twice");
    seen.push_back(number);
    const PageRef page = file.page(number, row.page(), PageType::UsageBitmap);
    collector.addBits(std::span(page->bytes).subspan(bitmapPageHeader), i * pagesPerBitmap);
  }
}

}  // namespace

std::vector<std::uint32_t> readUsageMap(const PageFile& file, std::uint32_t pointer, std::uint32_t from,
                                        const WarningSink& warn) {
  const RowId place = RowId::fromPointer(pointer);
  const PageRef page = file.page(place.page, from, PageType::Data);
  const DataPage dataPage(*page, file.format());
  const ByteReader row(dataPage.row(place.slot), place.page);
  const std::uint32_t expectedOwner = place.page == globalMapPage ? globalMapPage : 0;
  row.check(dataPage.owner() == expectedOwner, "a usage map lies on a page that is not for maps");
  row.check((dataPage.slot(place.slot) & ~slot_flag::offsetMask) == 0, "a usage map was deleted");
  row.check(row.size() >= 5, "a usage map is too short");

  Collector collector{file.pageCount(), {}, false};
  if (row.u8(0) == 0) {
    const std::uint32_t start = row.u32(1);
    row.check(start + std::uint64_t{8} * (row.size() - 5) <= 1u << 24, "a usage map starts too far");
    collector.addBits(row.slice(5, row.size() - 5), start);
  } else {
    row.check(row.u8(0) == 1, "a usage map is of an unknown kind");
    readReferences(file, row, collector);
  }
  if (collector.outside && warn) {
    warn("A usage map on page " + std::to_string(place.page) + " names pages behind the end of the file.");
  }
  return std::move(collector.pages);
}

}  // namespace jet
