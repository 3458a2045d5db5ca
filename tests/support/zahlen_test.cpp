#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "common/ausgabe.h"
#include "support/waehrung.h"
#include "support/windows1252.h"
#include "support/zahlenformat.h"

namespace pelvanto::test {
namespace {

constexpr qint64 kGroesste = std::numeric_limits<qint64>::max();
constexpr qint64 kKleinste = std::numeric_limits<qint64>::min();

TEST(WaehrungTest, SumsAndProductsThatDoNotFitAreNoted) {
  const Waehrung groesste = Waehrung::ausZehntausendsteln(kGroesste);
  EXPECT_EQ(groesste.plus(Waehrung::ausZehntausendsteln(1)), std::nullopt);
  EXPECT_EQ(groesste.plus(Waehrung::ausZehntausendsteln(-1))->zehntausendstel(), kGroesste - 1);
  // The largest total whose product with the cap still fits is 18,446,744,073.70.
  EXPECT_TRUE(Waehrung::ausCent(1844674407370).mal(50000));
  EXPECT_FALSE(Waehrung::ausCent(1844674407371).mal(50000));
  EXPECT_FALSE(Waehrung::ausCent(92233721).mal(-999999999));
}

TEST(WaehrungTest, TheDoubleIsTheNearestOneAlsoBeyond53Bits) {
  EXPECT_EQ(Waehrung::ausZehntausendsteln(23599900).alsDouble(), 2359.99);
  EXPECT_EQ(Waehrung::ausZehntausendsteln(-1).alsDouble(), -0.0001);
  EXPECT_EQ(Waehrung::ausZehntausendsteln(kGroesste).alsDouble(), 922337203685477.5807);
  // 2^53 + 1: rounded to double first, the quotient would be the neighbour.
  EXPECT_EQ(Waehrung::ausZehntausendsteln(9007199254740993).alsDouble(), 900719925474.0993);
}

TEST(WaehrungTest, CentsRoundTiesToTheEvenCent) {
  const std::pair<qint64, qint64> faelle[] = {{50, 0},    {150, 2}, {250, 2},    {251, 3},
                                              {149, 1},   {-50, 0}, {-150, -2},  {-250, -2},
                                              {-251, -3}, {0, 0},   {12300, 123}};
  for (const auto& [wert, cent] : faelle) {
    EXPECT_EQ(Waehrung::ausZehntausendsteln(wert).centGerundetAufGeradeZahl(), cent) << wert;
  }
}

TEST(WaehrungTest, DoublesRoundTiesToEvenWithinSixtyFourBits) {
  const std::pair<double, qint64> faelle[] = {{0.5, 0},
                                              {1.5, 2},
                                              {2.5, 2},
                                              {-0.5, 0},
                                              {-1.5, -2},
                                              {-2.5, -2},
                                              {2.4999999999999996, 2},
                                              {117999.5, 118000},
                                              {4503599627370497.5, 4503599627370498},
                                              {-9223372036854775808.0, kKleinste}};
  for (const auto& [wert, gerundet] : faelle) {
    EXPECT_EQ(rundenAufGeradeZahl(wert), gerundet) << wert;
  }
  EXPECT_EQ(rundenAufGeradeZahl(9223372036854775808.0), std::nullopt);
  EXPECT_EQ(rundenAufGeradeZahl(std::nan("")), std::nullopt);
  EXPECT_EQ(rundenAufGeradeZahl(-INFINITY), std::nullopt);
}

TEST(ZahlenformatTest, GroupsWholeNumbers) {
  const Zahlenzeichen deutsch;
  Zahlenzeichen ungruppiert;
  ungruppiert.gruppierung = QChar();
  EXPECT_EQ(Zahlenformat::ganzzahl(0, deutsch), "0");
  EXPECT_EQ(Zahlenformat::ganzzahl(999, deutsch), "999");
  EXPECT_EQ(Zahlenformat::ganzzahl(-1000, deutsch), "-1.000");
  EXPECT_EQ(Zahlenformat::ganzzahl(1234567, deutsch), "1.234.567");
  EXPECT_EQ(Zahlenformat::ganzzahl(kKleinste, deutsch), "-9.223.372.036.854.775.808");
  EXPECT_EQ(Zahlenformat::ganzzahl(1234567, ungruppiert), "1234567");
}

TEST(ZahlenformatTest, CurrencyFollowsTheUsersCharactersAndSide) {
  const Zahlenzeichen deutsch;
  const Zahlenzeichen oesterreich{u',', QChar(0xA0), "€", true, true};
  const Zahlenzeichen englisch{u'.', u',', "$", true, false};
  const Zahlenzeichen ohne{u'.', u',', "", false, false};
  const Waehrung betrag = Waehrung::ausCent(123456789);
  EXPECT_EQ(Zahlenformat::waehrung(betrag, deutsch), "1.234.567,89 €");
  EXPECT_EQ(Zahlenformat::waehrung(betrag, oesterreich), QString("€ 1\u00A0234\u00A0567,89"));
  EXPECT_EQ(Zahlenformat::waehrung(Waehrung::ausCent(-5), englisch), "-$0.05");
  EXPECT_EQ(Zahlenformat::waehrung(betrag, ohne), "1,234,567.89");
  EXPECT_EQ(Zahlenformat::waehrung(Waehrung::ausZehntausendsteln(99950), deutsch), "10,00 €");
  EXPECT_EQ(Zahlenformat::waehrung(Waehrung::ausZehntausendsteln(-49), deutsch), "0,00 €");
  EXPECT_EQ(Zahlenformat::waehrung(Waehrung::ausZehntausendsteln(-100150), deutsch), "-10,02 €");
}

TEST(ZahlenformatTest, DecimalsRoundAwayFromZeroAsTheNumberIsWritten) {
  const Zahlenzeichen deutsch;
  struct Fall {
    double wert;
    int stellen;
    const char* text;
  };
  const Fall faelle[] = {{0.0005, 3, "0,001"},        {1.005, 2, "1,01"},
                         {-1.005, 2, "-1,01"},        {0.125, 2, "0,13"},
                         {999.9996, 3, "1000,000"},   {0, 3, "0,000"},
                         {-0.0001, 3, "0,000"},       {2.5, 0, "3"},
                         {1234567.5, 1, "1234567,5"}, {1e20, 2, "100000000000000000000,00"},
                         {9.994999, 2, "9,99"},       {1e-30, 3, "0,000"}};
  for (const Fall& fall : faelle) {
    EXPECT_EQ(Zahlenformat::dezimal(fall.wert, fall.stellen, deutsch), QString(fall.text)) << fall.wert;
  }
}

TEST(Windows1252Test, EveryByteSurvivesAndForeignCharactersGetAReplacement) {
  QByteArray alle;
  for (int i = 0; i < 256; ++i) {
    alle += static_cast<char>(i);
  }
  EXPECT_EQ(nachWindows1252(ausWindows1252(alle)), alle);
  EXPECT_EQ(ausWindows1252("\x80\x9F\xE4"), QString("€Ÿä"));
  EXPECT_EQ(nachWindows1252(QString("ő ǧ a\u0308 š 日 😀 Ω")), QByteArray("o g \xE4 \x9A ? ? ?"));
}

}  // namespace
}  // namespace pelvanto::test
