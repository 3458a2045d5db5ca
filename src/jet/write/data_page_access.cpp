#include "jet/write/data_page_access.h"

#include "jet/data_page.h"

namespace jet::write {

using encode::DataPageWriter;

namespace {
constexpr std::size_t freeBytesOffset = 2;
}

PageRef checkedDataPage(const PageFile& file, std::uint32_t number, std::uint32_t owner, std::uint32_t from) {
  PageRef page = file.page(number, from, PageType::Data);
  const ByteReader reader = page->reader();
  const DataPage data(*page, file.format());
  reader.check(data.owner() == owner, "a page belongs to somebody else");
  std::uint32_t lowest = file.format().pageSize;
  for (std::uint32_t slot = 0; slot < data.slotCount(); ++slot) {
    const std::uint32_t start = data.slot(slot) & slot_flag::offsetMask;
    reader.check(start <= lowest, "a row lies outside its place on the page");
    lowest = start;
  }
  const std::uint32_t slotsEnd = file.format().dataSlots + 2 * data.slotCount();
  reader.check(lowest >= slotsEnd, "a row lies outside its place on the page");
  reader.check(reader.u16(freeBytesOffset) == lowest - slotsEnd,
               "a page states a wrong number of free bytes");
  return page;
}

DataPageWriter changeDataPage(Transaction& transaction, std::uint32_t number, std::uint32_t owner,
                              std::uint32_t from) {
  checkedDataPage(transaction.file(), number, owner, from);
  return DataPageWriter(transaction.change(number, from));
}

bool hasRoom(const Page& page, std::size_t length) {
  const ByteReader reader = page.reader();
  return length + 2 <= reader.u16(freeBytesOffset) &&
         reader.u16(jet4.dataRowCount) < DataPageWriter::largestSlotCount;
}

}  // namespace jet::write
