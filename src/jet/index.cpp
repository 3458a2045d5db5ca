#include "jet/index.h"

#include <algorithm>
#include <cmath>

#include "jet/error.h"
#include "jet/index_key.h"
#include "jet/table.h"

namespace jet {

namespace {

constexpr char16_t unreadableUnit = u'\uFFFD';

bool containsReplacement(const Value& value) {
  const Text* text = std::get_if<Text>(&value);
  return text != nullptr && text->find(unreadableUnit) != Text::npos;
}

bool isZero(const Numeric& value) {
  return std::ranges::all_of(value.groups, [](std::uint32_t group) { return group == 0; });
}

// Values that a tree cannot be searched for: equal ones may be stored with different keys (0 and -0), and the
// place of empty binaries among others is not certain.
bool isUnsearchable(const Value& value) {
  const auto unsure = [](double number) { return number == 0 || std::isnan(number); };
  if (const auto* number = std::get_if<float>(&value)) return unsure(*number);
  if (const auto* number = std::get_if<double>(&value)) return unsure(*number);
  if (const auto* date = std::get_if<DateTime>(&value)) return unsure(date->days);
  if (const auto* number = std::get_if<Numeric>(&value)) return isZero(*number);
  return std::holds_alternative<Bytes>(value);
}

// Order 0 stands for the file's own.
ColumnDefinition withOwnSortOrder(ColumnDefinition column, const Header& header) {
  if (column.sortOrder == 0) column.sortOrder = header.sortOrder;
  return column;
}

}  // namespace

Index::Index(const Table& table, const PageFile& file, std::size_t number)
    : table_(table), file_(file), number_(number) {
  const TableDefinition& tableDefinition = table.definition();
  computable_ =
      !definition().columns.empty() &&
      std::ranges::all_of(definition().columns, [&](const IndexColumn& column) {
        return hasComputableKey(withOwnSortOrder(tableDefinition.columns.at(column.column), file.header()),
                                file.format());
      });
}

const IndexDefinition& Index::definition() const { return table_.definition().indexes[number_]; }

IndexPage Index::view(const PageRef& page) const { return {*page, file_.format(), table_.definition().page}; }

PageRef Index::leafFor(std::string_view probe) const {
  std::uint32_t number = definition().root;
  std::uint32_t from = table_.definition().page;
  for (std::size_t depth = 0; depth < greatestTreeDepth; ++depth) {
    PageRef page = load(number, from);
    const IndexPage node = view(page);
    if (node.isLeaf()) return page;
    from = number;
    number = node.child(node.lowerBound(probe));
  }
  throw Error(ErrorKind::Damaged, "an index tree is too deep", from);
}

PageRef Index::leafAfter(const PageRef& leaf) const {
  PageRef page = load(view(leaf).next(), leaf->number);
  checkNeighbours(leaf, page);
  return page;
}

void Index::checkNeighbours(const PageRef& leaf, const PageRef& behind) const {
  const IndexPage before = view(leaf), after = view(behind);
  const ByteReader blame = behind->reader();
  blame.check(after.isLeaf(), "an index leaf is followed by a page that is none");
  blame.check(before.next() == after.number() && after.previous() == before.number(),
              "the links between index leaves contradict each other");
  if (before.count() == 0 || after.count() == 0) return;
  std::string last, first;
  before.keyAndRow(before.count() - 1, last);
  after.keyAndRow(0, first);
  blame.check(entriesAscend(last, first), "index leaves are out of order");
}

void Index::checkLeafBefore(const IndexPage& leaf, std::string_view probe) const {
  const PageRef page = load(leaf.previous(), leaf.number());
  const IndexPage before = view(page);
  const ByteReader blame = page->reader();
  blame.check(before.isLeaf() && before.next() == leaf.number(),
              "the links between index leaves contradict each other");
  blame.check(before.lowerBound(probe) == before.count(), "an index node leads to the wrong leaf");
}

bool Index::probeFor(std::span<const Value> values, std::string& probe) const {
  const IndexDefinition& index = definition();
  if (!computable_ || values.empty() || values.size() > index.columns.size()) return false;
  // Rows whose index columns are all Null may be missing.
  if (index.ignoresNulls() && std::ranges::all_of(values, isNull)) return false;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const IndexColumn& column = index.columns[i];
    if (isUnsearchable(values[i]) || containsReplacement(values[i])) return false;
    if (!appendKey(values[i], table_.definition().columns[column.column], column.descending, file_.format(),
                   probe)) {
      return false;
    }
  }
  return true;
}

Index::Place Index::findFirst(std::string_view probe) const {
  PageRef page = leafFor(probe);
  const IndexPage first = view(page);
  std::size_t entry = first.lowerBound(probe);
  if (entry == 0 && first.previous() != 0) checkLeafBefore(first, probe);
  // A node may have led here too early.
  for (std::uint32_t leaves = 1; entry == view(page).count() && view(page).next() != 0; ++leaves) {
    page->reader().check(leaves < file_.pageCount(), "index leaves form a circle");
    page = leafAfter(page);
    entry = view(page).lowerBound(probe);
  }
  return {std::move(page), entry};
}

void Index::collect(std::string_view probe, Place& place, std::vector<RowId>& rows) const {
  for (std::uint32_t leaves = 1;; ++leaves) {
    const IndexPage leaf = view(place.leaf);
    for (; place.entry < leaf.count(); ++place.entry) {
      if (!leaf.startsWith(place.entry, probe)) return;
      rows.push_back(leaf.row(place.entry));
    }
    if (leaf.next() == 0) return;
    place.leaf->reader().check(leaves < file_.pageCount(), "index leaves form a circle");
    place = {leafAfter(place.leaf), 0};
  }
}

bool Index::hasKeyOfItsRow(const Place& place) const {
  const IndexPage leaf = view(place.leaf);
  if (place.entry >= leaf.count()) return true;
  std::string stored;
  leaf.key(place.entry, stored);
  try {
    return keyOf(table_.fetch(leaf.row(place.entry))).value_or(stored) == stored;
  } catch (const Error& error) {
    if (error.kind() != ErrorKind::Damaged) throw;
    return false;
  }
}

bool Index::beforeHasKeyOfItsRow(const Place& place) const {
  if (place.entry > 0) return hasKeyOfItsRow({place.leaf, place.entry - 1});
  const IndexPage leaf = view(place.leaf);
  if (leaf.previous() == 0) return true;
  PageRef before = load(leaf.previous(), leaf.number());
  const std::size_t count = view(before).count();
  return count == 0 || hasKeyOfItsRow({std::move(before), count - 1});
}

bool Index::lookup(std::span<const Value> values, std::vector<RowId>& rows) const {
  std::string probe;
  if (!probeFor(values, probe)) return false;
  const std::size_t known = rows.size();
  const Place first = findFirst(probe);
  Place behind = first;
  collect(probe, behind, rows);
  const bool isOnlyRow =
      definition().isUnique() && values.size() == definition().columns.size() && rows.size() > known;
  if (isOnlyRow) return true;
  // A key that was damaged but kept its place hides its row from its own value: it stands beside the others
  // of that value, or where they should be.
  if (beforeHasKeyOfItsRow(first) && hasKeyOfItsRow(behind)) return true;
  rows.resize(known);
  return false;
}

IndexWalk Index::walk() const { return IndexWalk(*this); }

std::uint64_t Index::countEntries() const {
  std::uint64_t count = 0;
  IndexWalk leaves(*this);
  while (leaves.nextLeaf()) count += view(leaves.leaf_).count();
  return count;
}

std::optional<std::string> Index::keyOf(const Row& row) const {
  const IndexDefinition& index = definition();
  if (!computable_) return std::nullopt;
  std::string key;
  bool allNull = true;
  for (const IndexColumn& column : index.columns) {
    const Value value = row.value(column.column);
    allNull = allNull && isNull(value);
    if (containsReplacement(value)) return std::nullopt;
    if (!appendKey(value, table_.definition().columns[column.column], column.descending, file_.format(),
                   key)) {
      return std::nullopt;
    }
  }
  if (allNull && index.ignoresNulls()) return std::nullopt;
  return key;
}

PageRef IndexWalk::descend(std::uint32_t number, std::uint32_t from) {
  for (;;) {
    PageRef page = index_->load(number, from);
    const IndexPage node = index_->view(page);
    if (node.isLeaf()) return page;
    page->reader().check(above_.size() < greatestTreeDepth, "an index tree is too deep");
    from = number;
    number = node.child(0);
    above_.push_back({std::move(page), 0});
  }
}

PageRef IndexWalk::leafBehind() {
  while (!above_.empty()) {
    Step& step = above_.back();
    const IndexPage node = index_->view(step.node);
    const std::size_t children = node.count() + (node.tail() != 0 ? 1 : 0);
    if (++step.child < children) return descend(node.child(step.child), node.number());
    above_.pop_back();
  }
  return nullptr;
}

bool IndexWalk::nextLeaf() {
  position_ = 0;
  if (!started_) {
    started_ = true;
    leaf_ = descend(index_->definition().root, index_->table_.definition().page);
    leaf_->reader().check(index_->view(leaf_).previous() == 0, "the first index leaf has one before it");
    return true;
  }
  if (leaf_ == nullptr) return false;
  leaf_->reader().check(++leavesSeen_ < index_->file_.pageCount(), "index leaves form a circle");
  PageRef behind = leafBehind();
  if (behind != nullptr) {
    index_->checkNeighbours(leaf_, behind);
  } else {
    leaf_->reader().check(index_->view(leaf_).next() == 0, "the last index leaf has one behind it");
  }
  leaf_ = std::move(behind);
  return leaf_ != nullptr;
}

bool IndexWalk::next(IndexEntry& entry) {
  if (!started_) nextLeaf();
  while (leaf_ != nullptr) {
    const IndexPage leaf = index_->view(leaf_);
    if (position_ < leaf.count()) {
      leaf.key(position_, entry.key);
      entry.row = leaf.row(position_++);
      return true;
    }
    nextLeaf();
  }
  return false;
}

}  // namespace jet
