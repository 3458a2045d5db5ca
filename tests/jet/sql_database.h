#pragma once

#include <memory>
#include <string>
#include <utility>

#include "common/memory_files.h"
#include "jet/create/database_builder.h"
#include "jet/sql/session.h"
#include "jet/text_codec.h"

// A database that a test made, opened from memory, with one session.
struct SqlDatabase {
  explicit SqlDatabase(jet::create::DatabaseBuilder& builder) {
    files.put("test.mdb", builder.finish());
    open();
  }
  void open() {
    session.reset();
    database = std::make_unique<jet::Database>(files, "test.mdb");
    session = std::make_unique<jet::sql::Session>(*database);
  }

  MemoryFiles files;
  std::unique_ptr<jet::Database> database;
  std::unique_ptr<jet::sql::Session> session;
};

inline jet::create::ColumnSpec sqlColumn(const char16_t* name, jet::ColumnType type,
                                         std::uint16_t characters = 0) {
  jet::create::ColumnSpec spec;
  spec.name = name;
  spec.type = type;
  spec.characters = characters;
  return spec;
}

inline jet::create::IndexSpec sqlIndex(const char16_t* name, std::vector<jet::Text> columns,
                                       bool primaryKey = false) {
  jet::create::IndexSpec spec;
  spec.name = name;
  spec.columns = std::move(columns);
  spec.primaryKey = primaryKey;
  return spec;
}

inline std::string rendered(const jet::Value& value) {
  if (const auto* text = std::get_if<jet::Text>(&value)) return jet::toUtf8(*text);
  if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
  if (const auto* truth = std::get_if<bool>(&value)) return *truth ? "true" : "false";
  if (jet::isNull(value)) return "NULL";
  return "?";
}

// "1,Huber;2,NULL": rows apart by semicolons.
inline std::string rendered(const jet::sql::ResultSet& result) {
  std::string text;
  for (std::size_t row = 0; row < result.rowCount(); ++row) {
    if (row != 0) text += ';';
    for (std::size_t column = 0; column < result.columns.size(); ++column) {
      if (column != 0) text += ',';
      text += rendered(result.cell(row, column));
    }
  }
  return text;
}

inline std::string rendered(const jet::sql::Plan& plan) {
  std::string text;
  for (const std::string& step : plan.steps) text += (text.empty() ? "" : "; ") + step;
  return text;
}
