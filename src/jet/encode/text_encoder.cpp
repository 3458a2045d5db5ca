#include "jet/encode/text_encoder.h"

#include <algorithm>

#include "jet/encode/bytes.h"

namespace jet::encode {

namespace {

constexpr char16_t byteOrderMark = 0xFEFF;

// As Access does it: the whole text or nothing.
bool isCompressible(const Text& text) {
  return text.size() >= 3 && text.size() <= 1024 &&
         std::ranges::all_of(text, [](char16_t unit) { return unit >= 1 && unit <= 255; });
}

}  // namespace

Text storableText(Text text) {
  text.erase(0, std::min(text.find_first_not_of(byteOrderMark), text.size()));
  return text;
}

void appendStoredText(Bytes& target, const Text& text, bool mayCompress) {
  if (!mayCompress || !isCompressible(text)) {
    appendUtf16(target, text);
    return;
  }
  append8(target, 0xFF);
  append8(target, 0xFE);
  for (const char16_t unit : text) append8(target, unit);
}

}  // namespace jet::encode
