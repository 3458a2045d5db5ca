#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "jet/encode/data_page_writer.h"
#include "jet/transaction.h"

namespace jet::write {

// Pages from the file's map of free pages (page 1). Never gives out pages 0 to 5, nor a page that the map
// calls free while it looks as if somebody used it.
class PageAllocator {
 public:
  explicit PageAllocator(Transaction& transaction) : transaction_(transaction) {}

  // A page of zeros that nobody uses, from inside the file where there is one, else behind its end.
  std::uint32_t allocate();
  // Gives a page back: its first four bytes become 0, its bit in the map is set.
  void release(std::uint32_t number);

 private:
  std::span<std::uint8_t> map();
  bool isFree(std::uint32_t number);
  void setFree(std::uint32_t number, bool free);
  std::optional<std::uint32_t> findInsideFile();
  std::uint32_t extendFile();
  bool growInline(std::uint32_t bit);
  void turnIntoReferences();
  std::uint32_t addBitmap(std::size_t range);

  Transaction& transaction_;
  std::span<std::uint8_t> globalBytes_;  // page 1, once it was checked
  // The search for a free page goes on here: there is none before.
  std::uint32_t searchFrom_ = 6;
};

}  // namespace jet::write
