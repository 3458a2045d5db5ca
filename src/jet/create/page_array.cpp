#include "jet/create/page_array.h"

#include <algorithm>

#include "jet/error.h"

namespace jet::create {

std::uint32_t PageArray::allocate() {
  if (bytes_.size() + pageSize > largestFile) {
    throw Error(ErrorKind::Limit, "the file would grow beyond 2 GiB");
  }
  const std::uint32_t number = count();
  bytes_.resize(bytes_.size() + pageSize);
  return number;
}

void PageArray::release(std::uint32_t number) {
  std::ranges::fill(page(number), std::uint8_t{0});
  released_.push_back(number);
}

}  // namespace jet::create
