#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "jet/database.h"
#include "jet/transaction.h"

namespace jet::write {

// One per column of TableDefinition::columns, in that order. nullopt: for a new row the column's default (an
// autonumber, the DefaultValue of its properties, else Null; a truth value: false), for an existing row the
// value it has.
using RowValues = std::vector<std::optional<Value>>;

// Changes the rows of one table within one transaction: rows, long values, maps, all indexes, row count and
// autonumber together. After an error the transaction must be rolled back.
class TableWriter {
 public:
  // Refuses, before anything is changed, a table that could not be maintained rightly: Error(NotWritable)
  // names the column or index. The table's indexes are checked as a whole the first time
  // (PageFile::isProvenSound).
  TableWriter(Transaction& transaction, Database& database, std::u16string_view table);
  ~TableWriter();

  const TableDefinition& definition() const;

  // Errors: TypeMismatch, Limit (longer than the column, a row longer than its page), Constraint (Required,
  // zero length, a key twice in a unique index, Null in a primary key), NotWritable (an indexed text with
  // characters whose weight is not known); each names the column or the index.
  RowId insert(const RowValues& values);
  // The row keeps its id. Unchanged columns keep their stored bytes.
  void update(RowId row, const RowValues& values);
  void erase(RowId row);
  // The autonumber that the last insert gave out; 0 if the table has none.
  std::int32_t lastAutoNumber() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace jet::write
