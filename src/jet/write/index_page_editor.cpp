#include "jet/write/index_page_editor.h"

#include <algorithm>

#include "jet/encode/bytes.h"
#include "jet/error.h"

namespace jet::write {

namespace {

using encode::IndexPageWriter;
using encode::pageSize;

constexpr std::size_t rowSize = IndexPageWriter::rowSize, childSize = IndexPageWriter::childSize;
constexpr std::uint32_t entriesStart = pageSize - IndexPageWriter::capacity;

void setBit(std::span<std::uint8_t> bytes, std::uint16_t end, bool value) {
  const std::size_t bit = end - entriesStart;
  std::uint8_t& byte = bytes[jet4.indexBitmap + bit / 8];
  const unsigned mask = 1u << bit % 8;
  byte = static_cast<std::uint8_t>(value ? byte | mask : byte & ~mask);
}

// The page's layout follows the change, so that nobody has to read it anew.
class LayoutKeeper {
 public:
  LayoutKeeper(Transaction& transaction, const PageRef& page)
      : transaction_(transaction),
        number_(page->number),
        layout_(std::move(page->indexLayout)),
        bytes_(transaction.change(number_, number_)) {}

  IndexLayout& layout() { return *layout_; }
  std::span<std::uint8_t> bytes() { return bytes_; }
  std::uint32_t end() const { return layout_->ends.empty() ? entriesStart : layout_->ends.back(); }
  // Where the bytes begin that an entry has for itself. What all share stands before the first.
  std::uint32_t ownStart(std::size_t entry) const {
    return entry == 0 ? entriesStart + layout_->prefixLength : layout_->ends[entry - 1];
  }
  void setBits(std::size_t first, bool value) {
    for (std::size_t i = first; i < layout_->ends.size(); ++i) setBit(bytes_, layout_->ends[i], value);
  }
  void finish() {
    encode::put16(bytes_, 2, pageSize - end());
    encode::put16(bytes_, jet4.indexPrefixLength, layout_->prefixLength);
    transaction_.file().page(number_, number_)->indexLayout = std::move(layout_);
  }

 private:
  Transaction& transaction_;
  std::uint32_t number_;
  std::unique_ptr<IndexLayout> layout_;
  std::span<std::uint8_t> bytes_;
};

std::size_t commonStart(std::string_view left, std::string_view right) {
  const std::size_t most = std::min(left.size(), right.size());
  const auto difference =
      std::mismatch(left.begin(), left.begin() + static_cast<std::ptrdiff_t>(most), right.begin());
  return static_cast<std::size_t>(difference.first - left.begin());
}

// Bytes that every entry must have for itself: the last of its row, and the child.
std::size_t leastOwn(const IndexContent& content) { return content.isLeaf() ? 1 : 1 + childSize; }

// How many bytes all entries can share if each keeps at least `own` for itself.
std::size_t sharedBytes(const IndexContent& content, std::size_t own) {
  if (!content.mayShare || content.entries.size() < 2) return 0;
  std::size_t shared = pageSize;
  for (const std::string& entry : content.entries) {
    shared = std::min({shared, commonStart(content.entries.front(), entry), entry.size() - own});
  }
  return shared;
}

std::size_t packedSize(const IndexContent& content, std::size_t shared) {
  std::size_t size = shared;
  for (const std::string& entry : content.entries) size += entry.size() - shared;
  return size;
}

// The bytes that the first i entries of a sequence need on a page, for each i.
template <typename Iterator>
std::vector<std::size_t> packedSizes(Iterator first, Iterator last, bool mayShare, std::size_t own) {
  std::vector<std::size_t> sizes{0};
  std::size_t total = 0, shared = pageSize, count = 0;
  for (Iterator entry = first; entry != last; ++entry) {
    total += entry->size();
    shared = mayShare ? std::min({shared, commonStart(*first, *entry), entry->size() - own}) : 0;
    sizes.push_back(total - shared * count++);
  }
  return sizes;
}

}  // namespace

bool insertInPlace(Transaction& transaction, const PageRef& page, std::size_t position,
                   std::string_view entry) {
  const IndexLayout& known = *page->indexLayout;
  const std::size_t shared = known.prefixLength;
  if (shared > 0) {
    const std::string_view prefix(reinterpret_cast<const char*>(page->bytes.data()) + entriesStart, shared);
    if (!entry.starts_with(prefix)) return false;
    if (entry.size() < shared + 1 + (known.leaf ? 0 : childSize)) return false;
    entry.remove_prefix(shared);
  }
  const std::uint32_t oldEnd = known.ends.empty() ? entriesStart : known.ends.back();
  if (oldEnd + entry.size() > pageSize) return false;

  LayoutKeeper keeper(transaction, page);
  auto& ends = keeper.layout().ends;
  const std::span<std::uint8_t> bytes = keeper.bytes();
  const std::uint32_t start = keeper.ownStart(position);
  keeper.setBits(position, false);
  std::copy_backward(bytes.begin() + start, bytes.begin() + oldEnd,
                     bytes.begin() + oldEnd + static_cast<std::ptrdiff_t>(entry.size()));
  std::ranges::copy(entry, bytes.begin() + start);
  ends.insert(ends.begin() + static_cast<std::ptrdiff_t>(position), static_cast<std::uint16_t>(start));
  for (std::size_t i = position; i < ends.size(); ++i) {
    ends[i] = static_cast<std::uint16_t>(ends[i] + entry.size());
  }
  keeper.setBits(position, true);
  keeper.finish();
  return true;
}

bool eraseInPlace(Transaction& transaction, const PageRef& page, std::size_t position) {
  const IndexLayout& known = *page->indexLayout;
  if (known.ends.size() < 2) return false;
  // A single entry has nobody to share with.
  if (known.prefixLength > 0 && known.ends.size() == 2) return false;

  LayoutKeeper keeper(transaction, page);
  auto& ends = keeper.layout().ends;
  const std::span<std::uint8_t> bytes = keeper.bytes();
  const std::uint32_t start = keeper.ownStart(position);
  const std::uint32_t length = ends[position] - start, oldEnd = keeper.end();
  keeper.setBits(position, false);
  std::copy(bytes.begin() + start + length, bytes.begin() + oldEnd, bytes.begin() + start);
  std::fill(bytes.begin() + oldEnd - length, bytes.begin() + oldEnd, std::uint8_t{0});
  ends.erase(ends.begin() + static_cast<std::ptrdiff_t>(position));
  for (std::size_t i = position; i < ends.size(); ++i) ends[i] = static_cast<std::uint16_t>(ends[i] - length);
  keeper.setBits(position, true);
  keeper.finish();
  return true;
}

std::string_view IndexContent::keyAndRow(std::size_t entry) const {
  const std::string& bytes = entries[entry];
  return std::string_view(bytes).substr(0, bytes.size() - (isLeaf() ? 0 : childSize));
}

void IndexContent::describe(std::size_t entry, std::string_view keyAndRow) {
  entries[entry].replace(0, entries[entry].size() - childSize, keyAndRow);
}

std::string nodeEntry(std::string_view keyAndRow, std::uint32_t child) {
  std::string entry(keyAndRow);
  entry.push_back(static_cast<char>(child >> 24));
  encode::append24BigEndian(entry, child & 0xFFFFFF);
  return entry;
}

std::uint32_t childOf(std::string_view nodeEntry) {
  std::uint32_t child = 0;
  for (const char byte : nodeEntry.substr(nodeEntry.size() - childSize)) {
    child = child << 8 | static_cast<std::uint8_t>(byte);
  }
  return child;
}

IndexContent takeApart(const PageRef& page, const IndexPage& view) {
  IndexContent content;
  content.entries.resize(view.count());
  for (std::size_t i = 0; i < view.count(); ++i) {
    view.keyAndRow(i, content.entries[i]);
    if (!view.isLeaf()) content.entries[i] = nodeEntry(content.entries[i], view.child(i));
  }
  // Some writers leave the level of a node at 0.
  const std::uint8_t level =
      view.isLeaf() ? 0 : std::max<std::uint8_t>(page->bytes[IndexPageWriter::levelOffset], 1);
  content.links = {.previous = view.previous(), .next = view.next(), .tail = view.tail(), .level = level};
  content.mayShare = view.isLeaf() || page->indexLayout->prefixLength > 0;
  return content;
}

bool fitsOnPage(const IndexContent& content) {
  return packedSize(content, 0) <= IndexPageWriter::capacity ||
         packedSize(content, sharedBytes(content, leastOwn(content))) <= IndexPageWriter::capacity;
}

void putTogether(Transaction& transaction, std::uint32_t page, std::uint32_t owner,
                 const IndexContent& content) {
  std::size_t shared = 0;
  if (packedSize(content, 0) > IndexPageWriter::capacity) {
    // Better bytes of the keys alone: not every reader expects a row that is shared in part.
    const std::size_t behindKey = rowSize + (content.isLeaf() ? 0 : childSize);
    shared = sharedBytes(content, behindKey);
    if (packedSize(content, shared) > IndexPageWriter::capacity)
      shared = sharedBytes(content, leastOwn(content));
  }
  IndexPageWriter writer;
  std::size_t cutOff = 0;
  for (const std::string& entry : content.entries) {
    writer.append(std::string_view(entry).substr(cutOff));
    cutOff = shared;
  }
  IndexPageWriter::Links links = content.links;
  links.shared = static_cast<std::uint16_t>(shared);
  writer.write(transaction.change(page, page), owner, links);
}

std::size_t chooseCut(const IndexContent& content, std::size_t changed, std::uint32_t page) {
  const auto& entries = content.entries;
  const std::size_t goesUp = content.isLeaf() ? 0 : 1;
  const auto left = packedSizes(entries.begin(), entries.end(), content.mayShare, leastOwn(content));
  const auto right = packedSizes(entries.rbegin(), entries.rend(), content.mayShare, leastOwn(content));
  const auto larger = [&](std::size_t cut) {
    return std::max(left[cut - goesUp], right[entries.size() - cut]);
  };
  const std::size_t first = 1 + goesUp;
  std::size_t best = 0;
  for (std::size_t cut = first; cut < entries.size(); ++cut) {
    if (best == 0 || larger(cut) < larger(best)) best = cut;
  }
  if (best == 0 || larger(best) > IndexPageWriter::capacity) {
    throw Error(ErrorKind::Damaged, "the entries of an index page are too long", page);
  }
  const bool growsAtEnd = content.links.next == 0 && changed + 1 == entries.size();
  const bool growsAtStart = content.links.previous == 0 && changed == 0;
  if (growsAtEnd && larger(entries.size() - 1) <= IndexPageWriter::capacity) return entries.size() - 1;
  if (growsAtStart && larger(first) <= IndexPageWriter::capacity) return first;
  return best;
}

}  // namespace jet::write
