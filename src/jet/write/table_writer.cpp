#include "jet/write/table_writer.h"

#include <limits>
#include <utility>

#include "jet/error.h"
#include "jet/properties.h"
#include "jet/table.h"
#include "jet/text_codec.h"
#include "jet/write/column_rules.h"
#include "jet/write/definition_counters.h"
#include "jet/write/relations.h"
#include "jet/write/row_builder.h"
#include "jet/write/row_indexes.h"
#include "jet/write/row_places.h"
#include "jet/write/writability.h"

namespace jet::write {

// Every change goes the same way: the new values and keys are computed and checked, with the table as it is;
// only then pages change.
struct TableWriter::State {
  PageAllocator allocator;
  Table table;
  const TableDefinition& definition;
  ColumnRules rules;
  DefinitionCounters counters;
  RowPlaces rows;
  RowBuilder builder;
  RowIndexes indexes;
  Relations relations;
  std::int32_t lastAutoNumber = 0;

  // Of the change at hand, beside the columns.
  std::vector<Value> before, after;
  std::vector<bool> changed;

  State(Transaction& transaction, const TableEntry& entry, const Bytes& properties)
      : allocator(transaction),
        table(transaction.file(), entry.name, readTableDefinition(transaction.file(), entry.definitionPage),
              {}),
        definition(table.definition()),
        rules(definition, readColumnProperties(properties, definition)),
        counters(transaction, definition.page),
        rows(transaction, allocator, definition),
        builder(transaction, allocator, definition),
        indexes(transaction, allocator, definition),
        relations(transaction, allocator, definition),
        before(definition.columns.size()),
        after(definition.columns.size()),
        changed(definition.columns.size()) {
    requireMaintainable(table);
    requireSound(transaction.file(), table);
  }

  void requireWidth(const RowValues& values) const {
    if (values.size() != definition.columns.size()) {
      throw Error(ErrorKind::TypeMismatch, "a row needs one value, or none, per column");
    }
  }

  std::int32_t nextAutoNumber(std::size_t column) const {
    rules.defaultOf(column);  // refuses the kind of automatic numbers that Access draws by lot
    const std::int32_t last = counters.lastAutoNumber();
    if (last < std::numeric_limits<std::int32_t>::max()) return last + 1;
    throw Error(ErrorKind::Limit,
                "there are no automatic numbers left: column " + toUtf8(definition.columns[column].name));
  }

  Value newValue(const std::optional<Value>& given, std::size_t column) const {
    if (definition.columns[column].isAutoNumber() && (!given || isNull(*given))) {
      return nextAutoNumber(column);
    }
    return rules.checked(given ? *given : rules.defaultOf(column), column);
  }

  void noteAutoNumber() {
    for (std::size_t i = 0; i < definition.columns.size(); ++i) {
      if (!definition.columns[i].isAutoNumber()) continue;
      lastAutoNumber = std::get<std::int32_t>(after[i]);
      if (lastAutoNumber > counters.lastAutoNumber()) counters.setLastAutoNumber(lastAutoNumber);
    }
  }

  RowId insert(const RowValues& values) {
    builder.begin();
    for (std::size_t i = 0; i < values.size(); ++i) {
      after[i] = newValue(values[i], i);
      builder.set(i, after[i]);
    }
    indexes.planInsert(after);
    relations.checkInsert(after);
    builder.requirePlace();

    const RowId row = rows.insert(builder.build());
    indexes.apply(row, counters);
    counters.rowAdded();
    noteAutoNumber();
    return row;
  }

  // Takes the given values that differ from the stored ones. False: there are none.
  bool readChanges(const Row& row, const RowValues& values) {
    bool any = false;
    for (std::size_t i = 0; i < values.size(); ++i) {
      changed[i] = false;
      if (values[i]) {
        before[i] = row.value(i);
        after[i] = rules.checked(*values[i], i);
        changed[i] = before[i] != after[i];
      }
      if (changed[i]) {
        any = true;
        builder.set(i, after[i]);
        builder.abandon(i, row);
      } else {
        builder.keep(i, row);
      }
    }
    return any;
  }

  // The other columns of indexes that have a changed one.
  void readKeyValues(const Row& row) {
    for (std::size_t i = 0; i < definition.indexes.size(); ++i) {
      if (!indexes.touches(i, changed)) continue;
      for (const IndexColumn& part : definition.indexes[i].columns) {
        if (!changed[part.column]) before[part.column] = after[part.column] = row.value(part.column);
      }
    }
  }

  void update(RowId id, const RowValues& values) {
    builder.begin();
    const Row row = table.fetch(id);
    if (!readChanges(row, values)) return;
    readKeyValues(row);
    indexes.planUpdate(before, after, changed);
    relations.checkUpdate(before, after, changed);
    builder.requirePlace();

    builder.releaseAbandoned(id);
    rows.update(id, builder.build());
    indexes.apply(id, counters);
  }

  void erase(RowId id) {
    builder.begin();
    const Row row = table.fetch(id);
    for (const IndexDefinition& index : definition.indexes) {
      for (const IndexColumn& part : index.columns) before[part.column] = row.value(part.column);
    }
    for (std::size_t i = 0; i < definition.columns.size(); ++i) builder.abandon(i, row);
    indexes.planErase(before);
    relations.checkErase(before);

    builder.releaseAbandoned(id);
    rows.erase(id);
    indexes.apply(id, counters);
    counters.rowRemoved();
  }
};

TableWriter::TableWriter(Transaction& transaction, Database& database, std::u16string_view table)
    : state_(std::make_unique<State>(transaction, database.entry(table), database.tableProperties(table))) {}

TableWriter::~TableWriter() = default;

const TableDefinition& TableWriter::definition() const { return state_->definition; }

RowId TableWriter::insert(const RowValues& values) {
  state_->requireWidth(values);
  return state_->insert(values);
}

void TableWriter::update(RowId row, const RowValues& values) {
  state_->requireWidth(values);
  state_->update(row, values);
}

void TableWriter::erase(RowId row) { state_->erase(row); }

std::int32_t TableWriter::lastAutoNumber() const { return state_->lastAutoNumber; }

}  // namespace jet::write
