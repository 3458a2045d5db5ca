#include "jet/text_codec.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace jet {
namespace {

constexpr char16_t replacement = u'\uFFFD';

// 0x80 to 0x9F; all others are the characters of the same number.
constexpr std::array<char16_t, 32> windows1252{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void widen(std::span<const std::uint8_t> bytes, Text& target) {
  target.resize(bytes.size());
  std::copy(bytes.begin(), bytes.end(), target.begin());
}

void replaceUnpaired(Text& text) {
  const auto isSurrogate = [](char16_t unit) { return (unit & 0xF800) == 0xD800; };
  std::size_t i =
      static_cast<std::size_t>(std::find_if(text.begin(), text.end(), isSurrogate) - text.begin());
  for (; i < text.size(); ++i) {
    if (!isSurrogate(text[i])) continue;
    const bool high = text[i] < 0xDC00;
    if (high && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00) {
      ++i;
    } else {
      text[i] = replacement;
    }
  }
}

void decodePlain(std::span<const std::uint8_t> bytes, Text& target) {
  target.resize(bytes.size() / 2);
  if constexpr (std::endian::native == std::endian::little) {
    if (!target.empty()) std::memcpy(target.data(), bytes.data(), target.size() * 2);
  } else {
    for (std::size_t i = 0; i < target.size(); ++i) {
      target[i] = static_cast<char16_t>(bytes[2 * i] | bytes[2 * i + 1] << 8);
    }
  }
  replaceUnpaired(target);
}

// Runs of single bytes and of full units; a zero byte switches from one to the other.
void decodeMixed(std::span<const std::uint8_t> bytes, Text& target) {
  target.clear();
  bool single = true;
  for (std::size_t i = 0; i < bytes.size();) {
    if (bytes[i] == 0) {
      single = !single;
      ++i;
    } else if (single) {
      target.push_back(bytes[i++]);
    } else {
      if (i + 1 < bytes.size()) target.push_back(static_cast<char16_t>(bytes[i] | bytes[i + 1] << 8));
      i += 2;
    }
  }
  replaceUnpaired(target);
}

void appendUtf8(std::uint32_t code, std::string& target) {
  const auto tail = [&target](std::uint32_t bits) { target += static_cast<char>(0x80 | (bits & 0x3F)); };
  if (code < 0x80) {
    target += static_cast<char>(code);
  } else if (code < 0x800) {
    target += static_cast<char>(0xC0 | code >> 6);
    tail(code);
  } else if (code < 0x10000) {
    target += static_cast<char>(0xE0 | code >> 12);
    tail(code >> 6);
    tail(code);
  } else {
    target += static_cast<char>(0xF0 | code >> 18);
    tail(code >> 12);
    tail(code >> 6);
    tail(code);
  }
}

}  // namespace

void decodeText(std::span<const std::uint8_t> bytes, Text& target) {
  if (bytes.size() < 2 || bytes[0] != 0xFF || bytes[1] != 0xFE) return decodePlain(bytes, target);
  const std::span<const std::uint8_t> packed = bytes.subspan(2);
  const bool switches = !packed.empty() && std::memchr(packed.data(), 0, packed.size()) != nullptr;
  if (switches) return decodeMixed(packed, target);
  widen(packed, target);
}

void decodeText1252(std::span<const std::uint8_t> bytes, Text& target) {
  widen(bytes, target);
  for (char16_t& unit : target) {
    if (unit >= 0x80 && unit < 0xA0) unit = windows1252[unit - 0x80u];
  }
}

std::string toUtf8(std::u16string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::uint32_t code = text[i];
    const bool high = code >= 0xD800 && code < 0xDC00;
    if (high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
      code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00U);
    } else if (code >= 0xD800 && code < 0xE000) {
      code = replacement;
    }
    appendUtf8(code, result);
  }
  return result;
}

}  // namespace jet
