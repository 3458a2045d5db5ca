#include "jet/format.h"

namespace jet {

const Format jet3 = {
    .version = 3,
    .pageSize = 2048,
    .maskedHeaderLength = 126,
    .passwordLength = 20,
    .commitBytesOffset = 0x600,
    .dataOwner = 4,
    .dataRowCount = 8,
    .dataSlots = 10,
    .tdefLength = 8,
    .tdefRowCount = 12,
    .tdefAutoNumber = 16,
    .tdefType = 20,
    .tdefMaxColumns = 21,
    .tdefVariableColumns = 23,
    .tdefColumnCount = 25,
    .tdefLogicalIndexCount = 27,
    .tdefRealIndexCount = 31,
    .tdefOwnedPages = 35,
    .tdefFreePages = 39,
    .tdefSections = 43,
    .entryCountSize = 8,
    .columnSize = 18,
    .columnNumber = 1,
    .columnVariableIndex = 3,
    .columnOrdinal = 5,
    .columnSortOrder = 9,
    .columnFlags = 13,
    .columnFixedOffset = 14,
    .columnLength = 16,
    .nameLengthSize = 1,
    .realIndexSize = 39,
    .realIndexColumns = 0,
    .realIndexOwnedPages = 30,
    .realIndexRoot = 34,
    .realIndexFlags = 38,
    .logicalIndexSize = 20,
    .logicalIndexNumber = 0,
    .indexPrevious = 8,
    .indexNext = 12,
    .indexTail = 16,
    .indexPrefixLength = 20,
    .indexBitmap = 22,
    .indexBitmapLength = 226,
    .indexEntries = 248,
};

const Format jet4 = {
    .version = 4,
    .pageSize = 4096,
    .maskedHeaderLength = 128,
    .passwordLength = 40,
    .commitBytesOffset = 0xE00,
    .dataOwner = 4,
    .dataRowCount = 12,
    .dataSlots = 14,
    .tdefLength = 8,
    .tdefRowCount = 16,
    .tdefAutoNumber = 20,
    .tdefType = 40,
    .tdefMaxColumns = 41,
    .tdefVariableColumns = 43,
    .tdefColumnCount = 45,
    .tdefLogicalIndexCount = 47,
    .tdefRealIndexCount = 51,
    .tdefOwnedPages = 55,
    .tdefFreePages = 59,
    .tdefSections = 63,
    .entryCountSize = 12,
    .columnSize = 25,
    .columnNumber = 5,
    .columnVariableIndex = 7,
    .columnOrdinal = 9,
    .columnSortOrder = 11,
    .columnFlags = 15,
    .columnFixedOffset = 21,
    .columnLength = 23,
    .nameLengthSize = 2,
    .realIndexSize = 52,
    .realIndexColumns = 4,
    .realIndexOwnedPages = 34,
    .realIndexRoot = 38,
    .realIndexFlags = 46,
    .logicalIndexSize = 28,
    .logicalIndexNumber = 4,
    .indexPrevious = 12,
    .indexNext = 16,
    .indexTail = 20,
    .indexPrefixLength = 24,
    .indexBitmap = 27,
    .indexBitmapLength = 453,
    .indexEntries = 480,
};

std::optional<std::uint16_t> sizeOf(ColumnType type) {
  switch (type) {
    case ColumnType::Boolean:
    case ColumnType::Byte:
      return 1;
    case ColumnType::Integer:
      return 2;
    case ColumnType::Long:
    case ColumnType::Single:
      return 4;
    case ColumnType::Currency:
    case ColumnType::Double:
    case ColumnType::DateTime:
      return 8;
    case ColumnType::Guid:
      return 16;
    case ColumnType::Numeric:
      return 17;
    default:
      return std::nullopt;
  }
}

}  // namespace jet
