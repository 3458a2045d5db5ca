#include <algorithm>
#include <functional>
#include <random>

#include "common/memory_files.h"
#include "jet/database.h"
#include "jet/error.h"
#include "jet/foreign_reader.h"
#include "jet/random_rows.h"
#include "jet/text_codec.h"
#include "jet/write/table_writer.h"

namespace jet::test {
namespace {

class WrittenForForeignReader : public ForeignReader {
 protected:
  WrittenForForeignReader() {
    create::DatabaseBuilder builder;
    for (const create::TableSpec& table : randomTables()) builder.addTable(table);
    files_.put("a.mdb", builder.finish());
    database_ = std::make_unique<Database>(files_, "a.mdb");
  }

  write::RowValues randomRow(const create::TableSpec& table, std::size_t frequency) {
    write::RowValues values;
    for (const create::ColumnSpec& column : table.columns) {
      const bool given = !column.autoNumber && random_() % frequency == 0;
      values.push_back(given ? std::optional(randomValue(column, random_)) : std::nullopt);
    }
    return values;
  }
  void attempt(const create::TableSpec& table, const std::function<void(write::TableWriter&)>& work);
  void changeRandomly(const create::TableSpec& table);

  std::mt19937 random_{77};
  MemoryFiles files_;
  std::unique_ptr<Database> database_;
};

// One transaction; refusals are not what is looked at here.
void WrittenForForeignReader::attempt(const create::TableSpec& table,
                                      const std::function<void(write::TableWriter&)>& work) {
  try {
    Transaction transaction(database_->pages());
    write::TableWriter writer(transaction, *database_, table.name);
    work(writer);
    transaction.commit();
  } catch (const Error& error) {
    if (error.kind() != ErrorKind::Constraint) throw;
  }
}

void WrittenForForeignReader::changeRandomly(const create::TableSpec& table) {
  std::vector<RowId> rows;
  for (int i = 0; i < 150; ++i) {
    attempt(table, [&](write::TableWriter& writer) { rows.push_back(writer.insert(randomRow(table, 1))); });
  }
  for (int i = 0; i < 200; ++i) {
    attempt(table, [&](write::TableWriter& writer) {
      writer.update(rows[random_() % rows.size()], randomRow(table, 3));
    });
  }
  std::ranges::shuffle(rows, random_);
  for (int i = 0; i < 40; ++i) {
    attempt(table, [&](write::TableWriter& writer) { writer.erase(rows[static_cast<std::size_t>(i)]); });
  }
}

std::vector<std::string> split(const std::string& text, char separator) {
  std::vector<std::string> parts{""};
  for (const char byte : text) {
    if (byte == separator) {
      parts.emplace_back();
    } else {
      parts.back() += byte;
    }
  }
  return parts;
}

constexpr char null = '\2', betweenColumns = '\3', behindRow = '\4';

bool hasFraction(ColumnType type) {
  return type == ColumnType::Currency || type == ColumnType::Numeric || type == ColumnType::Double ||
         type == ColumnType::Single;
}

// What mdb-export prints, as plain text would have it.
std::string normalized(std::string text, ColumnType type) {
  if (text == std::string(1, null)) return "\\N";
  if (type == ColumnType::Guid) return "a GUID";
  if (type == ColumnType::Boolean) return text == "1" ? "true" : "false";
  if (type == ColumnType::Binary || type == ColumnType::Ole) return "0x" + text;
  if (hasFraction(type) && text.find('.') != std::string::npos) {
    text.resize(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
  }
  return text;
}

// What it should print. It knows no days before 1900 and no empty texts, ends a short binary value at its
// first zero, and prints GUIDs in a way that cannot be compared.
std::string expected(const Value& value, ColumnType type) {
  constexpr double firstDayOf1900 = 2;
  if (const Text* text = std::get_if<Text>(&value)) return text->empty() ? "\\N" : toUtf8(*text);
  if (std::holds_alternative<Guid>(value)) return "a GUID";
  const DateTime* date = std::get_if<DateTime>(&value);
  if (date != nullptr && date->days < firstDayOf1900) return "1900-01-00T00:00:00";
  const Bytes* bytes = std::get_if<Bytes>(&value);
  if (bytes == nullptr || type != ColumnType::Binary) return plainText(value);
  const Bytes shown(bytes->begin(), std::ranges::find(*bytes, std::uint8_t{0}));
  return shown.empty() ? "\\N" : plainText(shown);
}

TEST_F(WrittenForForeignReader, ReadsAsByUs) {
  for (const create::TableSpec& table : randomTables()) changeRandomly(table);
  store(files_.at("a.mdb").content);
  const std::string options = std::string("-H -Q -b hex -D %Y-%m-%dT%H:%M:%S -T %Y-%m-%dT%H:%M:%S -0 '") +
                              null + "' -d '" + betweenColumns + "' -R '" + behindRow + "' ";
  for (const create::TableSpec& spec : randomTables()) {
    std::vector<std::vector<std::string>> ours, theirs;
    const Table& table = database_->table(spec.name);
    TableScan scan = table.scan();
    for (Row row; scan.next(row);) {
      ours.emplace_back();
      for (std::size_t i = 0; i < spec.columns.size(); ++i)
        ours.back().push_back(expected(row.value(i), spec.columns[i].type));
    }
    std::vector<std::string> lines = split(output("mdb-export", options + toUtf8(spec.name)), behindRow);
    EXPECT_EQ(lines.back(), "");
    lines.pop_back();
    for (const std::string& line : lines) {
      theirs.push_back(split(line, betweenColumns));
      ASSERT_EQ(theirs.back().size(), spec.columns.size()) << line;
      for (std::size_t i = 0; i < spec.columns.size(); ++i) {
        theirs.back()[i] = normalized(theirs.back()[i], spec.columns[i].type);
      }
    }
    // It meets a row where its content stands, we where it stood at first.
    std::ranges::sort(ours);
    std::ranges::sort(theirs);
    EXPECT_GT(ours.size(), 50u);
    ASSERT_EQ(ours.size(), theirs.size());
    for (std::size_t row = 0; row < ours.size(); ++row) {
      for (std::size_t i = 0; i < spec.columns.size(); ++i) {
        EXPECT_EQ(ours[row][i], theirs[row][i]) << toUtf8(spec.columns[i].name);
      }
    }
  }
}

}  // namespace
}  // namespace jet::test
