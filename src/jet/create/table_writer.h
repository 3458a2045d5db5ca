#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "jet/create/definition_encoder.h"
#include "jet/create/index_builder.h"
#include "jet/create/long_values.h"
#include "jet/create/page_array.h"
#include "jet/create/table_layout.h"
#include "jet/create/usage_map_writer.h"
#include "jet/encode/row_contents.h"
#include "jet/encode/row_key.h"
#include "jet/row_id.h"

namespace jet::create {

// One table, system or user, while its file is being made: rows go to their pages at once, indexes, maps and
// the definition are written by `finish`.
class TableWriter {
 public:
  // `definitionPage` is allocated already; the index roots are allocated here. `maps` must outlive this.
  TableWriter(PageArray& pages, UsageMapRows& maps, std::uint32_t definitionPage, TableLayout layout,
              TableKind kind);

  const TableLayout& layout() const { return layout_; }
  std::uint32_t definitionPage() const { return layout_.definition.page; }

  // A first data page even if there is no row.
  void addDataPage();
  RowId insert(std::vector<Value> values);
  void erase(RowId row);
  void move(RowId row);
  void addColumn(const ColumnSpec& spec);
  void deleteColumn(const Text& name);

  // Everything but the rows: indexes, maps, definition. No row may follow.
  void finish();

 private:
  void addMaps();
  void addLongValueMaps(ColumnDefinition& column);
  void prepare(std::vector<Value>& values);
  void checkRules(const Value& value, std::size_t column) const;
  Bytes encode(const std::vector<Value>& values);
  void encodeContents(const std::vector<Value>& values);
  void checkKeys(const std::vector<Value>& values);
  void addKeys(RowId row);
  void releaseLongValues(std::span<const std::uint8_t> row);
  RowId place(std::span<const std::uint8_t> row, std::uint16_t flags);
  RowId bodyOf(RowId row);
  std::vector<std::uint32_t> withSpace(const std::vector<std::uint32_t>& owned);

  PageArray& pages_;
  UsageMapRows& maps_;
  TableLayout layout_;
  TableKind kind_;
  std::vector<std::uint32_t> dataPages_;
  std::map<std::uint16_t, LongValueStore> longValues_;  // by column number
  std::vector<IndexBuilder> indexes_;
  std::vector<RowId> removed_;
  std::size_t fixedBytes_ = 0;

  std::vector<RowKey> keys_;             // of the row at hand
  std::vector<ColumnContent> contents_;  // its columns
};

}  // namespace jet::create
