#pragma once

#include <filesystem>
#include <memory>
#include <span>
#include <string>

#include "bench/association.h"
#include "bench/jet_copy.h"

struct sqlite3;

namespace bench {

// The same association in an SQLite file with the same indexes, and the same questions asked through its C
// API. Its page cache has the size of ours.
class SqliteCopy {
 public:
  SqliteCopy(const Association& association, Indexes indexes, const std::filesystem::path& path);

  void reopen();
  // Prepares, steps to the end reading every column, finalizes. Returns the number of rows.
  std::size_t query(const std::string& text);

  // From now on a transaction is on the disk when it ends: a rollback journal, and everything flushed.
  void writeDurably();
  // Each as a transaction of its own, or all as one.
  void insertEach(std::span<const Person> persons);
  void insertAll(std::span<const Person> persons);

 private:
  void execute(const char* text);
  void fill(const Association& association);

  std::filesystem::path path_;
  struct Close {
    void operator()(sqlite3* database) const;
  };
  std::unique_ptr<sqlite3, Close> database_;
  std::size_t bytesSeen_ = 0;  // so that reading is not optimized away
};

}  // namespace bench
