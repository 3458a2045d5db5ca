#include "jet/index_page.h"

#include <algorithm>
#include <bit>

namespace jet {

namespace {

constexpr std::size_t shortestLeafEntry = 1 + 4;
constexpr std::size_t shortestNodeEntry = 1 + 4 + 4;

std::uint16_t readPrefixLength(const ByteReader& bytes, const Format& format) {
  return format.version == 3 ? bytes.u8(format.indexPrefixLength) : bytes.u16(format.indexPrefixLength);
}

std::vector<std::uint16_t> readEnds(const ByteReader& bytes, const Format& format) {
  std::vector<std::uint16_t> ends;
  const auto bitmap = bytes.slice(format.indexBitmap, format.indexBitmapLength);
  std::size_t count = 0;
  for (const std::uint8_t byte : bitmap) count += static_cast<std::size_t>(std::popcount(byte));
  ends.reserve(count);
  for (std::size_t i = 0; i < bitmap.size(); ++i) {
    for (unsigned bits = bitmap[i]; bits != 0; bits &= bits - 1) {
      const std::size_t end = format.indexEntries + 8 * i + static_cast<std::size_t>(std::countr_zero(bits));
      bytes.check(end <= bytes.size(), "an index entry ends beyond the page");
      ends.push_back(static_cast<std::uint16_t>(end));
    }
  }
  return ends;
}

// Entries may share bytes of their row, but never all of key and row, and never bytes of a child.
void checkLengths(const ByteReader& bytes, const Format& format, const IndexLayout& layout) {
  const std::size_t shortest = layout.leaf ? shortestLeafEntry : shortestNodeEntry;
  const std::size_t leastOwn = layout.leaf ? 1 : 1 + 4;
  std::size_t start = format.indexEntries;
  for (std::size_t i = 0; i < layout.ends.size(); ++i) {
    std::size_t own = layout.ends[i] - start;
    if (i == 0) {
      bytes.check(own >= layout.prefixLength, "an index page shares more than its first entry");
      own -= layout.prefixLength;
    }
    bytes.check(own >= leastOwn && layout.prefixLength + own >= shortest, "an index entry is too short");
    start = layout.ends[i];
  }
}

std::string_view asText(const std::uint8_t* bytes, std::size_t length) {
  return {reinterpret_cast<const char*>(bytes), length};
}

void checkOrder(const ByteReader& bytes, const Format& format, const IndexLayout& layout) {
  const std::size_t child = layout.leaf ? 0 : 4;
  const auto shared = bytes.slice(format.indexEntries, layout.prefixLength);
  std::size_t start = format.indexEntries + layout.prefixLength;
  std::string_view before;
  for (const std::uint16_t end : layout.ends) {
    const auto own = bytes.slice(start, end - start - child);
    const std::string_view entry = asText(own.data(), own.size());
    if (!before.empty() && !(before < entry)) {
      const std::string prefix(asText(shared.data(), shared.size()));
      bytes.check(entriesAscend(prefix + std::string(before), prefix + std::string(entry)),
                  "index entries are out of order");
    }
    before = entry;
    start = end;
  }
}

std::unique_ptr<IndexLayout> readLayout(const Page& page, const Format& format) {
  const ByteReader bytes = page.reader();
  auto layout = std::make_unique<IndexLayout>();
  const std::uint8_t type = bytes.u8(0);
  layout->leaf = type == static_cast<std::uint8_t>(PageType::IndexLeaf);
  bytes.check(layout->leaf || type == static_cast<std::uint8_t>(PageType::IndexNode),
              "a page of an index was expected");
  layout->owner = bytes.u32(4);
  layout->previous = bytes.u32(format.indexPrevious);
  layout->next = bytes.u32(format.indexNext);
  layout->tail = layout->leaf ? 0 : bytes.u32(format.indexTail);
  layout->ends = readEnds(bytes, format);
  // With a single entry there is nothing to share.
  layout->prefixLength = layout->ends.size() > 1 ? readPrefixLength(bytes, format) : 0;
  checkLengths(bytes, format, *layout);
  checkOrder(bytes, format, *layout);
  bytes.check(layout->leaf || !layout->ends.empty() || layout->tail != 0, "an index node has no children");
  return layout;
}

std::uint32_t bigEndian(std::string_view bytes) {
  std::uint32_t value = 0;
  for (const char byte : bytes) value = value << 8 | static_cast<unsigned char>(byte);
  return value;
}

}  // namespace

bool entriesAscend(std::string_view before, std::string_view after) {
  constexpr std::size_t row = 4;
  return before < after || before.substr(0, before.size() - row) < after.substr(0, after.size() - row);
}

IndexPage::IndexPage(const Page& page, const Format& format, std::uint32_t owner)
    : page_(&page), format_(&format) {
  if (page.indexLayout == nullptr) page.indexLayout = readLayout(page, format);
  layout_ = page.indexLayout.get();
  page.reader().check(layout_->owner == owner, "an index page belongs to another table");
}

std::string_view IndexPage::prefix() const {
  return asText(page_->bytes.data() + format_->indexEntries, layout_->prefixLength);
}

std::string_view IndexPage::rest(std::size_t entry) const {
  const std::size_t start =
      entry == 0 ? format_->indexEntries + layout_->prefixLength : layout_->ends[entry - 1];
  const std::size_t child = layout_->leaf ? 0 : childSize;
  return asText(page_->bytes.data() + start, layout_->ends[entry] - child - start);
}

void IndexPage::append(std::size_t entry, std::size_t length, std::string& target) const {
  target.assign(prefix().substr(0, length));
  if (length > layout_->prefixLength) target += rest(entry).substr(0, length - layout_->prefixLength);
}

void IndexPage::key(std::size_t entry, std::string& target) const { append(entry, keySize(entry), target); }

void IndexPage::keyAndRow(std::size_t entry, std::string& target) const {
  append(entry, sortedSize(entry), target);
}

RowId IndexPage::row(std::size_t entry) const {
  const std::string_view own = rest(entry);
  if (own.size() >= rowSize) return RowId::fromPointer(bigEndian(own.substr(own.size() - rowSize)));
  // The shared bytes reach into the row.
  const std::string_view shared = prefix();
  const std::size_t missing = rowSize - own.size();
  const std::uint32_t head = bigEndian(shared.substr(shared.size() - missing));
  return RowId::fromPointer(head << (8 * own.size()) | bigEndian(own));
}

std::uint32_t IndexPage::child(std::size_t entry) const {
  if (entry >= count()) {
    if (layout_->tail != 0) return layout_->tail;
    entry = count() - 1;
  }
  return page_->reader().u32BigEndian(layout_->ends[entry] - childSize);
}

std::size_t IndexPage::lowerBound(std::string_view probe) const {
  const std::string_view shared = prefix();
  const int order = probe.substr(0, shared.size()).compare(shared.substr(0, probe.size()));
  if (order < 0 || (order == 0 && probe.size() <= shared.size())) return 0;
  if (order > 0) return count();
  probe.remove_prefix(shared.size());
  std::size_t first = 0, last = count();
  while (first < last) {
    const std::size_t middle = (first + last) / 2;
    if (rest(middle) < probe) {
      first = middle + 1;
    } else {
      last = middle;
    }
  }
  return first;
}

bool IndexPage::startsWith(std::size_t entry, std::string_view probe) const {
  const std::string_view shared = prefix();
  if (probe.size() <= shared.size()) return shared.starts_with(probe);
  return probe.starts_with(shared) && rest(entry).starts_with(probe.substr(shared.size()));
}

}  // namespace jet
