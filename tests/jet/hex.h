#pragma once

#include <string>
#include <string_view>

namespace jet {

// "7F 4A 01 00".
inline std::string hex(std::string_view bytes) {
  static constexpr char digits[] = "0123456789ABCDEF";
  std::string result;
  for (const char byte : bytes) {
    if (!result.empty()) result += ' ';
    result += digits[static_cast<unsigned char>(byte) >> 4];
    result += digits[static_cast<unsigned char>(byte) & 15];
  }
  return result;
}

}  // namespace jet
