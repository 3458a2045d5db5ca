#include "jet/check_index.h"

#include <algorithm>
#include <optional>

#include "jet/index.h"
#include "jet/index_page.h"
#include "jet/text_codec.h"
#include "jet/usage_map.h"

namespace jet {

namespace {

class IndexCheck {
 public:
  IndexCheck(const Table& table, std::size_t number, const std::vector<RowId>& rows, PageOwners& owners,
             CheckFindings& findings)
      : table_(table),
        index_(table.index(number)),
        rows_(rows),
        owners_(owners),
        findings_(findings),
        where_("Index " + std::to_string(number) + " of table " + toUtf8(table.name())),
        owner_(owners.add("index " + std::to_string(number) + " of table " + toUtf8(table.name()))),
        hasEntry_(rows.size()) {}

  void run() {
    const bool whole = findings_.attempt(
        where_, [&] { visit(index_.definition().root, table_.definition().page, 0, std::nullopt); });
    if (lastLeaf_ != 0 && linkedNext_ != 0) error("the last leaf has one behind it", lastLeaf_);
    if (whole && complete_) checkMissingRows();
    findings_.attempt(where_, [&] { checkMap(); });
  }

 private:
  void error(const std::string& what, std::uint32_t page) {
    findings_.error(where_ + ": " + what + " (page " + std::to_string(page) + ").");
  }

  // The subtree of `number`; `last` is the greatest entry that its parent states for it.
  void visit(std::uint32_t number, std::uint32_t from, std::size_t depth,
             const std::optional<std::string>& last) {
    if (!owners_.claimOnce(number, owner_)) {
      complete_ = false;
      return;
    }
    pages_.push_back(number);
    const PageRef page = table_.file().page(number, from);
    const IndexPage view(*page, table_.file().format(), table_.definition().page);
    if (view.isLeaf()) {
      visitLeaf(view, depth);
    } else {
      visitNode(view, depth);
    }
    if (last && greatest_ != *last) error("the entry of a node is not the last one of its child", number);
  }

  void visitNode(const IndexPage& node, std::size_t depth) {
    if (depth >= greatestTreeDepth) throw Error(ErrorKind::Damaged, "the tree is too deep", node.number());
    std::string entry;
    for (std::size_t i = 0; i < node.count(); ++i) {
      node.keyAndRow(i, entry);
      visitChild(node.child(i), node.number(), depth, entry);
    }
    if (node.tail() != 0) visitChild(node.tail(), node.number(), depth, std::nullopt);
  }

  // A damaged child leaves its brothers to be checked.
  void visitChild(std::uint32_t number, std::uint32_t parent, std::size_t depth,
                  const std::optional<std::string>& last) {
    if (!findings_.attempt(where_, [&] { visit(number, parent, depth + 1, last); })) {
      complete_ = false;
      lastLeaf_ = 0;
    }
  }

  void visitLeaf(const IndexPage& leaf, std::size_t depth) {
    if (!leafDepth_) leafDepth_ = depth;
    if (*leafDepth_ != depth) error("the leaves are not all on one level", leaf.number());
    if (leaf.count() == 0 && depth > 0)
      findings_.remark(where_ + ": an empty leaf (page " + std::to_string(leaf.number()) + ").");
    if (leaf.previous() != lastLeaf_ && (lastLeaf_ != 0 || complete_)) {
      error("a leaf does not link back to the one before it", leaf.number());
    }
    if (lastLeaf_ != 0 && linkedNext_ != leaf.number()) {
      error("a leaf does not link to the one behind it", lastLeaf_);
    }
    lastLeaf_ = leaf.number();
    linkedNext_ = leaf.next();
    if (leaf.count() > 0 && !greatest_.empty()) {
      std::string first;
      leaf.keyAndRow(0, first);
      if (!entriesAscend(greatest_, first)) error("the leaves are out of order", leaf.number());
    }
    for (std::size_t i = 0; i < leaf.count(); ++i) checkEntry(leaf, i);
    if (leaf.count() > 0) leaf.keyAndRow(leaf.count() - 1, greatest_);
  }

  void checkEntry(const IndexPage& leaf, std::size_t entry) {
    ++findings_.report().indexEntries;
    const RowId id = leaf.row(entry);
    std::string key;
    leaf.key(entry, key);
    checkUnique(key, leaf.number());
    const auto found = std::ranges::lower_bound(rows_, id);
    if (found == rows_.end() || *found != id) {
      error("an entry leads to " + checkName(id) + ", which does not exist", leaf.number());
      return;
    }
    auto hasEntry = hasEntry_[static_cast<std::size_t>(found - rows_.begin())];
    if (hasEntry) error("two entries lead to " + checkName(id), leaf.number());
    hasEntry = true;
    checkKey(id, key, leaf.number());
  }

  void checkKey(RowId id, const std::string& key, std::uint32_t page) {
    findings_.attempt([&] { return where_ + ", " + checkName(id); },
                      [&] {
                        const Row row = table_.fetch(id);
                        if (isLeftOut(row)) {
                          error("the Nulls of " + checkName(id) + " have an entry", page);
                        } else if (const std::optional<std::string> computed = index_.keyOf(row)) {
                          ++findings_.report().keysCompared;
                          if (*computed != key)
                            error("the key of " + checkName(id) + " is not that of its values", page);
                        }
                      });
  }

  void checkUnique(const std::string& key, std::uint32_t page) {
    // All Nulls may stand several times.
    const bool equal =
        key == lastKey_ && key.find_first_not_of(std::string_view("\x00\xFF", 2)) != std::string::npos;
    if (equal && index_.definition().isUnique()) error("a key stands twice in a unique index", page);
    lastKey_ = key;
  }

  bool isLeftOut(const Row& row) const {
    return index_.definition().ignoresNulls() &&
           std::ranges::all_of(index_.definition().columns,
                               [&](const IndexColumn& column) { return row.isNull(column.column); });
  }

  void checkMissingRows() {
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      if (hasEntry_[i]) continue;
      findings_.attempt(where_, [&] {
        if (!isLeftOut(table_.fetch(rows_[i]))) {
          findings_.error(where_ + ": " + checkName(rows_[i]) + " has no entry.");
        }
      });
    }
  }

  void checkMap() {
    if (!complete_) return;
    const std::vector<std::uint32_t> map =
        readUsageMap(table_.file(), index_.definition().ownedMap, table_.definition().page);
    std::ranges::sort(pages_);
    if (map != pages_) {
      findings_.error(where_ + ": its usage map has " + std::to_string(map.size()) +
                      " pages and is not that of the " + std::to_string(pages_.size()) +
                      " pages of its tree.");
    }
  }

  const Table& table_;
  const Index& index_;
  const std::vector<RowId>& rows_;
  PageOwners& owners_;
  CheckFindings& findings_;
  std::string where_;
  PageOwners::Owner owner_;
  std::vector<bool> hasEntry_;  // beside rows_
  std::vector<std::uint32_t> pages_;
  bool complete_ = true;  // every page of the tree was read
  std::string greatest_;  // key and row of the last entry so far
  std::string lastKey_;   // its key
  std::uint32_t lastLeaf_ = 0, linkedNext_ = 0;
  std::optional<std::size_t> leafDepth_;
};

}  // namespace

void checkIndex(const Table& table, std::size_t number, const std::vector<RowId>& rows, PageOwners& owners,
                CheckFindings& findings) {
  IndexCheck(table, number, rows, owners, findings).run();
}

}  // namespace jet
