#pragma once

#include <cstdint>
#include <span>

#include "jet/page_file.h"
#include "jet/value.h"

namespace jet {

// The bytes of a memo or OLE value. Where they stand in one piece they are a view of the row or of `page`,
// else `joined` owns them.
struct LongValue {
  std::span<const std::uint8_t> bytes;
  PageRef page;
  Bytes joined;
};

// `reference` is what the row holds, from its 12-byte reference on; `from` is the row's page.
// Errors: Damaged.
void readLongValue(const PageFile& file, std::span<const std::uint8_t> reference, std::uint32_t from,
                   LongValue& target);

}  // namespace jet
