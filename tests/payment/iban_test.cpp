#include "payment/iban.h"

#include <gtest/gtest.h>

#include "common/ausgabe.h"

namespace pelvanto::test {
namespace {

TEST(IbanTest, GroupsInFoursWithABlankAfterEachFullBlock) {
  EXPECT_EQ(IBANGruppieren(" AT001234567890123456 "), "AT00 1234 5678 9012 3456 ");
  EXPECT_EQ(IBANGruppieren("DE89370400440532013000"), "DE89 3704 0044 0532 0130 00");
  EXPECT_EQ(IBANGruppieren("  "), "");
}

TEST(IbanTest, ChecksAustrianAndGermanCheckDigits) {
  struct Fall {
    const char* text;
    IBANErgebnis ergebnis;
    const char* bereinigt;
  };
  const Fall faelle[] = {
      {"AT61 1904 3002 3457 3201 ", IBANErgebnis::Richtig, "AT611904300234573201"},
      {"AT61 1904 3002 3457 3210", IBANErgebnis::Falsch, "AT611904300234573210"},
      {"DE89-3704-0044-0532-0130-00", IBANErgebnis::Richtig, "DE89370400440532013000"},
      {"DE88370400440532013000", IBANErgebnis::Falsch, "DE88370400440532013000"},
      {"at61 1904 3002 3457 3201", IBANErgebnis::NichtGeprueft, "611904300234573201"},
      {"AT61 1904 3002 3457 320", IBANErgebnis::NichtGeprueft, "AT61190430023457320"},
      {"DE8937040044053201300", IBANErgebnis::NichtGeprueft, "DE8937040044053201300"},
      {"CH9300762011623852957", IBANErgebnis::NichtGeprueft, "CH9300762011623852957"},
      {"at", IBANErgebnis::NichtGeprueft, ""},
      {"   ", IBANErgebnis::Leer, "unberührt"},
  };
  for (const Fall& fall : faelle) {
    QString bereinigt = "unberührt";
    EXPECT_EQ(IBANPruefen(fall.text, bereinigt), fall.ergebnis) << fall.text;
    EXPECT_EQ(bereinigt, QString(fall.bereinigt));
  }
}

TEST(IbanTest, ComputesFromBankCodeAndAccount) {
  EXPECT_EQ(IBANBerechnen("AT", "19043", "234573201", 5, 11), "AT611904300234573201");
  EXPECT_EQ(IBANBerechnen("DE", "37040044", "532013000", 8, 10), "DE89370400440532013000");
  EXPECT_EQ(ModuloRest("370400440532013000131400", 97), 98 - 89);
  EXPECT_EQ(ModuloRest("96", 97), 96);
  EXPECT_EQ(ModuloRest("194", 97), 0);
  EXPECT_EQ(ModuloRest("-1", 97), 96);
  EXPECT_EQ(ModuloRest("5", 0), -1);
}

}  // namespace
}  // namespace pelvanto::test
