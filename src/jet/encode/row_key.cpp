#include "jet/encode/row_key.h"

#include "jet/error.h"
#include "jet/index_key.h"
#include "jet/text_codec.h"

namespace jet::encode {

namespace {

// It stands for what could not be read: its key would not be that of the stored text.
bool holdsUnreadable(const Value& value) {
  const Text* text = std::get_if<Text>(&value);
  return text != nullptr && text->find(u'\uFFFD') != Text::npos;
}

}  // namespace

void makeRowKey(const TableDefinition& definition, const IndexDefinition& index,
                std::span<const Value> values, RowKey& key) {
  key.bytes.clear();
  key.firstNull = nullptr;
  std::size_t nulls = 0;
  for (const IndexColumn& part : index.columns) {
    const ColumnDefinition& column = definition.columns[part.column];
    const Value& value = values[part.column];
    if (isNull(value)) {
      ++nulls;
      if (key.firstNull == nullptr) key.firstNull = &column;
    }
    if (holdsUnreadable(value) || !appendKey(value, column, part.descending, jet4, key.bytes)) {
      throw Error(ErrorKind::NotWritable,
                  "an indexed text holds a character without a known place in the order: column " +
                      toUtf8(column.name));
    }
  }
  key.exempt = nulls == index.columns.size();
  key.stored = !(key.exempt && index.ignoresNulls());
}

void requireKeyValues(const IndexDefinition& index, const RowKey& key) {
  if (key.firstNull == nullptr || !(index.primaryKey || (index.flags & index_flag::required) != 0)) return;
  throw Error(ErrorKind::Constraint, "a key value is missing: column " + toUtf8(key.firstNull->name));
}

}  // namespace jet::encode
