#include "jet/sql/executor.h"

#include <algorithm>
#include <array>
#include <utility>

#include "jet/error.h"
#include "jet/index.h"
#include "jet/index_key.h"

namespace jet::sql {
namespace {

class Executor {
 public:
  Executor(const BoundSelect& select, const QueryPlan& plan, AccessPaths& paths, Workspace& workspace)
      : select_(select), plan_(plan), paths_(paths), work_(workspace) {}

  ResultSet run() {
    if (work_.levels.size() < plan_.stepCount) work_.levels.resize(plan_.stepCount);
    for (std::size_t level = 0; level < plan_.stepCount; ++level) levelOf_[plan_.steps[level].table] = level;
    for (const BoundColumn output : select_.outputs) {
      const ColumnDefinition& column = select_.definition(output);
      result_.columns.push_back({column.name, column.type});
    }
    findOrderOutputs();
    work_.order.begin(select_.tables.size());
    readLevel(0);
    for (std::size_t level = 0; level < plan_.stepCount; ++level) work_.levels[level].row = Row();
    putInOrder();
    return std::move(result_);
  }

 private:
  using Level = Workspace::Level;

  const Row& rowOf(std::uint8_t table) const { return work_.levels[levelOf_[table]].row; }
  const Table& tableOf(const PlanStep& step) const { return *select_.tables[step.table]; }

  // Reads the table of this step for the present rows of the steps before it.
  void readLevel(std::size_t level) {
    if (level == plan_.stepCount) {
      emit();
      return;
    }
    const PlanStep& step = plan_.steps[level];
    switch (step.kind) {
      case PlanStep::Kind::Scan:
        scan(level, step);
        break;
      case PlanStep::Kind::Index:
        lookup(level, step);
        break;
      case PlanStep::Kind::Hash:
        probe(level, step);
        break;
    }
  }

  void scan(std::size_t level, const PlanStep& step) {
    Level& own = work_.levels[level];
    for (TableScan rows = tableOf(step).scan(); rows.next(own.row);) {
      if (holds(step)) readLevel(level + 1);
    }
  }

  void lookup(std::size_t level, const PlanStep& step) {
    if (step.isPartial && paths_.isOutrun(tableOf(step), step.index, step.indexKey.size())) {
      return probe(level, step);
    }
    Level& own = work_.levels[level];
    const std::size_t columns = step.indexKey.size();
    if (own.key.size() < columns) own.key.resize(columns);
    own.indexValues.resize(columns);
    const Table& table = tableOf(step);
    const Index& index = table.index(step.index);
    for (std::size_t i = 0; i < columns; ++i) {
      const KeyPart& part = step.indexKey[i];
      const Scalar* value = keyValue(part, own.key[i]);
      if (value == nullptr) return;
      const ColumnDefinition& column = table.definition().columns[part.column.column];
      const IndexValue found = toIndexValue(*value, part.column.comparison, column, own.indexValues[i]);
      if (found == IndexValue::Nothing) return;
      if (found == IndexValue::Unknown) return probe(level, step);
    }
    own.found.clear();
    if (!index.lookup(own.indexValues, own.found)) return probe(level, step);

    expectRows(own.found.size());
    std::uint64_t inVain = 0;
    for (const RowId id : own.found) {
      table.fetch(id, own.row);
      if (holds(step)) {
        readLevel(level + 1);
      } else {
        ++inVain;
        confirmEntry(step, own);
      }
    }
    AccessPaths::IndexUse& use = paths_.use(table, step.index, columns);
    ++use.lookups;
    use.rows += own.found.size();
    use.inVain += inVain;
  }

  void probe(std::size_t level, const PlanStep& step) {
    Level& own = work_.levels[level];
    if (own.key.empty()) own.key.resize(1);
    std::uint64_t keyHash = 0;
    for (const KeyPart& part : step.hashKey) {
      const Scalar* value = keyValue(part, own.key.front());
      if (value == nullptr) return;
      keyHash = hash(*value, part.column.comparison, keyHash, work_.buffer);
    }
    const Table& table = tableOf(step);
    const auto wanted = static_cast<std::uint32_t>(keyHash);
    for (const HashIndex::Entry& entry : paths_.hash(table, step.hashColumns).candidates(wanted)) {
      if (entry.hash != wanted) continue;
      table.fetch(RowId::fromPointer(entry.row), own.row);
      if (holds(step)) readLevel(level + 1);
    }
  }

  // Room for about so many more rows at once.
  void expectRows(std::size_t rows) {
    const std::size_t wanted = result_.cells.size() + rows * select_.outputs.size();
    if (wanted > result_.cells.capacity())
      result_.cells.reserve(std::max(wanted, 2 * result_.cells.capacity()));
  }

  // The value the column must equal; nullptr for Null, which equals nothing.
  const Scalar* keyValue(const KeyPart& part, Scalar& memory) const {
    if (part.isLiteral) return &select_.literals[part.literal].literal;
    const ColumnType type = select_.definition(part.from).type;
    return read(rowOf(part.from.table), part.from.column, type, part.column.comparison, memory) ? &memory
                                                                                                : nullptr;
  }

  // Tests all conditions that this step decides, also those it was found by.
  bool holds(const PlanStep& step) {
    return std::ranges::all_of(step.literals, [this](std::size_t i) { return holds(select_.literals[i]); }) &&
           std::ranges::all_of(step.columns, [this](std::size_t i) { return holds(select_.columns[i]); });
  }

  bool holds(const LiteralCondition& condition) {
    return readColumn(condition.column, condition.comparison, work_.left) &&
           equal(work_.left, condition.literal, condition.comparison);
  }

  bool holds(const ColumnCondition& condition) {
    return readColumn(condition.left, condition.comparison, work_.left) &&
           readColumn(condition.right, condition.comparison, work_.right) &&
           equal(work_.left, work_.right, condition.comparison);
  }

  bool readColumn(BoundColumn column, Comparison comparison, Scalar& target) const {
    return read(rowOf(column.table), column.column, select_.definition(column).type, comparison, target);
  }

  // The row did not meet all conditions; it must at least have the key by which the index led to it (which
  // holds less of a long text than the conditions see).
  void confirmEntry(const PlanStep& step, const Level& own) const {
    const Table& table = tableOf(step);
    const Index& index = table.index(step.index);
    std::string wanted;
    bool hasNull = false;
    for (std::size_t i = 0; i < step.indexKey.size(); ++i) {
      const IndexColumn& column = index.definition().columns[i];
      hasNull = hasNull || own.row.isNull(column.column);
      appendKey(own.indexValues[i], table.definition().columns[column.column], column.descending,
                table.file().format(), wanted);
    }
    const std::optional<std::string> stored = index.keyOf(own.row);
    if (hasNull || (stored && !stored->starts_with(wanted))) {
      throw Error(ErrorKind::Damaged, "an index entry points to a row with another key", own.row.id().page);
    }
  }

  // Where the columns of ORDER BY stand among the outputs.
  void findOrderOutputs() {
    for (const BoundOrder& order : select_.order) {
      const auto found = std::ranges::find(select_.outputs, order.column);
      orderOutputs_.push_back(static_cast<std::size_t>(found - select_.outputs.begin()));
    }
  }

  void emit() {
    const std::size_t firstCell = result_.cells.size();
    for (const BoundColumn output : select_.outputs) {
      result_.cells.push_back(rowOf(output.table).value(output.column));
    }
    const auto tables = static_cast<std::uint8_t>(select_.tables.size());
    for (std::uint8_t table = 0; table < tables; ++table) {
      work_.order.addPlace(rowOf(table).id());
    }
    for (std::size_t i = 0; i < select_.order.size(); ++i) {
      const BoundOrder& order = select_.order[i];
      const std::size_t output = orderOutputs_[i];
      if (output < select_.outputs.size()) {
        appendOrderKey(result_.cells[firstCell + output], order.descending, work_.order.key());
      } else {
        appendOrderKey(rowOf(order.column.table).value(order.column.column), order.descending,
                       work_.order.key());
      }
    }
    work_.order.endRow();
  }

  // `source`: the numbers of the rows in their order; empty: as they were added.
  void nameRows(const std::vector<std::uint32_t>& source) {
    result_.table = select_.tables.front()->name();
    result_.rows.reserve(work_.order.rowCount());
    for (std::size_t i = 0; i < work_.order.rowCount(); ++i) {
      result_.rows.push_back(work_.order.firstPlace(source.empty() ? i : source[i]));
    }
  }

  // Moves the rows to their places, circle by circle.
  void putInOrder() {
    std::vector<std::uint32_t> source = work_.order.sorted();
    if (select_.tables.size() == 1 && select_.order.empty()) nameRows(source);
    const std::size_t width = select_.outputs.size();
    const auto cells = [&](std::size_t row) {
      return result_.cells.begin() + static_cast<std::ptrdiff_t>(row * width);
    };
    std::vector<Value> lifted(width);
    for (std::uint32_t start = 0; start < source.size(); ++start) {
      if (source[start] == start) continue;
      std::move(cells(start), cells(start) + static_cast<std::ptrdiff_t>(width), lifted.begin());
      std::uint32_t gap = start;
      while (source[gap] != start) {
        const std::uint32_t from = std::exchange(source[gap], gap);
        std::move(cells(from), cells(from) + static_cast<std::ptrdiff_t>(width), cells(gap));
        gap = from;
      }
      source[gap] = gap;
      std::move(lifted.begin(), lifted.end(), cells(gap));
    }
  }

  const BoundSelect& select_;
  const QueryPlan& plan_;
  AccessPaths& paths_;
  Workspace& work_;
  std::array<std::size_t, 256> levelOf_{};  // by table: the step that reads it
  std::vector<std::size_t> orderOutputs_;   // by column of ORDER BY; beyond the outputs: not among them
  ResultSet result_;
};

}  // namespace

ResultSet execute(const BoundSelect& select, const QueryPlan& plan, AccessPaths& paths,
                  Workspace& workspace) {
  return Executor(select, plan, paths, workspace).run();
}

}  // namespace jet::sql
