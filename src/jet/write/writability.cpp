#include "jet/write/writability.h"

#include <algorithm>

#include "jet/check_table.h"
#include "jet/encode/row_encoder.h"
#include "jet/error.h"
#include "jet/index.h"
#include "jet/text_codec.h"

namespace jet::write {
namespace {

constexpr std::size_t mostIndexes = 32;

[[noreturn]] void refuse(const std::string& what) { throw Error(ErrorKind::NotWritable, what); }

bool isKnown(ColumnType type) {
  switch (type) {
    case ColumnType::Boolean:
    case ColumnType::Byte:
    case ColumnType::Integer:
    case ColumnType::Long:
    case ColumnType::Currency:
    case ColumnType::Single:
    case ColumnType::Double:
    case ColumnType::DateTime:
    case ColumnType::Binary:
    case ColumnType::Text:
    case ColumnType::Ole:
    case ColumnType::Memo:
    case ColumnType::Guid:
    case ColumnType::Numeric:
      return true;
  }
  return false;
}

void requireMaintainable(const ColumnDefinition& column) {
  const std::string name = "column " + toUtf8(column.name);
  if (!isKnown(column.type)) refuse("a column of an unknown type: " + name);
  if (column.isAutoNumber() && column.type != ColumnType::Long) {
    refuse("automatic numbers in a column of another type: " + name);
  }
  if (!column.isFixed() || column.type == ColumnType::Boolean) return;
  if (sizeOf(column.type).value_or(column.length) != column.length) {
    refuse("a column whose length does not fit its type: " + name);
  }
}

// Two fixed columns over the same bytes would spoil each other.
void requireSeparate(const TableDefinition& definition) {
  std::vector<const ColumnDefinition*> fixed;
  for (const ColumnDefinition& column : definition.columns) {
    if (column.isFixed() && column.type != ColumnType::Boolean) fixed.push_back(&column);
  }
  std::ranges::sort(fixed, {}, [](const ColumnDefinition* column) { return column->fixedOffset; });
  for (std::size_t i = 0; i < fixed.size(); ++i) {
    const std::size_t end = std::size_t{fixed[i]->fixedOffset} + fixed[i]->length;
    if (end > (i + 1 < fixed.size() ? fixed[i + 1]->fixedOffset : encode::largestRow)) {
      refuse("a column that reaches into another: column " + toUtf8(fixed[i]->name));
    }
  }
}

}  // namespace

std::string indexLabel(const TableDefinition& definition, std::size_t number) {
  const auto name = std::ranges::find(definition.indexNames, number, &IndexName::realIndex);
  return "index " + (name == definition.indexNames.end() ? std::to_string(number) : toUtf8(name->name));
}

void requireMaintainable(const Table& table) {
  const TableDefinition& definition = table.definition();
  if (definition.indexes.size() > mostIndexes) refuse("more indexes than a table can have");
  for (const ColumnDefinition& column : definition.columns) requireMaintainable(column);
  requireSeparate(definition);
  for (std::size_t i = 0; i < definition.indexes.size(); ++i) {
    if (!table.index(i).isComputable()) {
      refuse("the order of an index is not known: " + indexLabel(definition, i));
    }
  }
}

void requireSound(PageFile& file, const Table& table) {
  const TableDefinition& definition = table.definition();
  if (file.isProvenSound(definition.page)) return;
  CheckReport report;
  CheckFindings findings(report);
  PageOwners owners(file.pageCount(), findings);
  CheckedPlaces places{owners, owners.add("the usage maps"), {}, {}};
  checkTable(table, places, findings);
  if (!report.errors.empty()) refuse("a check found an error in the table: " + report.errors.front());
  file.setProvenSound(definition.page);
}

}  // namespace jet::write
