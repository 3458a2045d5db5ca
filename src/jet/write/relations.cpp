#include "jet/write/relations.h"

#include <algorithm>

#include "jet/encode/row_key.h"
#include "jet/error.h"
#include "jet/text_codec.h"

namespace jet::write {

using encode::RowKey;
using Role = RelationEnd::Role;

namespace {

[[noreturn]] void fail(ErrorKind kind, const char* reason, const IndexName& relation) {
  throw Error(kind, std::string(reason) + ": relation " + toUtf8(relation.name));
}

const IndexName& findPartner(const TableDefinition& other, const IndexName& relation) {
  for (const IndexName& name : other.indexNames) {
    if (name.number == relation.relation.otherIndex) return name;
  }
  fail(ErrorKind::NotWritable, "the other side of a relation is missing", relation);
}

// The values of one side's index columns in the other table's columns.
std::vector<Value> carriedOver(std::span<const Value> values, const IndexDefinition& from,
                               const IndexDefinition& to, std::size_t columns) {
  std::vector<Value> carried(columns);
  for (std::size_t i = 0; i < from.columns.size(); ++i) {
    carried[to.columns[i].column] = values[from.columns[i].column];
  }
  return carried;
}

}  // namespace

struct Relations::Relation {
  const TableDefinition& own;
  const IndexName& name;
  TableDefinition other;
  const IndexDefinition& ownIndex;
  const IndexDefinition& otherIndex;
  IndexWriter otherTree;

  Relation(Transaction& transaction, PageAllocator& allocator, const TableDefinition& definition,
           const IndexName& relationName)
      : own(definition),
        name(relationName),
        other(readTableDefinition(transaction.file(), relationName.relation.otherDefinition)),
        ownIndex(own.indexes[name.realIndex]),
        otherIndex(other.indexes[findPartner(other, name).realIndex]),
        otherTree(transaction, allocator, other.page, otherIndex) {
    const bool fits = std::ranges::equal(
        ownIndex.columns, otherIndex.columns, [&](const IndexColumn& left, const IndexColumn& right) {
          return own.columns[left.column].type == other.columns[right.column].type;
        });
    if (!fits) fail(ErrorKind::NotWritable, "the two sides of a relation do not fit", name);
  }

  // The key that a row has on the other side; nullopt if a Null in it takes it out of the relation.
  std::optional<std::string> keyOnOtherSide(std::span<const Value> values) const {
    RowKey key;
    const auto carried = carriedOver(values, ownIndex, otherIndex, other.columns.size());
    makeRowKey(other, otherIndex, carried, key);
    if (key.firstNull != nullptr) return std::nullopt;
    return std::move(key.bytes);
  }
};

Relations::Relations(Transaction& transaction, PageAllocator& allocator, const TableDefinition& definition) {
  for (const IndexName& name : definition.indexNames) {
    const Role role = name.relation.role;
    if (role == Role::None) continue;
    if (role != Role::Referenced && role != Role::Referencing) {
      fail(ErrorKind::NotWritable, "a relation of an unknown kind", name);
    }
    relations_.push_back(std::make_unique<Relation>(transaction, allocator, definition, name));
  }
}

Relations::~Relations() = default;

void Relations::checkInsert(std::span<const Value> after) {
  for (const auto& relation : relations_) {
    if (relation->name.relation.role == Role::Referencing) requireReferenced(*relation, after);
  }
}

void Relations::checkErase(std::span<const Value> before) {
  for (const auto& relation : relations_) {
    if (relation->name.relation.role == Role::Referenced) requireUnreferenced(*relation, before);
  }
}

void Relations::checkUpdate(std::span<const Value> before, std::span<const Value> after,
                            const std::vector<bool>& changed) {
  for (const auto& relation : relations_) {
    const bool touched = std::ranges::any_of(relation->ownIndex.columns,
                                             [&](const IndexColumn& part) { return changed[part.column]; });
    if (!touched || relation->keyOnOtherSide(before) == relation->keyOnOtherSide(after)) continue;
    if (relation->name.relation.role == Role::Referencing) requireReferenced(*relation, after);
    if (relation->name.relation.role == Role::Referenced) requireUnreferenced(*relation, before);
  }
}

void Relations::requireReferenced(Relation& relation, std::span<const Value> after) {
  const auto key = relation.keyOnOtherSide(after);
  if (!key || relation.otherTree.contains(*key)) return;
  // A row may refer to itself.
  if (relation.other.page == relation.own.page) {
    RowKey own;
    makeRowKey(relation.own, relation.otherIndex, after, own);
    if (own.bytes == *key) return;
  }
  fail(ErrorKind::Constraint, "the row refers to one that does not exist", relation.name);
}

void Relations::requireUnreferenced(Relation& relation, std::span<const Value> before) {
  const auto key = relation.keyOnOtherSide(before);
  if (!key || !relation.otherTree.contains(*key)) return;
  if (relation.name.relation.cascades) {
    fail(ErrorKind::NotWritable, "the change would have to be passed on to other rows", relation.name);
  }
  fail(ErrorKind::Constraint, "other rows still refer to this one", relation.name);
}

}  // namespace jet::write
