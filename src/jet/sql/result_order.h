#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "jet/table.h"

namespace jet::sql {

// Appends bytes whose order is the database's order of a column's values, Null first (last if descending). No
// key is the start of another key of that column, so that keys of several columns can follow one another.
void appendOrderKey(const Value& value, bool descending, std::string& key);

// Puts result rows in order: by their keys, equal ones by the stored places of the rows they are made of.
class ResultOrder {
 public:
  void begin(std::size_t tableCount);
  // The next row: first its places, one per table of FROM, then its key.
  void addPlace(RowId row) { places_.push_back(row.pointer()); }
  std::string& key() { return keys_; }  // append here
  void endRow();

  std::size_t rowCount() const { return entries_.size(); }
  // The place in the first table of the row that was added as number `number`.
  RowId firstPlace(std::size_t number) const { return RowId::fromPointer(places_[number * tableCount_]); }
  // The numbers of the added rows in their order; empty if they were added in order.
  std::vector<std::uint32_t> sorted();

 private:
  struct Entry {
    std::uint64_t high = 0, low = 0;  // 16 bytes of the key as numbers; the first when the row is added
    std::size_t begin = 0;
    std::uint32_t length = 0;
    std::uint32_t number = 0;
  };
  using Entries = std::vector<Entry>::iterator;

  void load(Entry& entry, std::size_t depth) const;
  bool isInOrder() const;
  // Sorts entries whose keys are equal up to `depth` and that have the 16 bytes from there loaded.
  void sort(Entries begin, Entries end, std::size_t depth);
  bool placesLess(const Entry& left, const Entry& right) const;

  std::size_t tableCount_ = 0;
  std::vector<std::uint32_t> places_;
  std::string keys_;
  std::vector<Entry> entries_;
};

}  // namespace jet::sql
