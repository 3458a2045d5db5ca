#pragma once

#include <cstdint>

#include "jet/transaction.h"

namespace jet::write {

// What changes in a table's definition when its rows do: always read from and written to the page itself.
// All of it stands on the definition's first page.
class DefinitionCounters {
 public:
  DefinitionCounters(Transaction& transaction, std::uint32_t page) : transaction_(transaction), page_(page) {}

  void rowAdded();
  void rowRemoved();
  void distinctKeyAdded(std::size_t index);
  std::int32_t lastAutoNumber() const;
  void setLastAutoNumber(std::int32_t number);

 private:
  std::uint32_t get(std::size_t offset) const;
  void set(std::size_t offset, std::uint32_t value);

  Transaction& transaction_;
  std::uint32_t page_;
};

}  // namespace jet::write
