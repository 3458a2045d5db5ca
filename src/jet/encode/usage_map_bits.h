#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "jet/encode/page_size.h"

namespace jet::encode {

// A usage map is a row: its kind, then the first page and a bit per page from there on, or the numbers of
// bitmap pages, each for the next `pagesPerBitmap` pages.
inline constexpr std::uint8_t inlineMap = 0, referenceMap = 1;
inline constexpr std::size_t inlineMapHeader = 5;     // kind, first page
inline constexpr std::size_t referenceMapHeader = 1;  // kind
inline constexpr std::size_t usualMapLength = 69;     // 512 pages, or 17 bitmap pages: the largest file
inline constexpr std::size_t bitmapHeader = 4;        // of a bitmap page
inline constexpr std::uint32_t pagesPerBitmap = (pageSize - bitmapHeader) * 8;

inline bool testBit(std::span<const std::uint8_t> bitmap, std::size_t bit) {
  return (bitmap[bit / 8] >> bit % 8 & 1) != 0;
}
inline void setBit(std::span<std::uint8_t> bitmap, std::size_t bit) {
  bitmap[bit / 8] = static_cast<std::uint8_t>(bitmap[bit / 8] | 1u << bit % 8);
}
inline void clearBit(std::span<std::uint8_t> bitmap, std::size_t bit) {
  bitmap[bit / 8] = static_cast<std::uint8_t>(bitmap[bit / 8] & ~(1u << bit % 8));
}

}  // namespace jet::encode
