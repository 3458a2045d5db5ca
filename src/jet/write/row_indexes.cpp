#include "jet/write/row_indexes.h"

#include <algorithm>

#include "jet/encode/index_page_writer.h"
#include "jet/error.h"
#include "jet/write/writability.h"

namespace jet::write {

using encode::makeRowKey;

RowIndexes::RowIndexes(Transaction& transaction, PageAllocator& allocator, const TableDefinition& definition)
    : definition_(definition) {
  trees_.reserve(definition.indexes.size());
  for (const IndexDefinition& index : definition.indexes) {
    trees_.push_back({IndexWriter(transaction, allocator, definition.page, index), {}, {}});
  }
}

bool RowIndexes::touches(std::size_t index, const std::vector<bool>& columns) const {
  return std::ranges::any_of(definition_.indexes[index].columns,
                             [&](const IndexColumn& part) { return columns[part.column]; });
}

void RowIndexes::planInsert(std::span<const Value> after) {
  for (std::size_t i = 0; i < trees_.size(); ++i) {
    Tree& tree = trees_[i];
    makeRowKey(definition_, definition_.indexes[i], after, tree.after);
    tree.leaves = false;
    tree.enters = tree.after.stored;
    checkNewKey(i);
  }
}

void RowIndexes::planErase(std::span<const Value> before) {
  for (std::size_t i = 0; i < trees_.size(); ++i) {
    Tree& tree = trees_[i];
    makeRowKey(definition_, definition_.indexes[i], before, tree.before);
    tree.leaves = tree.before.stored;
    tree.enters = false;
  }
}

void RowIndexes::planUpdate(std::span<const Value> before, std::span<const Value> after,
                            const std::vector<bool>& changed) {
  for (std::size_t i = 0; i < trees_.size(); ++i) {
    Tree& tree = trees_[i];
    tree.leaves = tree.enters = false;
    if (!touches(i, changed)) continue;
    makeRowKey(definition_, definition_.indexes[i], before, tree.before);
    makeRowKey(definition_, definition_.indexes[i], after, tree.after);
    if (tree.before.stored == tree.after.stored && tree.before.bytes == tree.after.bytes) continue;
    tree.leaves = tree.before.stored;
    tree.enters = tree.after.stored;
    checkNewKey(i);
  }
}

void RowIndexes::checkNewKey(std::size_t index) const {
  const Tree& tree = trees_[index];
  const IndexDefinition& definition = definition_.indexes[index];
  requireKeyValues(definition, tree.after);
  if (!tree.enters) return;
  if (tree.after.bytes.size() > encode::IndexPageWriter::longestKey) {
    throw Error(ErrorKind::Limit, "a key is too long: " + indexLabel(definition_, index));
  }
  if (definition.isUnique() && !tree.after.exempt && tree.writer.contains(tree.after.bytes)) {
    throw Error(ErrorKind::Constraint, "a key stands twice: " + indexLabel(definition_, index));
  }
}

void RowIndexes::apply(RowId row, DefinitionCounters& counters) {
  for (std::size_t i = 0; i < trees_.size(); ++i) {
    Tree& tree = trees_[i];
    if (tree.leaves) tree.writer.erase(tree.before.bytes, row);
    if (tree.enters && tree.writer.insert(tree.after.bytes, row)) counters.distinctKeyAdded(i);
  }
}

}  // namespace jet::write
