#pragma once

#include <cstdint>
#include <span>

#include "jet/page_file.h"

namespace jet {

// The slots of a page that holds rows: rows of a table, pieces of long values, or usage maps. A view; the
// page must outlive it. Making one checks that the slots have room on the page.
class DataPage {
 public:
  static constexpr std::uint32_t longValueOwner = 0x4C41564C;  // "LVAL"

  DataPage(const Page& page, const Format& format);

  std::uint32_t number() const { return page_->number; }
  std::uint32_t owner() const { return page_->reader().u32(format_->dataOwner); }
  std::uint32_t slotCount() const { return slotCount_; }

  // The slot as stored, flags included. Error(Damaged) for a slot that does not exist.
  std::uint16_t slot(std::uint32_t slot) const {
    page_->reader().check(slot < slotCount_, "a reference names a row that does not exist");
    return page_->reader().u16(format_->dataSlots + 2 * slot);
  }
  // The bytes of a slot, whatever its flags say.
  std::span<const std::uint8_t> row(std::uint32_t slot) const;

  static bool isDeleted(std::uint16_t entry) {
    return (entry & (slot_flag::pointer | slot_flag::body)) == (slot_flag::pointer | slot_flag::body);
  }
  static bool isPointer(std::uint16_t entry) {
    return (entry & (slot_flag::pointer | slot_flag::body)) == slot_flag::pointer;
  }
  static bool isBody(std::uint16_t entry) {
    return (entry & (slot_flag::pointer | slot_flag::body)) == slot_flag::body;
  }

 private:
  const Page* page_;
  const Format* format_;
  std::uint32_t slotCount_;
};

}  // namespace jet
