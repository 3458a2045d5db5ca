#include "jet/data_page.h"

namespace jet {

DataPage::DataPage(const Page& page, const Format& format)
    : page_(&page), format_(&format), slotCount_(page.reader().u16(format.dataRowCount)) {
  const ByteReader reader = page.reader();
  reader.check(slotCount_ <= 256 && format.dataSlots + 2 * slotCount_ <= reader.size(),
               "a data page counts more rows than it has room for");
}

std::span<const std::uint8_t> DataPage::row(std::uint32_t slot) const {
  const ByteReader reader = page_->reader();
  const std::uint32_t start = this->slot(slot) & slot_flag::offsetMask;
  const std::uint32_t end =
      slot == 0 ? static_cast<std::uint32_t>(reader.size()) : this->slot(slot - 1) & slot_flag::offsetMask;
  reader.check(start >= format_->dataSlots + 2 * slotCount_ && start <= end && end <= reader.size(),
               "a row lies outside its place on the page");
  return reader.slice(start, end - start);
}

}  // namespace jet
