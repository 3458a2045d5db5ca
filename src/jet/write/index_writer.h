#pragma once

#include <cstdint>
#include <string_view>

#include "jet/row_id.h"
#include "jet/table_definition.h"
#include "jet/transaction.h"
#include "jet/write/page_allocator.h"
#include "jet/write/usage_map_editor.h"

namespace jet::write {

// Inserts into and deletes from one B-tree. The keys are ready bytes (Index::keyOf, appendKey).
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
  Transaction& transaction_;
  PageAllocator& allocator_;
  std::uint32_t owner_;
  const IndexDefinition& index_;
  UsageMapEditor map_;
};

}  // namespace jet::write
