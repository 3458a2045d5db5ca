#include "jet/long_value.h"

#include <algorithm>
#include <unordered_set>

#include "jet/data_page.h"
#include "jet/row_id.h"

namespace jet {
namespace {

constexpr std::uint32_t lengthMask = 0x3FFFFFFF;
constexpr std::size_t chainLink = 4;  // bytes before the data of each piece

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

LongValueReference LongValueReference::read(const ByteReader& stored) {
  const std::uint32_t kind = stored.u32(0) >> 30;
  stored.check(kind <= static_cast<std::uint32_t>(LongValueKind::Inline),
               "a long value is of an unknown kind");
  return {static_cast<LongValueKind>(kind), stored.u32(0) & lengthMask, stored.u32(4)};
}

void readLongValue(const PageFile& file, std::span<const std::uint8_t> stored, std::uint32_t from,
                   LongValue& target) {
  const ByteReader reader(stored, from);
  const LongValueReference reference = LongValueReference::read(reader);
  reader.check(reference.length <= std::uint64_t{file.pageCount()} * file.format().pageSize,
               "a long value is longer than the file");
  switch (reference.kind) {
    case LongValueKind::Inline:
      target.page.reset();
      target.bytes = reader.slice(LongValueReference::size, reference.length);
      return;
    case LongValueKind::OneRow: {
      const ByteReader row(openPiece(file, reference.pointer, from, target.page), reference.pointer >> 8);
      row.check(reference.length <= row.size(), "a long value ends early");
      target.bytes = row.slice(0, reference.length);
      return;
    }
    case LongValueKind::Chain:
      return joinChain(file, reference.pointer, reference.length, from, target);
  }
}

}  // namespace jet
