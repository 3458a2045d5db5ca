#include "jet/text_codec.h"

#include <gtest/gtest.h>

namespace jet {
namespace {

TEST(TextCodec, Jet4) {
  struct Case {
    const char* what;
    Bytes stored;
    Text text;
  };
  const Case cases[] = {
      {"empty", {}, u""},
      {"plain", {'A', 0, 0xAC, 0x20}, u"A€"},
      {"odd byte at the end", {'A', 0, 'B'}, u"A"},
      {"compressed", {0xFF, 0xFE, 'K', 0xFC, 'h', 'e'}, u"Kühe"},
      {"compressed, nothing in it", {0xFF, 0xFE}, u""},
      {"switch to units and back", {0xFF, 0xFE, 'a', 0, 0xAC, 0x20, 0x11, 0x01, 0, 'b'}, u"a€đb"},
      {"switch, half a unit at the end", {0xFF, 0xFE, 'a', 0, 0xAC, 0x20, 0x11}, u"a€"},
      {"switch at the very end", {0xFF, 0xFE, 'a', 'b', 0}, u"ab"},
      {"pair", {0x34, 0xD8, 0x1E, 0xDD}, u"𝄞"},
      {"high half alone", {0x34, 0xD8, 'A', 0}, u"\uFFFDA"},
      {"high half at the end", {'A', 0, 0x34, 0xD8}, u"A\uFFFD"},
      {"low half alone", {0x1E, 0xDD, 'A', 0}, u"\uFFFDA"},
      {"halves in the wrong order", {0x1E, 0xDD, 0x34, 0xD8}, u"\uFFFD\uFFFD"},
      {"zero character", {'A', 0, 0, 0}, Text(u"A\0", 2)},
  };
  for (const Case& each : cases) {
    Text text = u"old content that is longer than the new one";
    decodeText(each.stored, text);
    EXPECT_EQ(text, each.text) << each.what;
  }
}

TEST(TextCodec, Jet3) {
  Text text;
  decodeText1252(Bytes{'a', 0x80, 0x84, 0x9F, 0xA0, 0xE4, 0xFF, 0x81, 0x8D, 0x8F, 0x90, 0x9D}, text);
  EXPECT_EQ(text, u"a€„Ÿ\u00A0äÿ\u0081\u008D\u008F\u0090\u009D");
}

}  // namespace
}  // namespace jet
