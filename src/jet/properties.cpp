#include "jet/properties.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "jet/byte_reader.h"
#include "jet/collation.h"
#include "jet/text_codec.h"

namespace jet {
namespace {

constexpr std::uint32_t catalogPage = 2;  // where the blocks come from, for the error
constexpr std::array<std::uint8_t, 4> magicJet4 = {'M', 'R', '2', 0}, magicJet3 = {'K', 'K', 'D', 0};
constexpr std::uint16_t namesBlock = 0x0080, columnBlock = 0x0001;
constexpr std::size_t blockHeader = 6;  // length, type
constexpr std::size_t valueHeader = 8;  // length, flag, type, name, length of the data

class PropertyReader {
 public:
  PropertyReader(const Bytes& block, const TableDefinition& definition)
      : bytes_(block, catalogPage), definition_(definition), properties_(definition.columns.size()) {}

  std::vector<ColumnProperties> read() {
    const auto magic = bytes_.slice(0, magicJet4.size());
    bytes_.check(std::ranges::equal(magic, magicJet4) || std::ranges::equal(magic, magicJet3),
                 "the properties of a table are of an unknown kind");
    for (std::size_t at = magicJet4.size(); at < bytes_.size();) {
      const std::size_t length = bytes_.u32(at);
      bytes_.check(length >= blockHeader, "a block of properties is too short");
      const ByteReader block = bytes_.sub(at, length);
      if (block.u16(4) == namesBlock) readNames(block);
      if (block.u16(4) == columnBlock) readColumn(block);
      at += length;
    }
    return std::move(properties_);
  }

 private:
  static Text text(const ByteReader& bytes, std::size_t offset, std::size_t length) {
    Text result;
    decodeText(bytes.slice(offset, length), result);
    return result;
  }

  void readNames(const ByteReader& block) {
    for (std::size_t at = blockHeader; at < block.size();) {
      const std::size_t length = block.u16(at);
      names_.push_back(text(block, at + 2, length));
      at += 2 + length;
    }
  }

  std::optional<std::size_t> findColumn(std::u16string_view name) const {
    for (std::size_t i = 0; i < definition_.columns.size(); ++i) {
      if (collation::equal(definition_.columns[i].name, name)) return i;
    }
    return std::nullopt;
  }

  void readColumn(const ByteReader& block) {
    const std::size_t nameLength = block.u32(blockHeader);
    block.check(nameLength >= 6, "a block of properties is too short");
    const auto column = findColumn(text(block, blockHeader + 6, block.u16(blockHeader + 4)));
    if (!column) return;  // a column that is gone
    for (std::size_t at = blockHeader + nameLength; at < block.size();) {
      const std::size_t length = block.u16(at);
      block.check(length >= valueHeader, "a property is too short");
      readProperty(block.sub(at, length), properties_[*column]);
      at += length;
    }
  }

  void readProperty(const ByteReader& property, ColumnProperties& target) const {
    const std::size_t name = property.u16(4);
    property.check(name < names_.size(), "a property has no name");
    const std::size_t length = property.u16(6);
    if (names_[name] == u"Required") target.required = property.u8(valueHeader) != 0;
    if (names_[name] == u"AllowZeroLength") target.allowZeroLength = property.u8(valueHeader) != 0;
    if (names_[name] == u"DefaultValue") target.defaultValue = text(property, valueHeader, length);
  }

  ByteReader bytes_;
  const TableDefinition& definition_;
  std::vector<Text> names_;
  std::vector<ColumnProperties> properties_;
};

}  // namespace

std::vector<ColumnProperties> readColumnProperties(const Bytes& block, const TableDefinition& definition) {
  if (block.empty()) return std::vector<ColumnProperties>(definition.columns.size());
  return PropertyReader(block, definition).read();
}

}  // namespace jet
