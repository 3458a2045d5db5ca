#pragma once

#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "jet/create_fixture.h"
#include "jet/index.h"
#include "jet/transaction.h"
#include "jet/write/table_writer.h"

// A file in memory that is changed, and checked as a whole after every change.
struct Writable : Created {
  using Created::Created;
  using RowValues = jet::write::RowValues;

  // One committed transaction. Whatever it throws goes on, after it was rolled back.
  void change(const jet::Text& table, const std::function<void(jet::write::TableWriter&)>& work) {
    {
      jet::Transaction transaction(database->pages());
      jet::write::TableWriter writer(transaction, *database, table);
      work(writer);
      transaction.commit();
    }
    EXPECT_EQ(errors(), "");
  }
  jet::RowId insert(const jet::Text& table, const RowValues& values) {
    jet::RowId row;
    change(table, [&](auto& writer) { row = writer.insert(values); });
    return row;
  }
  void update(const jet::Text& table, jet::RowId row, const RowValues& values) {
    change(table, [&](auto& writer) { writer.update(row, values); });
  }
  void erase(const jet::Text& table, jet::RowId row) {
    change(table, [&](auto& writer) { writer.erase(row); });
  }

  // How a change fails, with the reason; the file must stay byte for byte what it was.
  std::pair<std::optional<jet::ErrorKind>, std::string> refusal(
      const jet::Text& table, const std::function<void(jet::write::TableWriter&)>& work) {
    const auto before = content();
    std::pair<std::optional<jet::ErrorKind>, std::string> result;
    try {
      jet::Transaction transaction(database->pages());
      jet::write::TableWriter writer(transaction, *database, table);
      work(writer);
      transaction.commit();
    } catch (const jet::Error& error) {
      result = {error.kind(), error.reason()};
    }
    EXPECT_EQ(content(), before);
    return result;
  }

  // Puts something into the file behind the engine's back. `work` gets the bytes of a page.
  void patch(std::uint32_t page, const std::function<void(std::span<std::uint8_t>)>& work) {
    auto bytes = content();
    work(std::span(bytes).subspan(std::size_t{page} * 4096, 4096));
    replaceContent(std::move(bytes));
  }
  void replaceContent(std::vector<std::uint8_t> bytes) {
    database.reset();
    files.put("new.mdb", std::move(bytes));
    database = std::make_unique<jet::Database>(files, "new.mdb");
  }
  std::uint32_t definitionPage(const jet::Text& table) { return database->table(table).definition().page; }

  const std::vector<std::uint8_t>& content() { return files.at("new.mdb").content; }
  jet::Value value(const jet::Text& table, jet::RowId row, std::size_t column) {
    return database->table(table).fetch(row).value(column);
  }
  // The index's rows for a value, in order.
  std::vector<jet::RowId> find(const jet::Text& table, std::size_t index,
                               const std::vector<jet::Value>& key) {
    std::vector<jet::RowId> rows;
    EXPECT_TRUE(database->table(table).index(index).lookup(key, rows));
    return rows;
  }
};

// Where the sections of a definition on one page stand, for faults to be planted.
struct DefinitionOffsets {
  std::size_t columns, logicalIndexes;  // of the first one; 25 and 28 bytes each

  explicit DefinitionOffsets(std::span<const std::uint8_t> page) {
    const std::size_t count = u16At(page, 45), trees = u32At(page, 51);
    columns = 63 + 12 * trees;
    std::size_t at = columns + 25 * count;
    for (std::size_t i = 0; i < count; ++i) at += 2 + u16At(page, at);
    logicalIndexes = at + 52 * trees;
  }
};

// One given value for each column.
inline jet::write::RowValues given(const std::vector<jet::Value>& values) {
  return {values.begin(), values.end()};
}
