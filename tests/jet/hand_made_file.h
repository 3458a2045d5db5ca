#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/memory_files.h"
#include "jet/format.h"
#include "jet/header.h"
#include "jet/page_file.h"

namespace jet::test {

// A file put together byte by byte, for what neither Access nor our own creator leaves in small files.
class HandMade {
 public:
  HandMade(const Format& format, std::uint32_t pages) : format_(format), content_(format.pageSize * pages) {
    constexpr std::string_view name = "Standard Jet DB";
    content_[1] = 1;
    std::copy(name.begin(), name.end(), content_.begin() + 4);
    content_[0x14] = format.version == 4 ? 1 : 0;
    maskHeader(std::span(content_).first(format.pageSize), format);
  }

  void put(std::uint32_t page, std::size_t offset, std::uint64_t value, unsigned bytes) {
    for (unsigned i = 0; i < bytes; ++i) {
      content_[page * format_.pageSize + offset + i] = static_cast<std::uint8_t>(value >> (8 * i));
    }
  }
  void setType(std::uint32_t page, PageType type) {
    put(page, 0, static_cast<std::uint8_t>(type), 1);
    put(page, 1, 1, 1);
  }
  void dataPage(std::uint32_t page, std::uint32_t owner, const std::vector<std::vector<std::uint8_t>>& rows) {
    setType(page, PageType::Data);
    put(page, format_.dataOwner, owner, 4);
    put(page, format_.dataRowCount, rows.size(), 2);
    std::size_t start = format_.pageSize;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      start -= rows[i].size();
      std::copy(rows[i].begin(), rows[i].end(),
                content_.begin() + static_cast<std::ptrdiff_t>(page * format_.pageSize + start));
      put(page, format_.dataSlots + 2 * i, start, 2);
    }
  }
  const std::vector<std::uint8_t>& content() const { return content_; }
  PageFile open(MemoryFiles& files) const {
    files.put("hand.mdb", content_);
    return {files, "hand.mdb", 1u << 20};
  }

 private:
  const Format& format_;
  std::vector<std::uint8_t> content_;
};

inline std::vector<std::uint8_t> inlineMap(std::uint32_t start, std::vector<std::uint8_t> bits) {
  std::vector<std::uint8_t> row{0};
  for (unsigned i = 0; i < 4; ++i) row.push_back(static_cast<std::uint8_t>(start >> (8 * i)));
  row.insert(row.end(), bits.begin(), bits.end());
  return row;
}

inline std::vector<std::uint8_t> referenceMap(const std::vector<std::uint32_t>& pages) {
  std::vector<std::uint8_t> row{1};
  for (const std::uint32_t page : pages) {
    for (unsigned i = 0; i < 4; ++i) row.push_back(static_cast<std::uint8_t>(page >> (8 * i)));
  }
  return row;
}

// A row with a long and variable values in the form of Access 97, where offsets are single bytes and rows
// longer than 256 bytes carry a table of the places where another 256 begins.
inline std::vector<std::uint8_t> jet3Row(std::int32_t number, const std::vector<std::string>& texts) {
  std::vector<std::uint8_t> row{static_cast<std::uint8_t>(texts.size() + 1)};
  for (unsigned i = 0; i < 4; ++i) row.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
  std::vector<std::size_t> offsets;
  for (const std::string& text : texts) {
    offsets.push_back(row.size());
    row.insert(row.end(), text.begin(), text.end());
  }
  offsets.push_back(row.size());
  // The jump table's own bytes count in the row's length.
  std::size_t jumps = 0;
  while ((row.size() + offsets.size() + jumps + 2 - 1) / 256 > jumps) ++jumps;
  for (std::size_t i = offsets.size(); i-- > 0;) row.push_back(static_cast<std::uint8_t>(offsets[i]));
  for (std::size_t border = jumps; border > 0; --border) {
    std::size_t first = 0;
    while (first < offsets.size() && offsets[first] < 256 * border) ++first;
    row.push_back(first < offsets.size() ? static_cast<std::uint8_t>(first) : std::uint8_t{0xFF});
  }
  row.push_back(static_cast<std::uint8_t>(texts.size()));
  row.push_back(static_cast<std::uint8_t>((1u << (texts.size() + 1)) - 1));
  return row;
}

}  // namespace jet::test
