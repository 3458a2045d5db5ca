#pragma once

#include <cstdint>
#include <span>

namespace jet::encode {

// Rows on one data page: slots at the start, rows from the end downwards in slot order, no gaps. Works on the
// page's bytes in place and does not own them.
class DataPageWriter {
 public:
  static constexpr std::uint32_t lvalOwner = 'L' | 'A' << 16 | 'V' << 8 | std::uint32_t{'L'} << 24;
  static constexpr std::uint32_t largestSlotCount = 255;
  static constexpr std::size_t header = 14;
  static constexpr std::uint16_t deleted = 0xC000;  // flags of a slot whose row is gone

  explicit DataPageWriter(std::span<std::uint8_t> bytes) : bytes_(bytes) {}
  // Makes an empty page. `owner`: definition page of the table, `lvalOwner`, or 0 for usage maps.
  static DataPageWriter format(std::span<std::uint8_t> bytes, std::uint32_t owner);

  std::uint16_t freeBytes() const;
  std::uint16_t slotCount() const;
  bool fits(std::size_t length) const;
  std::uint16_t flags(std::uint32_t slot) const;
  std::span<std::uint8_t> row(std::uint32_t slot);

  // The row must fit. Returns its slot.
  std::uint8_t append(std::span<const std::uint8_t> row, std::uint16_t flags = 0);
  // Another content (and length) for a slot; rows behind it move. Growth must fit into the free bytes.
  void replace(std::uint32_t slot, std::span<const std::uint8_t> row, std::uint16_t flags);
  void erase(std::uint32_t slot) { replace(slot, {}, deleted); }

 private:
  std::uint32_t start(std::uint32_t slot) const;
  std::uint32_t end(std::uint32_t slot) const;
  void setSlot(std::uint32_t slot, std::uint32_t start, std::uint16_t flags);

  std::span<std::uint8_t> bytes_;
};

}  // namespace jet::encode
