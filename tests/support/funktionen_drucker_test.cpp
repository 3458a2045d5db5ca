#include "support/funktionen_drucker.h"

#include <gtest/gtest.h>

#include "common/ausgabe.h"
#include "common/fake_drucker.h"
#include "common/fakes.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

using test::FakeDrucker;
using test::Textstelle;

// Every character of a 9 point text is 1.8 mm wide.
class FunktionenDruckerTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(druck.DruckSeiteBeginnen(1, u"Titel"_s, {}, Fussart::Gross)); }

  double drucken(const QString& text, Druckausrichtung ausrichtung = Druckausrichtung::Links, int punkte = 9,
                 double breite = 0) {
    return druck.TextDrucken(100, 50, text, ausrichtung, punkte, false, breite);
  }
  const Textstelle& letzter() { return drucker.dokumente.back().seiten.back().texte.back(); }

  FakeDrucker drucker;
  test::FakeUhr uhr;
  Prozesswerte werte;
  FunktionenDrucker druck{drucker, uhr, werte};
};

TEST_F(FunktionenDruckerTest, TheLargerCreditLineStandsAlone) {
  EXPECT_EQ(letzter().text, u"Pelvanto-Team");
  EXPECT_EQ(letzter().schrift, Druckschrift{8});
  EXPECT_NEAR(letzter().x, 277 - 13 * 1.6, 1e-9);
  EXPECT_EQ(letzter().y, 191);
  drucken(u"x"_s, Druckausrichtung::Links, 0);
  EXPECT_EQ(letzter().schrift, Druckschrift{8});  // what the frame leaves behind
}

TEST_F(FunktionenDruckerTest, BlankTextsAreNotPrintedAndOthersAsTheyAre) {
  EXPECT_EQ(drucken(u"   "_s), 0);
  EXPECT_EQ(drucken({}), 0);
  EXPECT_EQ(letzter().text, u"Pelvanto-Team");
  EXPECT_NEAR(drucken(u" a "_s), 3.55, 1e-9);
  EXPECT_EQ(letzter().text, u" a ");
  drucken(QString(1200, u'a'));
  EXPECT_EQ(letzter().text.size(), 1000);
}

TEST_F(FunktionenDruckerTest, ASizeStaysUntilTheNextOne) {
  drucken(u"a"_s, Druckausrichtung::Links, 11);
  drucken(u"b"_s, Druckausrichtung::Links, 0);
  EXPECT_EQ(letzter().schrift, Druckschrift{11});
}

TEST_F(FunktionenDruckerTest, TextsStandAtTheirPlaceAndLongOnesAreShortened) {
  const auto stelle = [&](const QString& text, Druckausrichtung ausrichtung, double breite) {
    drucken(text, ausrichtung, 9, breite);
    return std::pair(letzter().text, qRound(letzter().x * 10));
  };
  using Stelle = std::pair<QString, int>;
  constexpr auto Rechts = Druckausrichtung::Rechts, Mitte = Druckausrichtung::Mitte;
  EXPECT_EQ(stelle(u"abcde"_s, Rechts, 0), Stelle(u"abcde"_s, 910));
  EXPECT_EQ(stelle(u"abcde"_s, Mitte, 20), Stelle(u"abcde"_s, 1055));
  EXPECT_EQ(stelle(u"abcde"_s, Mitte, 0), Stelle(u"abcde"_s, 955));
  EXPECT_EQ(stelle(u"abcde"_s, Rechts, 9.01), Stelle(u"abcde"_s, 910));
  // A shortened text begins where the whole one would have begun.
  EXPECT_EQ(stelle(u"abcde"_s, Druckausrichtung::Links, 8.9), Stelle(u"a..."_s, 1000));
  EXPECT_EQ(stelle(u"abcde"_s, Rechts, 8.9), Stelle(u"a..."_s, 910));
  EXPECT_EQ(stelle(u"abcde"_s, Mitte, 8), Stelle(u"a..."_s, 995));
  EXPECT_EQ(stelle(u"abcde"_s, Rechts, 1), Stelle(u"..."_s, 910));
}

}  // namespace
}  // namespace pelvanto
