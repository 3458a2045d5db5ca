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

// One given value for each column.
inline jet::write::RowValues given(const std::vector<jet::Value>& values) {
  return {values.begin(), values.end()};
}
