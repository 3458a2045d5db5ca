#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "fuzz/patched_file.h"
#include "fuzz/targets.h"
#include "jet/check.h"
#include "jet/error.h"
#include "jet/write/table_writer.h"

namespace jet::fuzz {
namespace {

constexpr std::array<std::u16string_view, 4> tables{u"Personen", u"Zuordnung", u"Messwerte", u"Personen"};

Value valueFor(const ColumnDefinition& column, InputReader& input) {
  const std::uint8_t seed = input.u8();
  switch (column.type) {
    case ColumnType::Boolean:
      return seed % 2 != 0;
    case ColumnType::Byte:
      return std::int32_t{seed};
    case ColumnType::Integer:
    case ColumnType::Long:
      return seed * 257 - 30'000;
    case ColumnType::Currency:
      return Currency{seed * 1'000'003LL};
    case ColumnType::Double:
      return seed / 3.0;
    case ColumnType::DateTime:
      return DateTime{seed * 100.25};
    case ColumnType::Text:
      return Text(std::min<std::size_t>(seed, column.length / 2u), static_cast<char16_t>(u'a' + seed % 26));
    case ColumnType::Memo:
      return Text(std::size_t{seed} * seed / 4, seed % 2 == 0 ? u'ä' : u'Ω');
    case ColumnType::Ole:
      return Bytes(std::size_t{seed} * 40, seed);
    default:
      return Null{};
  }
}

// One of the first rows of the table; nothing where there is none.
std::optional<RowId> someRow(Database& database, std::u16string_view table, InputReader& input) {
  std::optional<RowId> found;
  TableScan scan = database.table(table).scan();
  Row row;
  for (int left = input.u8(); left >= 0 && scan.next(row); --left) found = row.id();
  return found;
}

void change(write::TableWriter& writer, Database& database, std::u16string_view table, InputReader& input) {
  const std::uint8_t kind = input.u8() % 4;
  std::optional<RowId> row;
  if (kind >= 2) row = someRow(database, table, input);
  if (kind == 2 && row) return writer.erase(*row);
  write::RowValues values;
  for (const ColumnDefinition& column : writer.definition().columns) {
    const bool given = !column.isAutoNumber() && input.u8() % 4 != 0;
    values.push_back(given ? std::optional(valueFor(column, input)) : std::nullopt);
  }
  row ? writer.update(*row, values) : void(writer.insert(values));
}

bool isSound(MemoryFiles& files) {
  try {
    Database database(files, fileName);
    return check(database).errors.empty();
  } catch (const Error&) {
    return false;
  }
}

}  // namespace

void runWrite(Input input) {
  // The changes first, in a part of their own, so that the patches stay the same when they grow.
  const std::size_t half = std::min<std::size_t>(input.size() / 2, 64);
  InputReader changes(input.first(half)), patches(input.subspan(half));
  const std::u16string_view table = tables[changes.u8() % tables.size()];
  MemoryFiles& files = patchedFile(Base::Worn, patches);
  const Content given = files.at(fileName).content;
  try {
    Database database(files, fileName);
    Transaction transaction(database.pages());
    write::TableWriter writer(transaction, database, table);
    for (int i = 0; i < 4 && !changes.atEnd(); ++i) change(writer, database, table, changes);
    transaction.commit();
  } catch (const Error&) {
    require(files.at(fileName).content == given, "a refused change leaves the file as it was");
    return;
  }
  if (!isSound(files)) {
    files.put(fileName, given);
    require(!isSound(files), "a sound file is sound after a change");
  }
}

}  // namespace jet::fuzz
