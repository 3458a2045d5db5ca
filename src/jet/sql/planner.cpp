#include "jet/sql/planner.h"

#include <algorithm>

#include "jet/index.h"
#include "jet/text_codec.h"

namespace jet::sql {
namespace {

class Planner {
 public:
  Planner(const BoundSelect& select, AccessPaths& paths, QueryPlan& target)
      : select_(select), paths_(paths), target_(target) {}

  void run() {
    const std::size_t count = select_.tables.size();
    if (target_.steps.size() < count) target_.steps.resize(count);
    target_.stepCount = 0;
    while (target_.stepCount < count) {
      PlanStep& step = target_.steps[target_.stepCount];
      const std::uint8_t table = count == 1 ? 0 : cheapestTable();
      prepare(table, step);
      choose(step);
      placed_ |= bit(table);
      collectConditions(step);
      ++target_.stepCount;
    }
  }

 private:
  static std::uint32_t bit(std::uint8_t table) { return std::uint32_t{1} << table; }
  bool isPlaced(std::uint8_t table) const { return (placed_ & bit(table)) != 0; }

  // The table to read next; the earlier in FROM where there is no difference.
  std::uint8_t cheapestTable() {
    std::uint8_t best = 0;
    double bestRows = -1;
    const auto count = static_cast<std::uint8_t>(select_.tables.size());
    for (std::uint8_t table = 0; table < count; ++table) {
      if (isPlaced(table)) continue;
      if (placed_ != 0 && !isJoined(table)) continue;
      prepare(table, candidate_);
      choose(candidate_);
      const double rows = expectedRows(candidate_);
      if (bestRows < 0 || rows < bestRows) {
        best = table;
        bestRows = rows;
      }
    }
    return best;
  }

  // Whether a condition relates the table to one that is read before it. FROM joins every table to another,
  // so there is always one left of which this holds.
  bool isJoined(std::uint8_t table) const {
    return std::ranges::any_of(select_.columns, [&](const ColumnCondition& condition) {
      return (condition.left.table == table && isPlaced(condition.right.table)) ||
             (condition.right.table == table && isPlaced(condition.left.table));
    });
  }

  // Finds the columns whose values are known when this table is read.
  void prepare(std::uint8_t table, PlanStep& step) const {
    step.table = table;
    step.hashKey.clear();
    for (std::size_t i = 0; i < select_.literals.size() && i < select_.literalCount; ++i) {
      const LiteralCondition& condition = select_.literals[i];
      if (condition.column.table != table) continue;
      addPart({{condition.column.column, condition.comparison}, true, static_cast<std::uint16_t>(i), {}},
              step);
    }
    for (const ColumnCondition& condition : select_.columns) {
      const bool isLeft = condition.left.table == table;
      const BoundColumn own = isLeft ? condition.left : condition.right;
      const BoundColumn other = isLeft ? condition.right : condition.left;
      if (own.table != table || other.table == table || !isPlaced(other.table)) continue;
      addPart({{own.column, condition.comparison}, false, 0, other}, step);
    }
    std::ranges::sort(step.hashKey, {}, [](const KeyPart& part) { return part.column.column; });
    step.hashColumns.clear();
    for (const KeyPart& part : step.hashKey) step.hashColumns.push_back(part.column);
  }

  static void addPart(const KeyPart& part, PlanStep& step) {
    if (findPart(step, part.column.column) == nullptr) step.hashKey.push_back(part);
  }

  static const KeyPart* findPart(const PlanStep& step, std::size_t column) {
    const auto found = std::ranges::find_if(
        step.hashKey, [column](const KeyPart& part) { return part.column.column == column; });
    return found == step.hashKey.end() ? nullptr : &*found;
  }

  // An index that has all columns, else the one of those that have some which gave the fewest rows so far;
  // else a hash. A partial index whose rows were mostly fetched in vain gives way to a hash as soon as that
  // would have been the cheaper way.
  void choose(PlanStep& step) {
    step.indexKey.clear();
    step.isPartial = false;
    step.kind = step.hashKey.empty() ? PlanStep::Kind::Scan : PlanStep::Kind::Hash;
    if (step.hashKey.empty()) return;
    const Table& table = *select_.tables[step.table];
    std::size_t bestColumns = 0;
    double bestRows = 0;
    for (std::size_t i = 0; i < table.definition().indexes.size(); ++i) {
      const std::size_t columns = usableColumns(step, table, i);
      if (columns == 0) continue;
      const bool complete = columns == step.hashKey.size() || isUniqueMatch(table, i, columns);
      const double rows = complete ? 0 : paths_.use(table, i, columns).rowsPerLookup();
      if (bestColumns != 0 && (rows > bestRows || (rows == bestRows && columns <= bestColumns))) continue;
      step.index = i;
      bestColumns = columns;
      bestRows = rows;
    }
    if (bestColumns == 0) return;
    step.isPartial = bestColumns < step.hashKey.size() && !isUniqueMatch(table, step.index, bestColumns);
    if (step.isPartial && (paths_.findHash(table, step.hashColumns) != nullptr ||
                           paths_.isOutrun(table, step.index, bestColumns))) {
      return;
    }
    step.kind = PlanStep::Kind::Index;
    for (std::size_t i = 0; i < bestColumns; ++i) {
      step.indexKey.push_back(*findPart(step, table.definition().indexes[step.index].columns[i].column));
    }
  }

  // How many of the index's first columns have known values that it can look up.
  static std::size_t usableColumns(const PlanStep& step, const Table& table, std::size_t index) {
    const auto& indexColumns = table.definition().indexes[index].columns;
    std::size_t usable = 0;
    for (const IndexColumn& indexColumn : indexColumns) {
      const KeyPart* part = findPart(step, indexColumn.column);
      if (part == nullptr) break;
      if (!isIndexable(table.definition().columns[indexColumn.column].type, part->column.comparison)) break;
      ++usable;
    }
    return usable != 0 && table.index(index).isComputable() ? usable : 0;
  }

  static bool isUniqueMatch(const Table& table, std::size_t index, std::size_t columns) {
    const IndexDefinition& definition = table.definition().indexes[index];
    return definition.isUnique() && columns == definition.columns.size();
  }

  // Per combination of rows before it. Rough: it decides the order of the tables, never the result.
  double expectedRows(const PlanStep& step) {
    const Table& table = *select_.tables[step.table];
    double rows = table.definition().rowCount;
    if (step.kind == PlanStep::Kind::Index) {
      if (isUniqueMatch(table, step.index, step.indexKey.size())) return 1;
      const auto& use = paths_.use(table, step.index, step.indexKey.size());
      if (use.lookups != 0) return use.rowsPerLookup();
    }
    for (std::size_t i = 0; i < step.hashKey.size(); ++i) rows /= 10;
    return rows + 1;
  }

  void collectConditions(PlanStep& step) const {
    step.literals.clear();
    step.columns.clear();
    for (std::size_t i = 0; i < select_.literalCount; ++i) {
      if (select_.literals[i].column.table == step.table)
        step.literals.push_back(static_cast<std::uint16_t>(i));
    }
    for (std::size_t i = 0; i < select_.columns.size(); ++i) {
      const ColumnCondition& condition = select_.columns[i];
      const bool touches = condition.left.table == step.table || condition.right.table == step.table;
      if (touches && isPlaced(condition.left.table) && isPlaced(condition.right.table)) {
        step.columns.push_back(static_cast<std::uint16_t>(i));
      }
    }
  }

  const BoundSelect& select_;
  AccessPaths& paths_;
  QueryPlan& target_;
  PlanStep candidate_;
  std::uint32_t placed_ = 0;  // tables that have their step
};

}  // namespace

void plan(const BoundSelect& select, AccessPaths& paths, QueryPlan& target) {
  Planner(select, paths, target).run();
}

std::string describe(const PlanStep& step, const BoundSelect& select) {
  const Table& table = *select.tables[step.table];
  std::string text = toUtf8(table.name());
  if (step.kind == PlanStep::Kind::Scan) return text + ": scan";
  if (step.kind == PlanStep::Kind::Index) {
    text += ": index";
    for (const IndexName& name : table.definition().indexNames) {
      if (name.realIndex == step.index) return text + " " + toUtf8(name.name);
    }
    return text;
  }
  text += ": hash";
  const char* separator = " ";
  for (const HashColumn& column : step.hashColumns) {
    text += separator + toUtf8(table.definition().columns[column.column].name);
    separator = ", ";
  }
  return text;
}

}  // namespace jet::sql
