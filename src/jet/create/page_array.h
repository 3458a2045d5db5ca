#pragma once

#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "jet/encode/page_size.h"

namespace jet::create {

using namespace encode;  // the bytes of rows, pages and values are the same for new files and old ones

// The pages of a file that is being made, in memory.
class PageArray {
 public:
  // A new page of zeros at the end. Error(Limit) beyond `largestFile`.
  std::uint32_t allocate();
  // Gives a page back: it becomes empty and is marked as free.
  void release(std::uint32_t number);
  const std::vector<std::uint32_t>& released() const { return released_; }
  // Valid until the next `allocate`.
  std::span<std::uint8_t> page(std::uint32_t number) {
    return std::span(bytes_).subspan(std::size_t{number} * pageSize, pageSize);
  }
  std::uint32_t count() const { return static_cast<std::uint32_t>(bytes_.size() / pageSize); }
  // The file; this object is empty afterwards.
  std::vector<std::uint8_t> take() { return std::move(bytes_); }

 private:
  std::vector<std::uint8_t> bytes_;
  std::vector<std::uint32_t> released_;
};

}  // namespace jet::create
