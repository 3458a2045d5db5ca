#include "jet/long_value.h"

#include <algorithm>
#include <unordered_set>

#include "jet/data_page.h"
#include "jet/row_id.h"

namespace jet {
namespace {

constexpr std::uint32_t lengthMask = 0x3FFFFFFF;
constexpr std::size_t referenceSize = 12;
constexpr std::size_t chainLink = 4;  // bytes before the data of each piece

enum Kind : std::uint32_t { Chain = 0, OneRow = 1, Inline = 2 };

// The row `pointer` names; `page` keeps it alive.
std::span<const std::uint8_t> openPiece(const PageFile& file, std::uint32_t pointer, std::uint32_t from,
                                        PageRef& page) {
  const RowId place = RowId::fromPointer(pointer);
  page = file.page(place.page, from, PageType::Data);
  const DataPage dataPage(*page, file.format());
  const ByteReader reader = page->reader();
  reader.check(dataPage.owner() == DataPage::longValueOwner, "a long value lies on a page of another kind");
  reader.check((dataPage.slot(place.slot) & ~slot_flag::offsetMask) == 0,
               "a piece of a long value was deleted");
  return dataPage.row(place.slot);
}

void joinChain(const PageFile& file, std::uint32_t pointer, std::uint32_t length, std::uint32_t from,
               LongValue& target) {
  target.joined.clear();
  std::unordered_set<std::uint32_t> seen;
  PageRef page;
  while (target.joined.size() < length) {
    if (pointer == 0) ByteReader({}, from).damaged("a long value ends early");
    const bool isNew = seen.insert(pointer).second;
    const auto bytes = openPiece(file, pointer, from, page);
    const ByteReader piece(bytes, page->number);
    piece.check(isNew, "the pieces of a long value run in a circle");
    const std::size_t rest = length - target.joined.size();
    const auto data = piece.slice(chainLink, std::min(rest, std::max(piece.size(), chainLink) - chainLink));
    target.joined.insert(target.joined.end(), data.begin(), data.end());
    from = page->number;
    pointer = piece.u32(0);
  }
  target.page.reset();
  target.bytes = target.joined;
}

}  // namespace

void readLongValue(const PageFile& file, std::span<const std::uint8_t> reference, std::uint32_t from,
                   LongValue& target) {
  const ByteReader reader(reference, from);
  const std::uint32_t length = reader.u32(0) & lengthMask;
  const std::uint32_t pointer = reader.u32(4);
  reader.check(length <= std::uint64_t{file.pageCount()} * file.format().pageSize,
               "a long value is longer than the file");
  switch (reader.u32(0) >> 30) {
    case Inline:
      target.page.reset();
      target.bytes = reader.slice(referenceSize, length);
      return;
    case OneRow: {
      const ByteReader row(openPiece(file, pointer, from, target.page), pointer >> 8);
      row.check(length <= row.size(), "a long value ends early");
      target.bytes = row.slice(0, length);
      return;
    }
    case Chain:
      return joinChain(file, pointer, length, from, target);
    default:
      reader.damaged("a long value is of an unknown kind");
  }
}

}  // namespace jet
