#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "jet/index_page.h"
#include "jet/row_id.h"
#include "jet/table_definition.h"
#include "jet/transaction.h"
#include "jet/write/index_page_editor.h"
#include "jet/write/page_allocator.h"
#include "jet/write/usage_map_editor.h"

namespace jet::write {

// Inserts into and deletes from one B-tree. The keys are ready bytes (Index::keyOf, appendKey).
//
// The root's page never changes. A node describes each child but the last by the last entry of that child;
// the last one is its tail. A node with a single child describes it and has no tail. So a new entry is never
// greater than what a parent says, except behind the end of the whole tree where such a node stands.
class IndexWriter {
 public:
  // `owner`: the table's definition page. `index` must outlive this.
  IndexWriter(Transaction& transaction, PageAllocator& allocator, std::uint32_t owner,
              const IndexDefinition& index);

  // Whether some row has exactly this key; looks into the neighbouring leaves, too.
  bool contains(std::string_view key) const;
  // True: no entry had this key before. Errors: Limit (a key longer than half a page), Damaged.
  bool insert(std::string_view key, RowId row);
  // The entry must be there, else Error(Damaged): the index does not fit the rows.
  void erase(std::string_view key, RowId row);

 private:
  // A page on the way to a leaf, and the entry whose child was taken; that behind the last one is the tail.
  // In the leaf: the first entry that is not less than the one looked for.
  struct Step {
    std::uint32_t page = 0;
    std::size_t entry = 0;
  };
  // From the leaf up to the root: the position is the level above the leaves. Changes of the tree keep it
  // right above the level where they happen.
  using Path = std::vector<Step>;
  enum class Side { Previous, Next };

  PageRef load(std::uint32_t number, std::uint32_t from) const {
    return transaction_.file().page(number, from);
  }
  IndexPage view(const PageRef& page) const { return {*page, transaction_.file().format(), owner_}; }
  Path descend(std::string_view probe) const;
  PageRef neighbour(const IndexPage& leaf, Side side) const;
  bool hasKeyBeside(const IndexPage& leaf, std::size_t position, std::string_view entry) const;
  std::string greatestBelow(std::uint32_t number, std::uint32_t from) const;

  std::uint32_t addPage();
  void setGreatest(Path& path, std::size_t level, std::string_view greatest);
  // Stores a page of the path; parts it where it is too full. `changed`: the entry that came last.
  void store(Path& path, std::size_t level, IndexContent content, std::size_t changed);
  void divide(Path& path, std::size_t level, IndexContent content, std::size_t changed);
  void growRoot(Path& path, std::uint8_t level);
  void insertChild(Path& path, std::size_t level, const std::string& entry, bool followNew);
  void removePage(Path& path, std::size_t level);
  void removeChild(Path& path, std::size_t level);
  void link(std::uint32_t number, std::uint32_t from, Side side, std::uint32_t to, bool leaf);
  void partNodes(const IndexContent& left, const IndexContent& right);

  Transaction& transaction_;
  PageAllocator& allocator_;
  std::uint32_t owner_;
  const IndexDefinition& index_;
  UsageMapEditor map_;
};

}  // namespace jet::write
