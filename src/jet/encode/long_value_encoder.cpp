#include "jet/encode/long_value_encoder.h"

#include "jet/encode/bytes.h"
#include "jet/error.h"

namespace jet::encode {

namespace {
constexpr std::size_t largestSingleRow = 4076;
constexpr std::size_t largestValue = 0x3FFFFFFF;
}  // namespace

LongValueKind kindOfLongValue(std::size_t length, bool inlineAllowed) {
  if (length > largestValue) throw Error(ErrorKind::Limit, "a long value is larger than 1 GiB");
  if (length == 0 || (inlineAllowed && length <= largestInlineValue)) return LongValueKind::Inline;
  return length <= largestSingleRow ? LongValueKind::OneRow : LongValueKind::Chain;
}

void appendLongValue(Bytes& target, LongValueKind kind, std::span<const std::uint8_t> content,
                     std::uint32_t pointer) {
  append32(target, static_cast<std::uint32_t>(content.size()) | static_cast<std::uint32_t>(kind) << 30);
  append32(target, pointer);
  append32(target, 0);
  if (kind == LongValueKind::Inline) target.insert(target.end(), content.begin(), content.end());
}

}  // namespace jet::encode
