#include "jet/encode/index_page_writer.h"

#include <algorithm>

#include "jet/encode/bytes.h"

namespace jet::encode {

void IndexPageWriter::append(std::string_view entry) {
  bytes_.append(entry);
  ends_.push_back(static_cast<std::uint16_t>(bytes_.size()));
}

void IndexPageWriter::write(std::span<std::uint8_t> target, std::uint32_t table, const Links& links) {
  std::ranges::fill(target, std::uint8_t{0});
  target[0] = static_cast<std::uint8_t>(links.level == 0 ? PageType::IndexLeaf : PageType::IndexNode);
  target[1] = 1;
  put16(target, 2, static_cast<std::uint32_t>(capacity - bytes_.size()));
  put32(target, jet4.dataOwner, table);
  put32(target, jet4.indexPrevious, links.previous);
  put32(target, jet4.indexNext, links.next);
  put32(target, jet4.indexTail, links.tail);
  put16(target, jet4.indexPrefixLength, links.shared);
  target[levelOffset] = links.level;
  for (const std::uint16_t end : ends_) {
    std::uint8_t& bits = target[jet4.indexBitmap + end / 8];
    bits = static_cast<std::uint8_t>(bits | 1u << end % 8);
  }
  std::ranges::copy(bytes_, target.begin() + jet4.indexEntries);
  bytes_.clear();
  ends_.clear();
}

}  // namespace jet::encode
