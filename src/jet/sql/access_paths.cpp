#include "jet/sql/access_paths.h"

#include <algorithm>

namespace jet::sql {

AccessPaths::IndexUse& AccessPaths::use(const Table& table, std::size_t index, std::size_t columns) {
  const auto found = std::ranges::find_if(uses_, [&](const IndexUse& use) {
    return use.table == &table && use.index == index && use.columns == columns;
  });
  if (found != uses_.end()) return *found;
  return uses_.emplace_back(IndexUse{&table, index, columns, 0, 0, 0});
}

const HashIndex* AccessPaths::findHash(const Table& table, std::span<const HashColumn> columns) const {
  const auto found = std::ranges::find_if(
      hashes_, [&](const std::unique_ptr<HashIndex>& hash) { return hash->serves(table, columns); });
  return found == hashes_.end() ? nullptr : found->get();
}

const HashIndex& AccessPaths::hash(const Table& table, std::span<const HashColumn> columns) {
  if (const HashIndex* found = findHash(table, columns)) return *found;
  hashes_.push_back(
      std::make_unique<HashIndex>(table, std::vector<HashColumn>(columns.begin(), columns.end())));
  return *hashes_.back();
}

}  // namespace jet::sql
