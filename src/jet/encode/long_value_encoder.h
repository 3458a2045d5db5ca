#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "jet/long_value.h"
#include "jet/value.h"

namespace jet::encode {

inline constexpr std::size_t largestInlineValue = 64;  // bytes
inline constexpr std::size_t chainLinkLength = 4;      // pointer to the next row of a chain, before its data
inline constexpr std::size_t chainRowData = 4072;      // bytes of content in each row but the last

// How a content of `length` bytes is stored. Error(Limit) if it is too long.
LongValueKind kindOfLongValue(std::size_t length, bool inlineAllowed);

// Appends the reference; `content` follows it if it is inline.
void appendLongValue(Bytes& target, LongValueKind kind, std::span<const std::uint8_t> content,
                     std::uint32_t pointer);

}  // namespace jet::encode
