#include "jet/write/long_value_writer.h"

#include <algorithm>

#include "jet/byte_reader.h"
#include "jet/encode/bytes.h"
#include "jet/encode/long_value_encoder.h"

namespace jet::write {

using namespace encode;

LongValueWriter::LongValueWriter(Transaction& transaction, PageAllocator& allocator,
                                 const ColumnDefinition& column, std::uint32_t table)
    : rows_(transaction, allocator,
            {DataPageWriter::lvalOwner, column.longValueOwnedMap, column.longValueFreeMap, table}) {}

void LongValueWriter::append(Bytes& target, std::span<const std::uint8_t> content, bool inlineAllowed) {
  const LongValueKind kind = kindOfLongValue(content.size(), inlineAllowed);
  std::uint32_t pointer = 0;
  if (kind == LongValueKind::OneRow) pointer = rows_.append(content).pointer();
  if (kind == LongValueKind::Chain) pointer = storeChain(content);
  appendLongValue(target, kind, content, pointer);
}

// The pieces are stored in order, so that their pages follow each other where the file grows.
std::uint32_t LongValueWriter::storeChain(std::span<const std::uint8_t> content) {
  std::uint32_t first = 0;
  RowId previous;
  Bytes piece;
  for (std::size_t offset = 0; offset < content.size(); offset += chainRowData) {
    const auto part = content.subspan(offset, std::min(chainRowData, content.size() - offset));
    piece.assign(chainLinkLength + part.size(), 0);
    std::ranges::copy(part, piece.begin() + chainLinkLength);
    const RowId place = rows_.append(piece);
    if (first == 0) {
      first = place.pointer();
    } else {
      put32(rows_.row(previous), 0, place.pointer());
    }
    previous = place;
  }
  return first;
}

void LongValueWriter::release(std::span<const std::uint8_t> stored, std::uint32_t from) {
  const auto reference = LongValueReference::read({stored, from});
  if (reference.kind == LongValueKind::Inline) return;
  std::uint32_t pointer = reference.pointer;
  std::size_t rest = reference.length;
  do {
    const RowId place = RowId::fromPointer(pointer);
    const ByteReader row(rows_.row(place), place.page);
    row.check(rows_.flags(place) == 0, "a piece of a long value was deleted");
    if (reference.kind == LongValueKind::OneRow) {
      rest = 0;
    } else {
      pointer = row.u32(0);
      rest -= std::min(rest, row.size() - chainLinkLength);
    }
    rows_.erase(place);
  } while (rest > 0);
}

}  // namespace jet::write
