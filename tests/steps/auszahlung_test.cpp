#include "steps/auszahlung.h"

#include <gtest/gtest.h>
#include <limits>

namespace pelvanto {
namespace {

Waehrung cent(qint64 anzahl) { return Waehrung::ausCent(anzahl); }

TEST(AuszahlungTest, SharesFollowTheOrderOfTheOperations) {
  struct Fall {
    qint64 gesamtCent, basis, summe, erwartetCent;
  };
  const Fall faelle[] = {
      {235999, 50000, 100000, 117999},  // exactly a tie, but its double lies below
      {1000000, 1, 3, 333333},          // 10,000.00 over three equal members
      {25, 1, 2, 12},                   // half cents go to the even cent
      {75, 1, 2, 38},
      {-25, 1, 2, -12},
      {0, 50000, 50000, 0},
      {100, 7, 7, 100},
      {100000, -5, 10, -50000},
  };
  for (const Fall& fall : faelle) {
    EXPECT_EQ(anteilGerundetAufGeradeCent(cent(fall.gesamtCent), fall.basis, fall.summe),
              cent(fall.erwartetCent))
        << fall.gesamtCent << " x " << fall.basis << " / " << fall.summe;
  }
  // Totals with four decimals: 0.1250 and 0.3750 for one member.
  EXPECT_EQ(anteilGerundetAufGeradeCent(Waehrung::ausZehntausendsteln(1250), 1, 1), cent(12));
  EXPECT_EQ(anteilGerundetAufGeradeCent(Waehrung::ausZehntausendsteln(3750), 1, 1), cent(38));
}

TEST(AuszahlungTest, WhatDoesNotFitIsNoAmount) {
  const Waehrung groesste = Waehrung::ausZehntausendsteln(std::numeric_limits<qint64>::max());
  EXPECT_EQ(anteilGerundetAufGeradeCent(groesste, 2, 2), std::nullopt);
  EXPECT_EQ(anteilGerundetAufGeradeCent(cent(1844674407371), 50000, 50000), std::nullopt);
  EXPECT_EQ(anteilGerundetAufGeradeCent(cent(1844674407370), 50000, 50000), cent(1844674407370));
  EXPECT_EQ(anteilGerundetAufGeradeCent(cent(92233721), -999999999, 1), std::nullopt);
  EXPECT_EQ(anteilGerundetAufGeradeCent(cent(100), 1, 0), std::nullopt);
  EXPECT_EQ(anteilGerundetAufGeradeCent(cent(100), 1, -1), std::nullopt);
  EXPECT_EQ(steuerGerundetAufGeradeCent(groesste, 999999999), std::nullopt);
}

TEST(AuszahlungTest, VatIsRoundedToTheEvenCent) {
  struct Fall {
    qint64 nettoCent;
    int satz;
    qint64 steuerCent;
  };
  const Fall faelle[] = {
      {100000, 13, 13000}, {5, 13, 1}, {25, 10, 2},   {35, 10, 4},         {50, 13, 6},
      {150, 13, 20},       {0, 13, 0}, {-25, 10, -2}, {117999, 13, 15340}, {117999, 10, 11800},
  };
  for (const Fall& fall : faelle) {
    EXPECT_EQ(steuerGerundetAufGeradeCent(cent(fall.nettoCent), fall.satz), cent(fall.steuerCent))
        << fall.nettoCent << " at " << fall.satz;
  }
  // Below 300,000.00 doubles and exact arithmetic agree; a sample of every 997th cent.
  for (const int satz : {10, 13}) {
    for (qint64 netto = 0; netto < 30000000; netto += 997) {
      const qint64 ganze = netto * satz / 100;
      const qint64 rest = netto * satz % 100;
      const qint64 genau = rest > 50 || (rest == 50 && ganze % 2 != 0) ? ganze + 1 : ganze;
      ASSERT_EQ(steuerGerundetAufGeradeCent(cent(netto), satz), cent(genau)) << netto << " at " << satz;
    }
  }
}

}  // namespace
}  // namespace pelvanto
