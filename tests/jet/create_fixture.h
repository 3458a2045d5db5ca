#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "common/memory_files.h"
#include "jet/check.h"
#include "jet/create/database_builder.h"
#include "jet/database.h"
#include "jet/hex.h"

// A finished file, open in memory, and its bytes.
struct Created {
  explicit Created(jet::create::DatabaseBuilder& builder, jet::OpenOptions options = {}) {
    files.put("new.mdb", builder.finish());
    database = std::make_unique<jet::Database>(files, "new.mdb", std::move(options));
  }

  std::span<const std::uint8_t> page(std::uint32_t number) {
    return std::span(files.at("new.mdb").content).subspan(std::size_t{number} * 4096, 4096);
  }
  std::uint32_t pageCount() { return static_cast<std::uint32_t>(files.at("new.mdb").content.size() / 4096); }

  // All rows in stored order, all columns in display order.
  std::vector<std::vector<jet::Value>> rows(const jet::Text& table) {
    const jet::Table& source = database->table(table);
    std::vector<std::vector<jet::Value>> result;
    jet::TableScan scan = source.scan();
    for (jet::Row row; scan.next(row);) {
      auto& values = result.emplace_back();
      for (std::size_t i = 0; i < source.definition().columns.size(); ++i) values.push_back(row.value(i));
    }
    return result;
  }

  // Errors of the whole file, one a line; empty if it is in order.
  std::string errors() {
    std::string text;
    for (const std::string& error : jet::check(*database).errors) text += error + "\n";
    return text;
  }

  MemoryFiles files;
  std::unique_ptr<jet::Database> database;
};

inline jet::create::ColumnSpec column(const char16_t* name, jet::ColumnType type,
                                      std::uint16_t characters = 0) {
  return {.name = name, .type = type, .characters = characters};
}

// "C7"; no two numbers give equal names.
inline jet::Text numbered(char16_t letter, std::size_t number) {
  const std::string digits = std::to_string(number);
  return letter + jet::Text(digits.begin(), digits.end());
}

inline std::uint32_t u16At(std::span<const std::uint8_t> bytes, std::size_t offset) {
  return bytes[offset] | std::uint32_t{bytes[offset + 1]} << 8;
}
inline std::uint32_t u32At(std::span<const std::uint8_t> bytes, std::size_t offset) {
  return u16At(bytes, offset) | u16At(bytes, offset + 2) << 16;
}
// A row of a page with slots.
inline std::span<const std::uint8_t> slotAt(std::span<const std::uint8_t> page, std::size_t slot) {
  const std::size_t end = slot == 0 ? 4096 : u16At(page, 14 + 2 * (slot - 1)) & 0x1FFF;
  const std::size_t start = u16At(page, 14 + 2 * slot) & 0x1FFF;
  return page.subspan(start, end - start);
}
inline std::string hexOf(std::span<const std::uint8_t> bytes) {
  return jet::hex({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}
