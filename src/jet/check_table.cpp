#include "jet/check_table.h"

#include <algorithm>

#include "jet/check_index.h"
#include "jet/data_page.h"
#include "jet/index.h"
#include "jet/text_codec.h"
#include "jet/usage_map.h"

namespace jet {

namespace {

constexpr std::size_t definitionNextPage = 4;
constexpr std::size_t definitionChainHeader = 8;
constexpr std::uint8_t mapByReferences = 1;

// The page numbers that a usage map by references names; empty for an inline map.
std::vector<std::uint32_t> bitmapPages(const PageFile& file, RowId map, std::uint32_t from) {
  const PageRef page = file.page(map.page, from, PageType::Data);
  const ByteReader row(DataPage(*page, file.format()).row(map.slot), map.page);
  std::vector<std::uint32_t> pages;
  if (row.u8(0) != mapByReferences) return pages;
  for (std::size_t at = 1; at + 4 <= row.size(); at += 4) {
    const std::uint32_t number = row.u32(at);
    if (number != 0 && number < file.pageCount()) pages.push_back(number);
  }
  return pages;
}

class TableCheck {
 public:
  TableCheck(const Table& table, CheckedPlaces& places, CheckFindings& findings)
      : table_(table),
        file_(table.file()),
        definition_(table.definition()),
        places_(places),
        findings_(findings),
        where_("Table " + toUtf8(table.name())) {}

  void run() {
    findings_.attempt(where_, [&] { claimDefinition(); });
    checkDataPages();
    checkRowCount();
    checkLongValueMaps();
    for (std::size_t i = 0; i < definition_.indexes.size(); ++i) {
      findings_.attempt(where_, [&] { claimMap(definition_.indexes[i].ownedMap); });
      checkIndex(table_, i, rows_, places_.owners, findings_);
    }
  }

 private:
  void error(const std::string& what) { findings_.error(where_ + ": " + what + "."); }

  void claimDefinition() {
    const auto owner = places_.owners.add("the definition of table " + toUtf8(table_.name()));
    std::uint32_t number = definition_.page;
    PageRef page = file_.page(number, number, PageType::TableDefinition);
    const std::uint32_t length = page->reader().u32(file_.format().tdefLength);
    std::uint32_t covered = file_.format().pageSize;
    while (places_.owners.claimOnce(number, owner) && covered < length) {
      number = page->reader().u32(definitionNextPage);
      page = file_.page(number, page->number, PageType::TableDefinition);
      covered += file_.format().pageSize - static_cast<std::uint32_t>(definitionChainHeader);
    }
  }

  // The pages of a map, after claiming the places where the map itself stands.
  std::vector<std::uint32_t> claimMap(std::uint32_t pointer) {
    const RowId place = RowId::fromPointer(pointer);
    std::vector<std::uint32_t> pages =
        readUsageMap(file_, pointer, definition_.page,
                     [&](const std::string& warning) { findings_.remark(where_ + ": " + warning); });
    if (!places_.maps.insert(pointer).second)
      error("its usage map at " + checkName(place) + " is used twice");
    places_.owners.claim(place.page, places_.mapPages);
    const auto bitmaps = bitmapPages(file_, place, definition_.page);
    if (!bitmaps.empty()) {
      const auto owner = places_.owners.add("a usage map of table " + toUtf8(table_.name()));
      for (const std::uint32_t number : bitmaps) places_.owners.claimOnce(number, owner);
    }
    return pages;
  }

  void checkFreeMap(const std::vector<std::uint32_t>& owned, std::uint32_t pointer, const std::string& of) {
    if (pointer == 0) return;
    const std::vector<std::uint32_t> free = claimMap(pointer);
    if (!std::ranges::includes(owned, free)) {
      findings_.error(where_ + ": the free space map" + of + " has pages that its page map has not.");
    }
  }

  void checkDataPages() {
    std::vector<std::uint32_t> pages;
    findings_.attempt(where_, [&] { pages = claimMap(definition_.ownedMap); });
    findings_.attempt(where_, [&] { checkFreeMap(pages, definition_.freeMap, ""); });
    const auto owner = places_.owners.add("table " + toUtf8(table_.name()));
    for (const std::uint32_t number : pages) {
      if (!places_.owners.claimOnce(number, owner)) continue;
      if (!findings_.attempt(where_, [&] { checkDataPage(number); })) whole_ = false;
    }
    checkBodies();
  }

  void checkDataPage(std::uint32_t number) {
    const PageRef page = file_.page(number, definition_.page);
    if (page->type() != static_cast<std::uint8_t>(PageType::Data)) {
      // Pages that were given back, or never written, and stayed in the map.
      if (page->type() == 0 || page->type() > static_cast<std::uint8_t>(PageType::UsageBitmap)) {
        findings_.remark(where_ + ": page " + std::to_string(number) + " of its page map is not in use.");
      } else {
        error("page " + std::to_string(number) + " of its page map holds something else");
      }
      return;
    }
    const DataPage data(*page, file_.format());
    if (data.owner() != definition_.page) {
      error("page " + std::to_string(number) + " of its page map names another table");
      return;
    }
    for (std::uint32_t slot = 0; slot < data.slotCount(); ++slot) {
      const RowId id{number, static_cast<std::uint8_t>(slot)};
      if (!findings_.attempt([&] { return where_ + ", " + checkName(id); }, [&] { checkSlot(data, id); }))
        whole_ = false;
    }
  }

  void checkSlot(const DataPage& data, RowId id) {
    const std::uint16_t entry = data.slot(id.slot);
    const auto bytes = data.row(id.slot);
    if (DataPage::isDeleted(entry)) return;
    if (DataPage::isBody(entry)) {
      bodies_.insert(id.pointer());
      return;
    }
    rows_.push_back(id);
    ++findings_.report().rows;
    const Row row = table_.fetch(id);
    if (DataPage::isPointer(entry)) {
      const std::uint32_t target = ByteReader(bytes, id.page).u32(0);
      if (!targets_.insert(target).second)
        error("two rows have moved to " + checkName(RowId::fromPointer(target)));
    }
    for (std::size_t i = 0; i < definition_.columns.size(); ++i) checkValue(row, i);
  }

  void checkValue(const Row& row, std::size_t position) {
    const ColumnDefinition& column = definition_.columns[position];
    const auto where = [&] {
      return where_ + ", " + checkName(row.id()) + ", column " + toUtf8(column.name);
    };
    findings_.attempt(where, [&] {
      row.value(position);
      if (!column.isLongValue()) return;
      if (const auto reference = row.stored(position))
        checkPieces(ByteReader(*reference, row.id().page), position);
    });
  }

  // The value itself was read already: its chain ends.
  void checkPieces(const ByteReader& reference, std::size_t position) {
    constexpr std::uint32_t lengthMask = 0x3FFFFFFF, oneRow = 1, inlineValue = 2;
    const std::uint32_t kind = reference.u32(0) >> 30;
    if (kind == inlineValue) return;
    std::int64_t rest = reference.u32(0) & lengthMask;
    std::uint32_t pointer = reference.u32(4);
    std::uint32_t from = reference.page();
    while (rest > 0 || kind == oneRow) {
      if (!places_.pieces.insert(pointer).second) {
        error("two long values share " + checkName(RowId::fromPointer(pointer)));
        return;
      }
      longValuePages_[position].insert(pointer >> 8);
      if (kind == oneRow) return;
      const PageRef page = file_.page(pointer >> 8, from, PageType::Data);
      const ByteReader piece(DataPage(*page, file_.format()).row(pointer & 0xFF), page->number);
      rest -= static_cast<std::int64_t>(piece.size()) - 4;
      from = page->number;
      pointer = piece.u32(0);
    }
  }

  void checkBodies() {
    for (const std::uint32_t body : bodies_) {
      if (targets_.contains(body)) continue;
      findings_.remark(where_ + ": no row leads to the moved " + checkName(RowId::fromPointer(body)) + ".");
    }
  }

  // A count may be stale; then a complete index tells how many rows there are.
  void checkRowCount() {
    ++findings_.report().tables;
    if (!whole_ || rows_.size() == definition_.rowCount) return;
    const std::string sentence = where_ + ": it has " + std::to_string(rows_.size()) +
                                 " rows, its count says " + std::to_string(definition_.rowCount) + ".";
    bool confirmed = false;
    for (std::size_t i = 0; i < definition_.indexes.size() && !confirmed; ++i) {
      if (definition_.indexes[i].ignoresNulls()) continue;
      findings_.attempt(where_, [&] { confirmed = table_.index(i).countEntries() == rows_.size(); });
    }
    confirmed ? findings_.remark(sentence) : findings_.error(sentence);
  }

  void checkLongValueMaps() {
    for (std::size_t i = 0; i < definition_.columns.size(); ++i) {
      const ColumnDefinition& column = definition_.columns[i];
      if (!column.isLongValue()) continue;
      findings_.attempt(where_ + ", column " + toUtf8(column.name), [&] { checkLongValueMap(column, i); });
    }
  }

  void checkLongValueMap(const ColumnDefinition& column, std::size_t position) {
    const std::set<std::uint32_t>& used = longValuePages_[position];
    const std::string of = " of column " + toUtf8(column.name);
    if (column.longValueOwnedMap == 0) {
      if (!used.empty()) error("the long values" + of + " have no page map");
      return;
    }
    const std::vector<std::uint32_t> pages = claimMap(column.longValueOwnedMap);
    checkFreeMap(pages, column.longValueFreeMap, of);
    const auto owner =
        places_.owners.add("the long values of " + toUtf8(table_.name()) + "." + toUtf8(column.name));
    for (const std::uint32_t number : pages) {
      if (places_.owners.claimOnce(number, owner)) checkLongValuePage(number);
    }
    if (!std::ranges::includes(pages, used)) error("the page map of the long values" + of + " lacks pages");
  }

  void checkLongValuePage(std::uint32_t number) {
    const PageRef page = file_.page(number, definition_.page);
    if (page->type() != static_cast<std::uint8_t>(PageType::Data) ||
        DataPage(*page, file_.format()).owner() != DataPage::longValueOwner) {
      error("page " + std::to_string(number) + " of a long value map is of another kind");
    }
  }

  const Table& table_;
  const PageFile& file_;
  const TableDefinition& definition_;
  CheckedPlaces& places_;
  CheckFindings& findings_;
  std::string where_;
  std::vector<RowId> rows_;                   // live rows, ascending
  bool whole_ = true;                         // every data page and row could be read
  std::set<std::uint32_t> bodies_, targets_;  // moved rows, and where pointer rows lead
  std::vector<std::set<std::uint32_t>> longValuePages_ =
      std::vector<std::set<std::uint32_t>>(definition_.columns.size());
};

}  // namespace

void checkTable(const Table& table, CheckedPlaces& places, CheckFindings& findings) {
  TableCheck(table, places, findings).run();
}

}  // namespace jet
