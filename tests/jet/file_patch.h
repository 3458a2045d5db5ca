#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/memory_files.h"
#include "jet/database.h"
#include "jet/index.h"

namespace jet::test {

// The bytes of a Jet 4 file, to plant faults where a table's definition says that something stands.
class FilePatch {
 public:
  static constexpr std::size_t pageSize = 4096;
  static constexpr std::size_t entriesStart = 480, bitmapStart = 27;
  static constexpr std::size_t previousLink = 12, nextLink = 16, tailLink = 20, prefixLength = 24;

  explicit FilePatch(std::vector<std::uint8_t> content) : content_(std::move(content)) {
    files_.put("patched.mdb", content_);
    database_ = std::make_unique<Database>(files_, "patched.mdb");
  }

  // As the file was before any fault.
  const Table& table(std::u16string_view name) { return database_->table(name); }
  std::uint32_t root(std::u16string_view name, std::size_t index = 0) {
    return table(name).definition().indexes[index].root;
  }
  // A page of a tree: the children taken from the root downwards; a negative number counts from the end.
  std::uint32_t treePage(std::u16string_view name, std::size_t index, std::initializer_list<int> children) {
    std::uint32_t number = root(name, index);
    for (const int child : children) {
      const PageRef page = database_->pages().page(number, 0);
      const IndexPage view(*page, database_->pages().format(), table(name).definition().page);
      number = view.child(child >= 0 ? static_cast<std::size_t>(child)
                                     : view.count() + 1 - static_cast<std::size_t>(-child));
    }
    return number;
  }
  // Where entry `i` of an index page starts in the page (without a prefix); `i` == their number: the end.
  std::size_t entryStart(std::uint32_t page, std::size_t i) const {
    std::size_t start = entriesStart;
    for (std::size_t bit = 0; i > 0; ++bit) {
      if ((u8(page, bitmapStart + bit / 8) >> (bit % 8) & 1) == 0) continue;
      start = entriesStart + bit;
      --i;
    }
    return start;
  }
  // Where a row's bytes start and end in its page.
  std::pair<std::size_t, std::size_t> row(RowId id) const {
    const auto start = [&](std::size_t slot) { return u16(id.page, 14 + 2 * slot) & 0x1FFFu; };
    return {start(id.slot), id.slot == 0 ? pageSize : start(id.slot - 1u)};
  }

  std::uint8_t u8(std::uint32_t page, std::size_t offset) const { return content_[page * pageSize + offset]; }
  std::uint16_t u16(std::uint32_t page, std::size_t offset) const {
    return static_cast<std::uint16_t>(u8(page, offset) | u8(page, offset + 1) << 8);
  }
  std::uint32_t u32(std::uint32_t page, std::size_t offset) const {
    return u16(page, offset) | static_cast<std::uint32_t>(u16(page, offset + 2)) << 16;
  }
  void put8(std::uint32_t page, std::size_t offset, std::uint8_t value) {
    content_[page * pageSize + offset] = value;
  }
  void put32(std::uint32_t page, std::size_t offset, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) put8(page, offset + i, static_cast<std::uint8_t>(value >> (8 * i)));
  }
  void copy(std::uint32_t page, std::size_t from, std::size_t to, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) put8(page, to + i, u8(page, from + i));
  }
  // Sets or clears a page's bit in an inline usage map.
  void setMapBit(std::uint32_t map, std::uint32_t page, bool value) {
    const RowId place = RowId::fromPointer(map);
    const std::size_t start = row(place).first;
    const std::uint32_t bit = page - u32(place.page, start + 1);
    const std::size_t at = start + 5 + bit / 8;
    const auto mask = static_cast<std::uint8_t>(1u << (bit % 8));
    const std::uint8_t old = u8(place.page, at);
    put8(place.page, at, static_cast<std::uint8_t>(value ? old | mask : old & ~mask));
  }

  const std::vector<std::uint8_t>& content() const { return content_; }

 private:
  std::vector<std::uint8_t> content_;
  MemoryFiles files_;
  std::unique_ptr<Database> database_;
};

}  // namespace jet::test
