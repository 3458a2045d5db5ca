#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "jet/page_file.h"
#include "jet/value.h"

namespace jet {

// Where the content of a memo or OLE value stands.
enum class LongValueKind : std::uint32_t { Chain = 0, OneRow = 1, Inline = 2 };

// What the row holds for it, as stored: 12 bytes, then the content if it is inline.
struct LongValueReference {
  static constexpr std::size_t size = 12;

  LongValueKind kind{};
  std::uint32_t length = 0;   // of the content, in bytes
  std::uint32_t pointer = 0;  // to the row with the content, or to the first of the chain

  // Error(Damaged) for a kind that does not exist.
  static LongValueReference read(const ByteReader& stored);
};

// The bytes of a memo or OLE value. Where they stand in one piece they are a view of the row or of `page`,
// else `joined` owns them.
struct LongValue {
  std::span<const std::uint8_t> bytes;
  PageRef page;
  Bytes joined;
};

// `stored` is what the row holds; `from` is the row's page. Errors: Damaged.
void readLongValue(const PageFile& file, std::span<const std::uint8_t> stored, std::uint32_t from,
                   LongValue& target);

}  // namespace jet
