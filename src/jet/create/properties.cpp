#include "jet/create/properties.h"

#include <algorithm>

#include "jet/encode/bytes.h"

namespace jet::create {

using namespace encode;

namespace {

constexpr std::uint16_t namesBlock = 0x0080, objectBlock = 0x0000, columnBlock = 0x0001;

struct Property {
  Text name;
  ColumnType type;
  Bytes data;
  bool ofTheSchema;  // set through data definition; false: Access's own note
};

struct Owner {
  Text name;  // empty: the object itself
  std::vector<Property> properties;
};

Bytes textData(const Text& text) {
  Bytes data;
  appendUtf16(data, text);
  return data;
}

Property truth(const char16_t* name, bool value) {
  return {name, ColumnType::Boolean, {static_cast<std::uint8_t>(value ? 0xFF : 0)}, true};
}

void appendBlock(Bytes& target, std::uint16_t type, const Bytes& content) {
  append32(target, static_cast<std::uint32_t>(content.size() + 6));
  append16(target, type);
  target.insert(target.end(), content.begin(), content.end());
}

std::size_t indexOf(std::vector<Text>& names, const Text& name) {
  const auto found = std::ranges::find(names, name);
  if (found != names.end()) return static_cast<std::size_t>(found - names.begin());
  names.push_back(name);
  return names.size() - 1;
}

Bytes ownerContent(const Owner& owner, std::vector<Text>& names) {
  Bytes content;
  append32(content, static_cast<std::uint32_t>(6 + 2 * owner.name.size()));
  appendName(content, owner.name);
  for (const Property& property : owner.properties) {
    append16(content, static_cast<std::uint32_t>(8 + property.data.size()));
    append8(content, property.ofTheSchema ? 1 : 0);
    append8(content, static_cast<std::uint32_t>(property.type));
    append16(content, static_cast<std::uint32_t>(indexOf(names, property.name)));
    append16(content, static_cast<std::uint32_t>(property.data.size()));
    content.insert(content.end(), property.data.begin(), property.data.end());
  }
  return content;
}

Bytes encode(const std::vector<Owner>& owners) {
  std::vector<Text> names;
  Bytes blocks;
  for (const Owner& owner : owners) {
    const Bytes content = ownerContent(owner, names);
    appendBlock(blocks, owner.name.empty() ? objectBlock : columnBlock, content);
  }
  Bytes nameList;
  for (const Text& name : names) appendName(nameList, name);

  Bytes result = {'M', 'R', '2', 0};
  appendBlock(result, namesBlock, nameList);
  result.insert(result.end(), blocks.begin(), blocks.end());
  return result;
}

Owner columnProperties(const ColumnDefinition& column, const ColumnRules& rules) {
  Owner owner{column.name, {}};
  const bool isText = column.type == ColumnType::Text || column.type == ColumnType::Memo;
  if (isText) owner.properties.push_back(truth(u"AllowZeroLength", rules.allowZeroLength));
  if (rules.required) owner.properties.push_back(truth(u"Required", true));
  if (!rules.defaultValue.empty()) {
    owner.properties.push_back({u"DefaultValue", ColumnType::Memo, textData(rules.defaultValue), true});
  }
  return owner;
}

}  // namespace

Bytes tableProperties(const TableLayout& layout) {
  std::vector<Owner> owners;
  for (std::size_t i = 0; i < layout.rules.size(); ++i) {
    Owner owner = columnProperties(layout.definition.columns[i], layout.rules[i]);
    if (!owner.properties.empty()) owners.push_back(std::move(owner));
  }
  return owners.empty() ? Bytes() : encode(owners);
}

Bytes databaseProperties(const Text& accessVersion) {
  return encode({Owner{{}, {{u"AccessVersion", ColumnType::Text, textData(accessVersion), false}}}});
}

}  // namespace jet::create
