#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "jet/sql/hash_index.h"

namespace jet::sql {

// What one session has learnt: the hash tables it built, and how the file's indexes served it.
class AccessPaths {
 public:
  // How the first `columns` columns of an index served so far.
  struct IndexUse {
    const Table* table = nullptr;
    std::size_t index = 0, columns = 0;
    std::uint64_t lookups = 0, rows = 0;
    std::uint64_t inVain = 0;  // rows that were fetched and then did not match the other conditions
    double rowsPerLookup() const {
      return lookups == 0 ? 0 : static_cast<double>(rows) / static_cast<double>(lookups);
    }
  };

  // Valid until the next call.
  IndexUse& use(const Table& table, std::size_t index, std::size_t columns);
  // Whether so many rows were fetched in vain that reading the whole table for a hash would have cost less:
  // a row through an index costs about four in a scan.
  bool isOutrun(const Table& table, std::size_t index, std::size_t columns) {
    return use(table, index, columns).inVain > table.definition().rowCount / 4;
  }
  // nullptr if it was not built yet.
  const HashIndex* findHash(const Table& table, std::span<const HashColumn> columns) const;
  // Builds it if need be. Lives as long as this object.
  const HashIndex& hash(const Table& table, std::span<const HashColumn> columns);

 private:
  std::vector<IndexUse> uses_;
  std::vector<std::unique_ptr<HashIndex>> hashes_;
};

}  // namespace jet::sql
