#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "jet/check_index.h"
#include "jet/create_fixture.h"
#include "jet/index.h"
#include "jet/usage_map.h"
#include "jet/write/index_writer.h"

namespace jet::test {

using IndexKey = std::pair<std::string, RowId>;

// One index of a table in a file that is being changed, and what should stand in it.
class IndexTree {
 public:
  IndexTree(Database& database, Text table, std::size_t number)
      : database_(database), table_(std::move(table)), number_(number), transaction_(database.pages()) {
    const Index& index = this->table().index(number);
    TableScan scan = this->table().scan();
    for (Row row; scan.next(row);) {
      rows_.push_back(row.id());
      if (const auto key = index.keyOf(row)) all_.emplace_back(*key, row.id());
    }
    std::ranges::sort(all_);
    present_ = {all_.begin(), all_.end()};
  }

  // Every entry of the table, in order.
  const std::vector<IndexKey>& all() const { return all_; }
  const std::set<IndexKey>& present() const { return present_; }
  write::IndexWriter& writer() { return writer_; }
  Transaction& transaction() { return transaction_; }
  const IndexDefinition& definition() const { return definition_; }

  void insert(const IndexKey& entry) {
    const auto behind = present_.lower_bound({entry.first, RowId{}});
    const bool isNew = behind == present_.end() || behind->first != entry.first;
    EXPECT_EQ(writer_.contains(entry.first), !isNew);
    EXPECT_EQ(writer_.insert(entry.first, entry.second), isNew);
    present_.insert(entry);
  }
  void erase(const IndexKey& entry) {
    writer_.erase(entry.first, entry.second);
    present_.erase(entry);
  }

  // What contradicts the format, or is not what should be there; empty if all is well.
  std::string faults() {
    std::vector<RowId> rows;
    for (const IndexKey& entry : present_) rows.push_back(entry.second);
    // Rows without an entry need none.
    if (present_.size() == all_.size()) rows = rows_;
    std::ranges::sort(rows);
    CheckReport report;
    CheckFindings findings(report);
    PageOwners owners(database_.pages().pageCount(), findings);
    checkIndex(table(), number_, rows, owners, findings);
    for (const std::uint32_t page : pages()) checkBytes(page, findings);
    std::string text;
    for (const auto& list : {report.errors, report.remarks}) {
      for (const std::string& finding : list) text += finding + "\n";
    }
    return text;
  }

  std::vector<std::uint32_t> pages() {
    return readUsageMap(database_.pages(), definition_.ownedMap, table().definition().page);
  }
  std::size_t height() {
    return database_.pages().page(definition_.root, 0)->bytes[encode::IndexPageWriter::levelOffset];
  }

 private:
  Table& table() { return database_.table(table_); }

  // What a reader of the entries does not look at.
  void checkBytes(std::uint32_t number, CheckFindings& findings) {
    const PageRef page = database_.pages().page(number, 0);
    const IndexPage view(*page, database_.pages().format(), table().definition().page);
    const auto fail = [&](const char* what) { findings.error(std::to_string(number) + ": " + what); };
    if (u16At(page->bytes, 2) != 4096 - view.end()) fail("free bytes");
    if (std::any_of(page->bytes.begin() + view.end(), page->bytes.end(), [](auto byte) { return byte != 0; }))
      fail("rubbish behind the entries");
    const auto level = page->bytes[encode::IndexPageWriter::levelOffset];
    if (view.isLeaf()) {
      if (level != 0) fail("level of a leaf");
      return;
    }
    if (page->indexLayout->prefixLength != 0) fail("a node shares bytes");
    if (view.count() == 0 || (view.tail() == 0 && view.count() > 1)) fail("form of a node");
    const PageRef child = database_.pages().page(view.child(0), number);
    if (child->bytes[encode::IndexPageWriter::levelOffset] + 1 != level) fail("level of a node");
  }

  Database& database_;
  Text table_;
  std::size_t number_;
  Transaction transaction_;
  write::PageAllocator allocator_{transaction_};
  IndexDefinition definition_ = table().definition().indexes[number_];
  std::vector<RowId> rows_;
  std::vector<IndexKey> all_;
  std::set<IndexKey> present_;
  write::IndexWriter writer_{transaction_, allocator_, table().definition().page, definition_};
};

}  // namespace jet::test
