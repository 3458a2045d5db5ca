#include "jet/create/header_page.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string_view>

#include "jet/encode/bytes.h"
#include "jet/error.h"
#include "jet/format.h"
#include "jet/header.h"

namespace jet::create {

using namespace encode;

namespace {

constexpr std::size_t mapPointers = 0x18, systemTables = 0x20, codePage = 0x3C, key = 0x3E, password = 0x42,
                      build = 0x6A, sortOrder = 0x6E, creationDate = 0x72, mark = 0x98, versionText = 0x9C;
constexpr std::size_t longestPassword = 20;

// How the mask of the accounts follows from the date is not known; this pair of date and mask comes from
// widely used files. The true dates are those in the catalog.
constexpr std::uint64_t knownDate = 0x40E29FF17D1F72BC;
constexpr std::array<std::uint8_t, 2> accountMask = {0xA5, 0x32};

void putText(std::span<std::uint8_t> page, std::size_t offset, std::string_view text) {
  std::ranges::copy(text, page.begin() + static_cast<std::ptrdiff_t>(offset));
}

void putPassword(std::span<std::uint8_t> page, const Text& text) {
  if (text.size() > longestPassword) throw Error(ErrorKind::Limit, "a password longer than 20 characters");
  for (std::size_t i = 0; i < text.size(); ++i) put16(page, password + 2 * i, text[i]);
  std::array<std::uint8_t, 4> mask{};
  put32(mask, 0, static_cast<std::uint32_t>(std::bit_cast<double>(knownDate)));
  for (std::size_t i = 0; i < jet4.passwordLength; ++i) page[password + i] ^= mask[i % mask.size()];
}

void putCommitBytes(std::span<std::uint8_t> page) {
  for (std::size_t slot = 0; slot < 256; ++slot) {
    put16(page, jet4.commitBytesOffset + 2 * slot, slot == 0 ? 0x0101 : 0x0100);
  }
}

}  // namespace

void writeHeaderPage(std::span<std::uint8_t> page, std::uint32_t databaseKey, const Text& passwordText) {
  put32(page, 0, 0x00000100);
  putText(page, 4, "Standard Jet DB");
  page[0x14] = 1;
  for (std::size_t row = 0; row < 2; ++row) {
    put32(page, mapPointers + 4 * row, static_cast<std::uint32_t>(1 << 8 | row));
  }
  for (std::size_t table = 0; table < 4; ++table) {
    put32(page, systemTables + 4 * table, static_cast<std::uint32_t>(2 + table));
  }
  put16(page, codePage, 1252);
  put32(page, key, databaseKey);
  putPassword(page, passwordText);
  put16(page, build, 8618);
  put16(page, sortOrder, sortOrderGeneral);
  put64(page, creationDate, knownDate);
  maskHeader(page, jet4);
  put32(page, mark, 1620);
  putText(page, versionText, "4.0");
  putCommitBytes(page);
}

Bytes accountId(Account account) {
  constexpr std::array<std::array<std::uint8_t, 2>, 4> plain = {{{2, 3}, {3, 1}, {2, 1}, {2, 4}}};
  Bytes id;
  for (std::size_t i = 0; i < 2; ++i) {
    append8(id, static_cast<std::uint32_t>(plain[static_cast<std::size_t>(account)][i] ^ accountMask[i]));
  }
  return id;
}

}  // namespace jet::create
