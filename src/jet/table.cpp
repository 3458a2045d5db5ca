#include "jet/table.h"

#include <algorithm>
#include <utility>

#include "jet/collation.h"
#include "jet/data_page.h"
#include "jet/error.h"
#include "jet/index.h"
#include "jet/text_codec.h"
#include "jet/usage_map.h"

namespace jet {
namespace {

constexpr int mostHops = 10;  // from a row's slot to where it has moved to, and on

// The number of columns a row must have to have been written when the table had variable columns. Columns
// that are gone may have stood anywhere.
std::uint32_t columnsWithVariablePart(const TableDefinition& definition) {
  std::vector<std::uint16_t> numbers;
  for (const ColumnDefinition& column : definition.columns) {
    if (!column.isFixed() && column.type != ColumnType::Boolean) numbers.push_back(column.number);
  }
  if (definition.variableColumns == 0) return definition.maxColumns + 1u;
  if (numbers.size() < definition.variableColumns) return 0;
  return *std::min_element(numbers.begin(), numbers.end()) + 1u;
}

}  // namespace

Table::Table(const PageFile& file, Text name, TableDefinition definition, WarningSink warn)
    : file_(file),
      name_(std::move(name)),
      definition_(std::move(definition)),
      warn_(std::move(warn)),
      columnsWithVariablePart_(jet::columnsWithVariablePart(definition_)) {
  for (std::size_t i = 0; i < definition_.indexes.size(); ++i) {
    indexes_.push_back(std::make_unique<Index>(*this, file_, i));
  }
}

Table::~Table() = default;

std::optional<std::size_t> Table::findColumn(std::u16string_view name) const {
  for (std::size_t i = 0; i < definition_.columns.size(); ++i) {
    if (definition_.columns[i].name == name) return i;
  }
  for (std::size_t i = 0; i < definition_.columns.size(); ++i) {
    if (collation::equal(definition_.columns[i].name, name)) return i;
  }
  return std::nullopt;
}

const Index& Table::index(std::size_t i) const { return *indexes_[i]; }

TableScan Table::scan() const { return TableScan(*this); }

bool Table::hasRow(RowId id) const {
  if (id.page == 0 || id.page >= file_.pageCount()) return false;
  const PageRef page = file_.page(id.page, definition_.page);
  if (page->type() != static_cast<std::uint8_t>(PageType::Data)) return false;
  const DataPage dataPage(*page, file_.format());
  return dataPage.owner() == definition_.page && id.slot < dataPage.slotCount() &&
         (dataPage.slot(id.slot) & slot_flag::body) == 0;
}

Row Table::fetch(RowId id) const {
  Row row;
  fetch(id, row);
  return row;
}

void Table::fetch(RowId id, Row& row) const {
  const PageRef page = file_.page(id.page, definition_.page, PageType::Data);
  const DataPage dataPage(*page, file_.format());
  const ByteReader reader = page->reader();
  reader.check(dataPage.owner() == definition_.page, "a reference leads to a row of another table");
  const std::uint16_t entry = dataPage.slot(id.slot);
  reader.check((entry & slot_flag::body) == 0, "a reference leads to a row that was deleted");
  open(page, id, entry, row);
}

void Table::open(const PageRef& page, RowId id, std::uint16_t slotEntry, Row& row) const {
  row.table_ = this;
  row.id_ = id;
  if (row.page_ != page) row.page_ = page;
  row.bytes_ = DataPage(*page, file_.format()).row(id.slot);
  for (int hops = 0; DataPage::isPointer(slotEntry); ++hops) {
    const ByteReader reader = row.reader();
    reader.check(hops < mostHops, "a row has moved too often");
    const RowId target = RowId::fromPointer(reader.u32(0));
    row.page_ = file_.page(target.page, reader.page(), PageType::Data);
    const DataPage dataPage(*row.page_, file_.format());
    slotEntry = dataPage.slot(target.slot);
    const bool holdsRow = DataPage::isBody(slotEntry) || DataPage::isPointer(slotEntry);
    row.page_->reader().check(holdsRow && dataPage.owner() == definition_.page,
                              "a moved row is not where it should be");
    row.bytes_ = dataPage.row(target.slot);
  }
  row.parse();
}

void Table::warn(const std::string& sentence) const {
  if (warn_) warn_(sentence);
}

void Table::checkRowCount(std::uint64_t rows) const {
  if (rows == definition_.rowCount || rows == staleCountProven_) return;
  const std::string numbers = "Table " + toUtf8(name_) + " has " + std::to_string(rows) +
                              " rows, its count says " + std::to_string(definition_.rowCount);
  for (const auto& index : indexes_) {
    if (index->definition().ignoresNulls()) continue;
    try {
      if (index->countEntries() != rows) continue;
    } catch (const Error& error) {
      if (error.kind() != ErrorKind::Damaged) throw;
      continue;  // a damaged index proves nothing
    }
    staleCountProven_ = rows;
    warn(numbers + "; an index confirms the rows.");
    return;
  }
  throw Error(ErrorKind::Damaged, numbers + ", and no index confirms either", definition_.page);
}

TableScan::TableScan(const Table& table)
    : table_(&table),
      pages_(readUsageMap(table.file(), table.definition().ownedMap, table.definition().page, table.warn_)) {}

// Pages of the map that are not data pages of this table are left out: files have such leftovers. If rows
// go missing by that, the count at the end tells.
bool TableScan::nextPage() {
  while (nextPage_ < pages_.size()) {
    const std::uint32_t number = pages_[nextPage_++];
    page_ = table_->file_.page(number, table_->definition_.page);
    if (page_->type() == static_cast<std::uint8_t>(PageType::Data)) {
      const DataPage dataPage(*page_, table_->file_.format());
      if (dataPage.owner() == table_->definition_.page) {
        slot_ = 0;
        slotCount_ = dataPage.slotCount();
        return true;
      }
    }
    table_->warn("Page " + std::to_string(number) + " is no data page of table " + toUtf8(table_->name_) +
                 ", which claims it.");
  }
  return false;
}

bool TableScan::next(Row& row) {
  if (finished_) return false;
  for (;;) {
    while (slot_ < slotCount_) {
      const auto slot = static_cast<std::uint8_t>(slot_++);
      const std::uint16_t entry = DataPage(*page_, table_->file_.format()).slot(slot);
      if ((entry & slot_flag::body) != 0) continue;  // deleted, or reached through its pointer
      table_->open(page_, {page_->number, slot}, entry, row);
      ++rows_;
      return true;
    }
    if (nextPage()) continue;
    finished_ = true;
    table_->checkRowCount(rows_);
    return false;
  }
}

}  // namespace jet
