#pragma once

#include <memory>
#include <span>
#include <vector>

#include "jet/table_definition.h"
#include "jet/transaction.h"
#include "jet/value.h"
#include "jet/write/index_writer.h"
#include "jet/write/page_allocator.h"

namespace jet::write {

// The enforced relations of one table: every key of a referencing row must exist on the referenced side.
// Nothing is passed on to the other table: a change that would need it is refused.
class Relations {
 public:
  // `definition` must outlive this. Error(NotWritable), naming the relation, where its other side cannot be
  // understood.
  Relations(Transaction& transaction, PageAllocator& allocator, const TableDefinition& definition);
  ~Relations();

  // Values run beside TableDefinition::columns. Errors, naming the relation: Constraint (nothing to refer to,
  // or still referred to), NotWritable (the other table's rows would have to be changed, too).
  void checkInsert(std::span<const Value> after);
  void checkErase(std::span<const Value> before);
  // Looks only at relations over columns with another value.
  void checkUpdate(std::span<const Value> before, std::span<const Value> after,
                   const std::vector<bool>& changed);

 private:
  struct Relation;
  void requireReferenced(Relation& relation, std::span<const Value> after);
  void requireUnreferenced(Relation& relation, std::span<const Value> before);

  std::vector<std::unique_ptr<Relation>> relations_;
};

}  // namespace jet::write
