#include "jet/create/long_values.h"

#include <algorithm>

#include "jet/encode/bytes.h"
#include "jet/encode/data_page_writer.h"
#include "jet/encode/long_value_encoder.h"

namespace jet::create {

void LongValueStore::append(Bytes& target, std::span<const std::uint8_t> content, bool inlineAllowed) {
  const LongValueKind kind = kindOfLongValue(content.size(), inlineAllowed);
  std::uint32_t pointer = 0;
  if (kind == LongValueKind::OneRow) pointer = storeRow(content);
  if (kind == LongValueKind::Chain) pointer = storeChain(content);
  appendLongValue(target, kind, content, pointer);
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
  const std::size_t rows = (content.size() + chainRowData - 1) / chainRowData;
  for (std::size_t row = 0; row < rows; ++row) addPage();
  for (std::size_t row = 0; row < rows; ++row) {
    const auto part =
        content.subspan(row * chainRowData, std::min(chainRowData, content.size() - row * chainRowData));
    Bytes bytes(chainLinkLength + part.size());
    put32(bytes, 0, row + 1 < rows ? owned_[first + row + 1] << 8 : 0);
    std::ranges::copy(part, bytes.begin() + chainLinkLength);
    DataPageWriter(pages_->page(owned_[first + row])).append(bytes);
  }
  return owned_[first] << 8;
}

void LongValueStore::release(std::span<const std::uint8_t> stored) {
  if (stored.empty()) return;
  const auto reference = LongValueReference::read({stored, 0});
  if (reference.kind == LongValueKind::Inline) return;
  std::uint32_t pointer = reference.pointer;
  while (pointer != 0) {
    DataPageWriter page(pages_->page(pointer >> 8));
    const std::uint32_t next =
        reference.kind == LongValueKind::Chain ? get32(page.row(pointer & 0xFF), 0) : 0;
    page.erase(pointer & 0xFF);
    pointer = next;
  }
}

}  // namespace jet::create
