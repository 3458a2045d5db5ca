#include "jet/write/row_builder.h"

#include <string>

#include "jet/encode/long_value_encoder.h"
#include "jet/error.h"
#include "jet/text_codec.h"

namespace jet::write {

using namespace encode;

namespace {

[[noreturn]] void refuse(const char* reason, const ColumnDefinition& column) {
  throw Error(ErrorKind::NotWritable, std::string(reason) + ": column " + toUtf8(column.name));
}

}  // namespace

RowBuilder::RowBuilder(Transaction& transaction, PageAllocator& allocator, const TableDefinition& definition)
    : definition_(definition),
      fixedBytes_(fixedBytesOf(definition)),
      variableOrder_(variableOrder(definition)),
      contents_(definition.columns.size()),
      abandoned_(definition.columns.size()) {
  for (const ColumnDefinition& column : definition.columns) {
    if (!column.isLongValue()) continue;
    longValues_.try_emplace(column.number, transaction, allocator, column, definition.page);
  }
}

void RowBuilder::begin() {
  for (Bytes& stored : abandoned_) stored.clear();
}

void RowBuilder::set(std::size_t position, const Value& value) {
  const ColumnDefinition& column = definition_.columns[position];
  ColumnContent& content = contents_[position];
  content.set(value, column);
  if (!content.present || !column.isFixed() || column.type == ColumnType::Boolean) return;
  if (content.bytes.size() != column.length) refuse("a text or binary of fixed length", column);
}

void RowBuilder::keep(std::size_t position, const Row& row) {
  const ColumnDefinition& column = definition_.columns[position];
  ColumnContent& content = contents_[position];
  content.isReference = column.isLongValue();
  content.bytes.clear();
  if (column.type == ColumnType::Boolean) {
    content.present = std::get<bool>(row.value(position));
    return;
  }
  const auto stored = row.stored(position);
  content.present = stored.has_value();
  if (stored) content.bytes.assign(stored->begin(), stored->end());
}

void RowBuilder::abandon(std::size_t position, const Row& row) {
  if (!definition_.columns[position].isLongValue()) return;
  if (const auto stored = row.stored(position)) abandoned_[position].assign(stored->begin(), stored->end());
}

// Whether a long value without pages of its own would need some.
bool RowBuilder::leavesRow(std::size_t position) const {
  const ColumnContent& content = contents_[position];
  if (content.bytes.empty()) return false;
  if (content.isReference) return !inlineAllowed_;
  return kindOfLongValue(content.bytes.size(), inlineAllowed_) != LongValueKind::Inline;
}

void RowBuilder::requirePlace() {
  inlineAllowed_ = allowsInline(definition_, fixedBytes_, contents_);
  for (std::size_t i = 0; i < contents_.size(); ++i) {
    const ColumnDefinition& column = definition_.columns[i];
    if (column.isLongValue() && column.longValueOwnedMap == 0 && leavesRow(i)) {
      refuse("there is no map for the pages of its long values", column);
    }
  }
}

void RowBuilder::releaseAbandoned(RowId row) {
  for (std::size_t i = 0; i < abandoned_.size(); ++i) {
    if (abandoned_[i].empty()) continue;
    longValues_.at(definition_.columns[i].number).release(abandoned_[i], row.page);
  }
}

Bytes RowBuilder::build() {
  return assembleRow(
      definition_, fixedBytes_, variableOrder_, contents_, inlineAllowed_,
      [&](Bytes& target, const ColumnDefinition& column, std::span<const std::uint8_t> content) {
        longValues_.at(column.number).append(target, content, inlineAllowed_);
      });
}

}  // namespace jet::write
