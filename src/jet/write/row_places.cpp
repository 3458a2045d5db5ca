#include "jet/write/row_places.h"

#include "jet/byte_reader.h"
#include "jet/encode/bytes.h"
#include "jet/error.h"
#include "jet/format.h"

namespace jet::write {

RowPlaces::RowPlaces(Transaction& transaction, PageAllocator& allocator, const TableDefinition& definition)
    : rows_(transaction, allocator,
            {definition.page, definition.ownedMap, definition.freeMap, definition.page}) {}

// The head itself, where the row has not moved.
RowId RowPlaces::bodyOf(RowId head) {
  const std::uint16_t flags = rows_.flags(head);
  if (flags == 0) return head;
  const ByteReader pointer(rows_.row(head), head.page);
  pointer.check(flags == slot_flag::pointer, "a reference leads to a row that was deleted");
  const RowId body = RowId::fromPointer(pointer.u32(0));
  pointer.check(rows_.flags(body) == slot_flag::body, "a moved row is not where it should be");
  return body;
}

void RowPlaces::update(RowId head, std::span<const std::uint8_t> row) {
  const RowId body = bodyOf(head);
  if (rows_.replace(body, row, body == head ? 0 : slot_flag::body)) return;
  if (body != head && rows_.replace(head, row, 0)) {  // it has room at home again
    rows_.erase(body);
    return;
  }
  Bytes pointer;
  encode::append32(pointer, rows_.append(row, slot_flag::body).pointer());
  if (body != head) rows_.erase(body);
  if (!rows_.replace(head, pointer, slot_flag::pointer)) {
    throw Error(ErrorKind::Limit, "there is no room for the pointer to a moved row", head.page);
  }
}

void RowPlaces::erase(RowId head) {
  const RowId body = bodyOf(head);
  if (body != head) rows_.erase(body);
  rows_.erase(head);
}

}  // namespace jet::write
