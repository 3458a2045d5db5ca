#include "jet/header.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <string_view>
#include <vector>

#include "jet/byte_reader.h"
#include "jet/error.h"
#include "jet/rc4.h"

namespace jet {
namespace {

constexpr std::size_t maskedStart = 0x18;
constexpr std::size_t versionOffset = 0x14;
constexpr std::size_t codePageOffset = 0x3C;
constexpr std::size_t databaseKeyOffset = 0x3E;
constexpr std::size_t passwordOffset = 0x42;
constexpr std::size_t jet3SortOrderOffset = 0x3A;
constexpr std::size_t sortOrderOffset = 0x6E;
constexpr std::size_t sortOrderVersionOffset = 0x71;
constexpr std::size_t creationDateOffset = 0x72;

bool startsWith(std::span<const std::uint8_t> bytes, std::string_view text) {
  return bytes.size() >= text.size() && std::memcmp(bytes.data(), text.data(), text.size()) == 0;
}

// Chooses the version; the magic bytes are plain even in encoded files.
const Format& recognise(const ByteReader& page) {
  const std::span<const std::uint8_t> name = page.slice(4, 16);
  const bool magic = page.u32(0) == 0x00000100;
  if (magic && startsWith(name, "Standard ACE DB")) {
    throw Error(ErrorKind::UnsupportedFormat, "the file has the newer format of .accdb files");
  }
  if (magic && startsWith(name, "MSISAM Database")) {
    throw Error(ErrorKind::UnsupportedFormat, "the file belongs to Money");
  }
  if (!magic || !startsWith(name, "Standard Jet DB")) {
    throw Error(ErrorKind::NotADatabase, "the file does not begin like a Jet database");
  }
  switch (page.u8(versionOffset)) {
    case 0:
      return jet3;
    case 1:
      return jet4;
    default:
      throw Error(ErrorKind::UnsupportedFormat, "the file has a version newer than Access 2003");
  }
}

// Jet 4 masks the password once more, with the creation date cut to 32 bits.
bool holdsPassword(const ByteReader& page, const Format& format) {
  std::array<std::uint8_t, 4> mask{};
  if (format.version == 4) {
    const double created = page.f64(creationDateOffset);
    const bool fits = created > -2147483649.0 && created < 2147483648.0;  // false for NaN, too
    const auto days = static_cast<std::uint32_t>(fits ? static_cast<std::int32_t>(created) : 0);
    for (unsigned i = 0; i < 4; ++i) mask[i] = static_cast<std::uint8_t>(days >> (8 * i));
  }
  for (std::size_t i = 0; i < format.passwordLength; ++i) {
    if (page.u8(passwordOffset + i) != mask[i % 4]) return true;
  }
  return false;
}

}  // namespace

void maskHeader(std::span<std::uint8_t> page0, const Format& format) {
  static constexpr std::array<std::uint8_t, 4> key{0xC7, 0xDA, 0x39, 0x6B};
  rc4(key, page0.subspan(maskedStart, format.maskedHeaderLength));
}

Header readHeader(std::span<const std::uint8_t> page0) {
  if (page0.size() < jet3.pageSize) {
    throw Error(ErrorKind::NotADatabase, "the file is shorter than one page");
  }
  const Format& format = recognise(ByteReader(page0, 0));
  if (page0.size() < format.pageSize) {
    throw Error(ErrorKind::NotADatabase, "the file is shorter than one page");
  }
  std::vector<std::uint8_t> plain(page0.begin(), page0.begin() + 256);
  maskHeader(plain, format);
  const ByteReader page(plain, 0);
  Header header;
  header.format = &format;
  header.databaseKey = page.u32(databaseKeyOffset);
  header.hasPassword = holdsPassword(page, format);
  header.codePage = page.u16(codePageOffset);
  header.sortOrder = page.u16(format.version == 4 ? sortOrderOffset : jet3SortOrderOffset);
  header.sortOrderVersion = format.version == 4 ? page.u8(sortOrderVersionOffset) : std::uint8_t{0};
  return header;
}

}  // namespace jet
