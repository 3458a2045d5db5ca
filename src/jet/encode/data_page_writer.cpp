#include "jet/encode/data_page_writer.h"

#include <algorithm>

#include "jet/encode/bytes.h"
#include "jet/encode/page_size.h"
#include "jet/format.h"

namespace jet::encode {

namespace {
constexpr std::size_t freeOffset = 2;
constexpr std::uint16_t flagMask = 0xC000;
}  // namespace

DataPageWriter DataPageWriter::format(std::span<std::uint8_t> bytes, std::uint32_t owner) {
  bytes[0] = static_cast<std::uint8_t>(PageType::Data);
  bytes[1] = 1;
  put16(bytes, freeOffset, pageSize - header);
  put32(bytes, jet4.dataOwner, owner);
  return DataPageWriter(bytes);
}

std::uint16_t DataPageWriter::freeBytes() const { return get16(bytes_, freeOffset); }

std::uint16_t DataPageWriter::slotCount() const { return get16(bytes_, jet4.dataRowCount); }

bool DataPageWriter::fits(std::size_t length) const {
  return length + 2 <= freeBytes() && slotCount() < largestSlotCount;
}

std::uint16_t DataPageWriter::flags(std::uint32_t slot) const {
  return get16(bytes_, header + 2 * std::size_t{slot}) & flagMask;
}

std::uint32_t DataPageWriter::start(std::uint32_t slot) const {
  return get16(bytes_, header + 2 * std::size_t{slot}) & slot_flag::offsetMask;
}

std::uint32_t DataPageWriter::end(std::uint32_t slot) const { return slot == 0 ? pageSize : start(slot - 1); }

std::span<std::uint8_t> DataPageWriter::row(std::uint32_t slot) {
  return bytes_.subspan(start(slot), end(slot) - start(slot));
}

void DataPageWriter::setSlot(std::uint32_t slot, std::uint32_t start, std::uint16_t flags) {
  put16(bytes_, header + 2 * std::size_t{slot}, start | flags);
}

std::uint8_t DataPageWriter::append(std::span<const std::uint8_t> row, std::uint16_t flags) {
  const std::uint16_t slot = slotCount();
  const auto begin = static_cast<std::uint32_t>(end(slot) - row.size());
  std::ranges::copy(row, bytes_.begin() + begin);
  setSlot(slot, begin, flags);
  put16(bytes_, freeOffset, static_cast<std::uint32_t>(freeBytes() - row.size() - 2));
  put16(bytes_, jet4.dataRowCount, slot + 1u);
  return static_cast<std::uint8_t>(slot);
}

void DataPageWriter::replace(std::uint32_t slot, std::span<const std::uint8_t> row, std::uint16_t flags) {
  const std::uint32_t last = slotCount() - 1u;
  const std::uint32_t lowest = start(last);
  const std::uint32_t oldStart = start(slot);
  const auto newStart = static_cast<std::uint32_t>(end(slot) - row.size());
  const std::int64_t shift = std::int64_t{newStart} - oldStart;

  const auto from = bytes_.begin() + lowest, to = bytes_.begin() + oldStart;
  if (shift > 0) {
    std::copy_backward(from, to, bytes_.begin() + newStart);
    std::fill(from, from + shift, std::uint8_t{0});
  } else {
    std::copy(from, to, from + shift);
  }
  for (std::uint32_t later = slot + 1; later <= last; ++later) {
    setSlot(later, static_cast<std::uint32_t>(start(later) + shift), this->flags(later));
  }
  std::ranges::copy(row, bytes_.begin() + newStart);
  setSlot(slot, newStart, flags);
  put16(bytes_, freeOffset, static_cast<std::uint32_t>(freeBytes() + shift));
}

}  // namespace jet::encode
