#pragma once

#include <array>
#include <memory>

#include "jet/create/page_array.h"
#include "jet/create/table_writer.h"
#include "jet/create/usage_map_writer.h"

namespace jet::create {

// The four system tables, and what they say about themselves and the user's tables. Takes pages 2 to 15.
class Catalog {
 public:
  // Pages 0 and 1 exist already. `created`: dates of the catalog's rows. `databaseProperties` may be empty.
  Catalog(PageArray& pages, double created, const Bytes& databaseProperties);

  // Rows for a user table whose definition stands on `page`.
  void addTable(const Text& name, std::uint32_t page, const Bytes& properties);
  void finish();

 private:
  void insertObject(std::uint32_t id, std::uint32_t parent, const Text& name, std::int32_t type,
                    std::uint32_t flags, const Bytes& owner, const Bytes& properties);
  void insertOwnObjects(const Bytes& databaseProperties);
  void insertAccess(std::uint32_t object, const Bytes& account, std::uint32_t rights, bool inheritable);
  void insertOwnAccess();

  PageArray& pages_;
  double created_;
  std::unique_ptr<UsageMapRows> maps_;
  std::array<std::unique_ptr<TableWriter>, 4> tables_;
};

}  // namespace jet::create
