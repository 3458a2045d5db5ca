#include "payment/sepa_zeichen.h"

#include <gtest/gtest.h>
#include <random>

#include "common/ausgabe.h"

namespace pelvanto::test {
namespace {

TEST(SepaZeichenTest, TextsBecomeAsciiByTheTable) {
  const std::pair<const char*, const char*> faelle[] = {
      {"Müller & Söhne", "Mueller Soehne"},
      {"éčćšžđőűłñøåşğı", "eccszdoulnoasgi"},
      {"ÉČŠŽĐŐŰŁÑØÅŞĞİ", "ECSZDOULNOASGI"},
      {"æœþ ÆŒÞ \u1E9E", "aeoeth AEOETH SS"},
      {"Mu\u0308ller A\u0308 O\u0308", "Mueller AE OE"},
      {"x\u0301\u0323", "x"},
      {"a–b—c‐d−e", "a-b-c-d-e"},
      {"O’Neil ‘a‚ “b” „c« »d", "ONeil a b c d"},
      {"und…", "und."},
      {"5 €", "5 E"},
      {"§ 1° 2ª 3º a²b³ 5µ×÷½", "1 2 3 a b 5"},
      {"a\u00A0b\u2003c\u3000d", "a b c d"},
      {"a\u200Bb\u00ADc\uFEFFd\u2060e", "abcde"},
      {"Иван Ωm Алексей", ".... .m ......."},
      {"<b> a<b>c", "(b) a(b)c"},
      {"a;@_%~[]{}|\\^#*=$!`", "a;@_%~[]{}|\\^#*=$!`"},
      {"a\u000Bb\u0001c\u007Fd\u0085e", "abcde"},
      {"Zeile\r\nzwei", "Zeile zwei"},
      {"Hof\t", "Hof"},
      {"é\u00A0", "e"},
      {"§ Hof", "Hof"},
      {"日本", ".."},
      {"😀 𝐀 \U00010400", "A ."},
      {"ﬁ Ｆ ４", "fi F 4"},
      {"'\"&", ""},
      {"", ""},
  };
  for (const auto& [text, erwartet] : faelle) {
    EXPECT_EQ(SepaText(text), QString(erwartet)) << text;
  }
}

TEST(SepaZeichenTest, EveryCharacterGivesAtMostTwoPrintableAsciiCharacters) {
  for (char32_t zeichen = 1; zeichen < 0x30000; ++zeichen) {
    if (zeichen >= 0xD800 && zeichen <= 0xDFFF) {
      continue;
    }
    const QString text = SepaText(u'(' + QString::fromUcs4(&zeichen, 1) + u')');
    const bool ascii = std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u' ' && c <= u'~'; });
    // NFC takes a few compatibility characters apart into a letter and marks.
    EXPECT_TRUE(ascii && text.size() <= 4) << std::hex << static_cast<unsigned>(zeichen);
    const bool verboten = text.contains(u'<') || text.contains(u'>') || text.contains(u'&');
    EXPECT_FALSE(verboten) << std::hex << static_cast<unsigned>(zeichen);
  }
  EXPECT_EQ(SepaText(QString(70, u'ü')).size(), 140);
}

// Texts of Latin-1 take a way of their own. A dash of another code, which comes out as "-" too, keeps a text
// from it.
TEST(SepaZeichenTest, ShortAndGeneralWayAgree) {
  std::mt19937 zufall(1);
  const QString haeufig = QStringLiteral("  ab&<>'\"\t\n-äöüÄÖÜßé\u00A0\u001F\u00A7\u00AD");
  for (int i = 0; i < 20'000; ++i) {
    QString text;
    for (auto laenge = zufall() % 12; laenge > 0; --laenge) {
      text += zufall() % 2 == 0 ? haeufig.at(static_cast<qsizetype>(zufall() % haeufig.size()))
                                : QChar(static_cast<char16_t>(zufall() % 0x100));
    }
    EXPECT_EQ(SepaText(text + u'-'), SepaText(text + u'–')) << text.toStdString();
    EXPECT_EQ(SepaText(u'-' + text), SepaText(u'–' + text)) << text.toStdString();
  }
}

TEST(SepaZeichenTest, ContentKeepsBlanksAndEscapesWhatXmlReserves) {
  EXPECT_EQ(xmlInhalt(" A&B <c> \"d\" 'e' "), QByteArray(" A&amp;B &lt;c&gt; &quot;d&quot; &apos;e&apos; "));
  EXPECT_EQ(xmlInhalt("BKÄ\u00A0\n\U00010400"), QByteArray("BKA ."));
}

}  // namespace
}  // namespace pelvanto::test
