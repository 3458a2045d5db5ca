#include "jet/create/long_values.h"

#include <algorithm>

#include "jet/encode/bytes.h"
#include "jet/encode/data_page_writer.h"
#include "jet/error.h"

namespace jet::create {

namespace {

constexpr std::uint32_t inlineKind = 0x80000000, rowKind = 0x40000000, chainKind = 0, kindMask = 0xC0000000;
constexpr std::size_t largestSingleRow = 4076;
constexpr std::size_t chainData = 4072;  // per row, behind the pointer to the next
constexpr std::size_t largestValue = 0x3FFFFFFF;

void appendReference(Bytes& target, std::size_t length, std::uint32_t kind, std::uint32_t pointer) {
  append32(target, static_cast<std::uint32_t>(length) | kind);
  append32(target, pointer);
  append32(target, 0);
}

}  // namespace

void LongValueStore::append(Bytes& target, std::span<const std::uint8_t> content, bool inlineAllowed) {
  if (content.size() > largestValue) throw Error(ErrorKind::Limit, "a long value is larger than 1 GiB");
  if (content.empty() || (inlineAllowed && content.size() <= largestInline)) {
    appendReference(target, content.size(), inlineKind, 0);
    target.insert(target.end(), content.begin(), content.end());
  } else if (content.size() <= largestSingleRow) {
    appendReference(target, content.size(), rowKind, storeRow(content));
  } else {
    appendReference(target, content.size(), chainKind, storeChain(content));
  }
}

std::uint32_t LongValueStore::addPage() {
  owned_.push_back(pages_->allocate());
  DataPageWriter::format(pages_->page(owned_.back()), DataPageWriter::lvalOwner);
  return owned_.back();
}

std::uint32_t LongValueStore::storeRow(std::span<const std::uint8_t> content) {
  if (owned_.empty() || !DataPageWriter(pages_->page(owned_.back())).fits(content.size())) addPage();
  const std::uint32_t page = owned_.back();
  return page << 8 | DataPageWriter(pages_->page(page)).append(content);
}

// Every row of a chain fills a page of its own; the pages follow each other.
std::uint32_t LongValueStore::storeChain(std::span<const std::uint8_t> content) {
  const std::size_t first = owned_.size();
  const std::size_t rows = (content.size() + chainData - 1) / chainData;
  for (std::size_t row = 0; row < rows; ++row) addPage();
  for (std::size_t row = 0; row < rows; ++row) {
    const auto part = content.subspan(row * chainData, std::min(chainData, content.size() - row * chainData));
    Bytes bytes;
    append32(bytes, row + 1 < rows ? owned_[first + row + 1] << 8 : 0);
    bytes.insert(bytes.end(), part.begin(), part.end());
    DataPageWriter(pages_->page(owned_[first + row])).append(bytes);
  }
  return owned_[first] << 8;
}

void LongValueStore::release(std::span<const std::uint8_t> stored) {
  if (stored.size() < referenceLength) return;
  const std::uint32_t kind = get32(stored, 0) & kindMask;
  if (kind == inlineKind) return;
  std::uint32_t pointer = get32(stored, 4);
  while (pointer != 0) {
    DataPageWriter page(pages_->page(pointer >> 8));
    const std::uint32_t next = kind == chainKind ? get32(page.row(pointer & 0xFF), 0) : 0;
    page.erase(pointer & 0xFF);
    pointer = next;
  }
}

}  // namespace jet::create
