#include "jet/write/table_writer.h"

#include <limits>
#include <map>
#include <utility>

#include "jet/encode/bytes.h"
#include "jet/encode/long_value_encoder.h"
#include "jet/encode/row_contents.h"
#include "jet/error.h"
#include "jet/properties.h"
#include "jet/table.h"
#include "jet/text_codec.h"
#include "jet/write/column_rules.h"
#include "jet/write/definition_counters.h"
#include "jet/write/long_value_writer.h"
#include "jet/write/relations.h"
#include "jet/write/row_indexes.h"
#include "jet/write/row_places.h"
#include "jet/write/row_store.h"
#include "jet/write/writability.h"

namespace jet::write {

using namespace encode;

namespace {

[[noreturn]] void refuse(const char* reason, const ColumnDefinition& column) {
  throw Error(ErrorKind::NotWritable, std::string(reason) + ": column " + toUtf8(column.name));
}

}  // namespace

struct TableWriter::State {
  Transaction& transaction;
  PageAllocator allocator;
  Table table;
  const TableDefinition& definition;
  ColumnRules rules;
  DefinitionCounters counters;
  RowPlaces rows;
  RowIndexes indexes;
  Relations relations;
  std::map<std::uint16_t, LongValueWriter> longValues;  // by column number
  std::size_t fixedBytes;
  std::vector<std::size_t> variables;
  std::int32_t lastAutoNumber = 0;

  // Of the change at hand; beside the columns.
  std::vector<Value> before, after;
  std::vector<bool> changed;
  std::vector<ColumnContent> contents;
  std::vector<Bytes> abandoned;  // what the row held for long values that go

  State(Transaction& change, const TableEntry& entry, const Bytes& properties)
      : transaction(change),
        allocator(change),
        table(change.file(), entry.name, readTableDefinition(change.file(), entry.definitionPage), {}),
        definition(table.definition()),
        rules(definition, readColumnProperties(properties, definition)),
        counters(change, definition.page),
        rows(change, allocator, definition),
        indexes(change, allocator, definition),
        relations(change, allocator, definition),
        fixedBytes(fixedBytesOf(definition)),
        variables(variableOrder(definition)),
        before(definition.columns.size()),
        after(definition.columns.size()),
        changed(definition.columns.size()),
        contents(definition.columns.size()) {
    requireMaintainable(table);
    requireSound(change.file(), table);
    for (const ColumnDefinition& column : definition.columns) {
      if (!column.isLongValue()) continue;
      longValues.try_emplace(column.number, change, allocator, column, definition.page);
    }
  }

  void requireWidth(const RowValues& values) const {
    if (values.size() != definition.columns.size()) {
      throw Error(ErrorKind::TypeMismatch, "a row needs one value, or none, per column");
    }
  }

  Value newValue(const std::optional<Value>& given, std::size_t position) {
    const ColumnDefinition& column = definition.columns[position];
    const bool generate = column.isAutoNumber() && (!given || isNull(*given));
    if (!generate) return rules.checked(given ? *given : rules.defaultOf(position), position);
    rules.defaultOf(position);  // refuses the kind of automatic numbers that Access draws by lot
    const std::int32_t last = counters.lastAutoNumber();
    if (last == std::numeric_limits<std::int32_t>::max()) {
      throw Error(ErrorKind::Limit, "there are no automatic numbers left: column " + toUtf8(column.name));
    }
    return last + 1;
  }

  void noteAutoNumber() {
    for (std::size_t i = 0; i < definition.columns.size(); ++i) {
      if (!definition.columns[i].isAutoNumber()) continue;
      lastAutoNumber = std::get<std::int32_t>(after[i]);
      if (lastAutoNumber > counters.lastAutoNumber()) counters.setLastAutoNumber(lastAutoNumber);
    }
  }

  // Fills `contents[position]` with a new value.
  void setContent(std::size_t position) {
    const ColumnDefinition& column = definition.columns[position];
    ColumnContent& content = contents[position];
    content.set(after[position], column);
    if (!content.present || !column.isFixed() || column.type == ColumnType::Boolean) return;
    if (content.bytes.size() != column.length) refuse("a text or binary of fixed length", column);
  }

  void keepContent(const Row& row, std::size_t position) {
    const ColumnDefinition& column = definition.columns[position];
    ColumnContent& content = contents[position];
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

  // The last check: whether the row and its long values have a place.
  bool requirePlace() const {
    const bool inlineAllowed = allowsInline(definition, fixedBytes, contents);
    for (std::size_t i = 0; i < contents.size(); ++i) {
      const ColumnDefinition& column = definition.columns[i];
      if (!column.isLongValue() || column.longValueOwnedMap != 0 || contents[i].bytes.empty()) continue;
      const bool outside = contents[i].isReference ? !inlineAllowed
                                                   : kindOfLongValue(contents[i].bytes.size(),
                                                                     inlineAllowed) != LongValueKind::Inline;
      if (outside) refuse("there is no map for the pages of its long values", column);
    }
    return inlineAllowed;
  }

  // From here on pages change.
  Bytes encodeRow(bool inlineAllowed) {
    return assembleRow(
        definition, fixedBytes, variables, contents, inlineAllowed,
        [&](Bytes& target, const ColumnDefinition& column, std::span<const std::uint8_t> content) {
          longValues.at(column.number).append(target, content, inlineAllowed);
        });
  }

  void noteAbandoned(const Row& row, std::size_t position) {
    const auto stored = row.stored(position);
    abandoned[position].clear();
    if (stored && definition.columns[position].isLongValue()) {
      abandoned[position].assign(stored->begin(), stored->end());
    }
  }

  void releaseAbandoned(RowId row) {
    for (std::size_t i = 0; i < abandoned.size(); ++i) {
      if (abandoned[i].empty()) continue;
      longValues.at(definition.columns[i].number).release(abandoned[i], row.page);
    }
  }

  RowId insert(const RowValues& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      after[i] = newValue(values[i], i);
      setContent(i);
    }
    indexes.planInsert(after);
    relations.checkInsert(after);
    const bool inlineAllowed = requirePlace();

    const RowId row = rows.insert(encodeRow(inlineAllowed));
    indexes.apply(row, counters);
    counters.rowAdded();
    noteAutoNumber();
    return row;
  }

  // Takes the given values that differ from the stored ones. False: there are none.
  bool readChanges(const Row& row, const RowValues& values) {
    bool any = false;
    abandoned.assign(values.size(), {});
    for (std::size_t i = 0; i < values.size(); ++i) {
      changed[i] = false;
      if (values[i]) {
        before[i] = row.value(i);
        after[i] = rules.checked(*values[i], i);
        changed[i] = before[i] != after[i];
      }
      if (changed[i]) {
        any = true;
        setContent(i);
        noteAbandoned(row, i);
      } else {
        keepContent(row, i);
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
    {
      const Row row = table.fetch(id);
      if (!readChanges(row, values)) return;
      readKeyValues(row);
    }
    indexes.planUpdate(before, after, changed);
    relations.checkUpdate(before, after, changed);
    const bool inlineAllowed = requirePlace();

    releaseAbandoned(id);
    rows.update(id, encodeRow(inlineAllowed));
    indexes.apply(id, counters);
  }

  void erase(RowId id) {
    abandoned.assign(definition.columns.size(), {});
    {
      const Row row = table.fetch(id);
      for (const IndexDefinition& index : definition.indexes) {
        for (const IndexColumn& part : index.columns) before[part.column] = row.value(part.column);
      }
      for (std::size_t i = 0; i < abandoned.size(); ++i) noteAbandoned(row, i);
    }
    indexes.planErase(before);
    relations.checkErase(before);

    releaseAbandoned(id);
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
