#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "jet/value.h"

namespace jet {

// Text of Jet 4: compressed (starts with FF FE) or plain UTF-16. Replaces `target`. Unpaired surrogates
// become U+FFFD, a last odd byte is dropped: a text never fails.
void decodeText(std::span<const std::uint8_t> bytes, Text& target);

// Text of Jet 3: code page 1252; its five undefined bytes stand for U+0081 and so on.
void decodeText1252(std::span<const std::uint8_t> bytes, Text& target);

// Unpaired surrogates become U+FFFD.
std::string toUtf8(std::u16string_view text);

}  // namespace jet
