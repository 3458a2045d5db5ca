#pragma once

#include <cstdint>
#include <optional>

namespace jet {

// Page numbers are part of 4-byte pointers whose lowest byte is the row.
inline constexpr std::uint64_t largestPageCount = 1u << 24;
// Holds the file's map of free pages, and the maps of tables.
inline constexpr std::uint32_t globalMapPage = 1;

// Every size and offset that differs between the two versions of the format stands here and nowhere else.
// Offsets of one structure are from its own start.
struct Format {
  int version;  // 3 or 4
  std::uint32_t pageSize;

  // Page 0
  std::uint32_t maskedHeaderLength;
  std::uint32_t passwordLength;
  std::uint32_t commitBytesOffset;  // 512 bytes

  // Data pages
  std::uint32_t dataOwner;
  std::uint32_t dataRowCount;
  std::uint32_t dataSlots;

  // Table definitions, offsets in the joined string
  std::uint32_t tdefLength;
  std::uint32_t tdefRowCount;
  std::uint32_t tdefAutoNumber;
  std::uint32_t tdefType;
  std::uint32_t tdefMaxColumns;
  std::uint32_t tdefVariableColumns;
  std::uint32_t tdefColumnCount;
  std::uint32_t tdefLogicalIndexCount;
  std::uint32_t tdefRealIndexCount;
  std::uint32_t tdefOwnedPages;
  std::uint32_t tdefFreePages;
  std::uint32_t tdefSections;
  std::uint32_t entryCountSize;

  // Column descriptors
  std::uint32_t columnSize;
  std::uint32_t columnNumber;
  std::uint32_t columnVariableIndex;
  std::uint32_t columnOrdinal;
  std::uint32_t columnSortOrder;  // LCID; numeric: precision, scale
  std::uint32_t columnFlags;
  std::uint32_t columnFixedOffset;
  std::uint32_t columnLength;
  std::uint32_t nameLengthSize;  // 1 or 2 bytes before each name

  // Indexes
  std::uint32_t realIndexSize;
  std::uint32_t realIndexColumns;
  std::uint32_t realIndexOwnedPages;
  std::uint32_t realIndexRoot;
  std::uint32_t realIndexFlags;
  std::uint32_t logicalIndexSize;
  std::uint32_t logicalIndexNumber;

  // Index pages
  std::uint32_t indexPrevious;
  std::uint32_t indexNext;
  std::uint32_t indexTail;
  std::uint32_t indexPrefixLength;  // u16 in version 4, u8 in version 3
  std::uint32_t indexBitmap;
  std::uint32_t indexBitmapLength;
  std::uint32_t indexEntries;
};

extern const Format jet3;
extern const Format jet4;

inline constexpr std::uint16_t sortOrderGeneral = 0x0409;

enum class PageType : std::uint8_t {
  Header = 0x00,
  Data = 0x01,
  TableDefinition = 0x02,
  IndexNode = 0x03,
  IndexLeaf = 0x04,
  UsageBitmap = 0x05,
};

enum class ColumnType : std::uint8_t {
  Boolean = 1,
  Byte = 2,
  Integer = 3,
  Long = 4,
  Currency = 5,
  Single = 6,
  Double = 7,
  DateTime = 8,
  Binary = 9,
  Text = 10,
  Ole = 11,
  Memo = 12,
  Guid = 15,
  Numeric = 16,
};

// Bytes that a value of this type takes in a row, also the length that its column states (a truth value: 1,
// though it takes none). nullopt where only the column's definition knows.
std::optional<std::uint16_t> sizeOf(ColumnType type);

namespace column_flag {
inline constexpr std::uint8_t fixed = 0x01;
inline constexpr std::uint8_t updatable = 0x02;
inline constexpr std::uint8_t autoNumber = 0x04;
inline constexpr std::uint8_t system = 0x10;
inline constexpr std::uint8_t securityId = 0x20;
inline constexpr std::uint8_t autoGuid = 0x40;
inline constexpr std::uint8_t hyperlink = 0x80;
}  // namespace column_flag

namespace slot_flag {
inline constexpr std::uint16_t offsetMask = 0x1FFF;
inline constexpr std::uint16_t pointer = 0x4000;  // the row has moved, the slot holds where to
inline constexpr std::uint16_t body = 0x8000;     // a moved row, reached through its pointer slot
}  // namespace slot_flag

namespace index_flag {
inline constexpr std::uint8_t unique = 0x01;
inline constexpr std::uint8_t ignoreNulls = 0x02;
inline constexpr std::uint8_t required = 0x08;
}  // namespace index_flag

}  // namespace jet
