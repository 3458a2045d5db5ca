#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "jet/file_pool.h"
#include "jet/table.h"

namespace jet {

struct OpenOptions {
  std::size_t cacheBytes = 32u << 20;  // bound of the page cache
  bool ignorePassword = false;         // the password does not encode anything; `jet` the tool may look
  WarningSink warn;                    // stale counts and the like; one English sentence each
  RecoverySink recovered = {};         // a journal was found at opening
};

struct TableEntry {
  Text name;
  std::uint32_t definitionPage = 0;
  bool system = false;
  bool hidden = false;  // temporary tables, names that start with "~"
};

// An open database file. Opening reads page 0 and the definition of the catalog; everything else is read when
// asked for. Rows are changed through jet/write. Not for several threads.
class Database {
 public:
  Database(FileSystem& files, const std::filesystem::path& path, const OpenOptions& options = {});
  // Shares the file with the other databases of the pool.
  Database(FilePool& pool, const std::filesystem::path& path, const OpenOptions& options = {});
  ~Database();

  const Header& header() const;
  const PageFile& pages() const;
  PageFile& pages();
  // A table as the catalog has it now. Error(NoSuchTable), Error(Damaged) if its name is not unique.
  TableEntry entry(std::u16string_view name);
  // All local tables, in the catalog's stored order.
  const std::vector<TableEntry>& tables() const;
  // By name without case, in any letter case. Error(NoSuchTable). The reference holds until the file's
  // version changes (PageFile::version): a transaction of any connection, another program's writing.
  Table& table(std::u16string_view name);
  // Properties of a table as the catalog keeps them (Required, DefaultValue, ...); empty if there are none.
  Bytes tableProperties(std::u16string_view name);
  ChangeStamp stamp() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace jet
