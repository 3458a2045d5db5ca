#pragma once

#include <cstdint>
#include <span>

#include "jet/transaction.h"

namespace jet::write {

// Pages from the file's map of free pages (page 1). Never gives out pages 0 to 5.
class PageAllocator {
 public:
  explicit PageAllocator(Transaction& transaction) : transaction_(transaction) {}

  // A page of zeros that nobody uses, from inside the file where there is one, else behind its end.
  std::uint32_t allocate();
  // Gives a page back: its first four bytes become 0, its bit in the map is set.
  void release(std::uint32_t number);

 private:
  Transaction& transaction_;
  // ... (a hint where the search for a free page goes on)
  std::uint32_t searchFrom_ = 0;
};

}  // namespace jet::write
