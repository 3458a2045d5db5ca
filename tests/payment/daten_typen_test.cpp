#include "payment/daten_typen.h"

#include <gtest/gtest.h>

#include "common/ausgabe.h"
#include "payment/zahlungswelt.h"
#include "support/programm_ende.h"

namespace pelvanto::test {
namespace {

TEST(DatenTypenTest, TextInLongReadsWhatAUserTypes) {
  const Zahlungswelt welt;
  const std::pair<const char*, int> faelle[] = {
      {"", 0},           {"   ", 0},        {"  1.234 ", 1234}, {"12a34", 12},
      {"-5", -5},        {"5-", -5},        {"0", 0},           {"1234567890", 0},
      {"0000000012", 0}, {"000000012", 12}, {"12,7", 12},       {"999999999", 999999999},
      {"-", 0},          {"a1", 0},         {"--7", -7},        {"1.2.3.4", 1234},
      {"- 5", 0},        {"-0", 0},         {"\u0661\u0662", 0}};
  for (const auto& [text, wert] : faelle) {
    EXPECT_EQ(welt.typen.TextInLong(text), wert) << text;
  }
}

TEST(DatenTypenTest, TextInLongFollowsTheUsersGroupingCharacter) {
  Zahlungswelt welt;
  welt.schema.zeichen.gruppierung = QChar(0xA0);
  EXPECT_EQ(welt.typen.TextInLong("1\u00A0234"), 1234);
  EXPECT_EQ(welt.typen.TextInLong("1.234"), 1);
  welt.schema.zeichen.gruppierung = QChar();
  EXPECT_EQ(welt.typen.TextInLong("1234"), 1234);
}

TEST(DatenTypenTest, TextInCurrencyReadsAmountsInAnySpelling) {
  const Zahlungswelt welt;
  const std::pair<const char*, qint64> faelle[] = {{"", 0},
                                                   {"-", 0},
                                                   {" - ", 0},
                                                   {",", 0},
                                                   {"-,", 0},
                                                   {"1.234,56", 12345600},
                                                   {"1,234.56", 12345600},
                                                   {"€ 1234,56", 12345600},
                                                   {"öS 1.000,00 Fr", 10000000},
                                                   {"-12,50", -125000},
                                                   {" -12,50", 125000},
                                                   {"12,50-", 125000},
                                                   {"1.000", 10000},
                                                   {"1.000,00", 10000000},
                                                   {",5", 5000},
                                                   {"7,", 70000},
                                                   {"0,00005", 0},
                                                   {"0,00015", 2},
                                                   {"0,000151", 2},
                                                   {"-0,00025", -2},
                                                   {"0,000250001", 3},
                                                   {"922337203685477,5807", 9223372036854775807},
                                                   {"922337203685477,58075", 0},
                                                   {"99999999999999999999", 0}};
  for (const auto& [text, zehntausendstel] : faelle) {
    EXPECT_EQ(welt.typen.TextInCurrency(text).zehntausendstel(), zehntausendstel) << text;
  }
  EXPECT_EQ(DatenTypen::BetragLesen("922337203685477,5808"), std::nullopt);
  EXPECT_EQ(DatenTypen::BetragLesen("12,5"), Waehrung::ausCent(1250));
}

TEST(DatenTypenTest, NullFilterGivesEachTypeItsDefaultForNull) {
  const Zahlungswelt welt;
  const QDateTime nulldatum(QDate(1899, 12, 30), QTime(0, 0));
  const std::pair<const char*, GefilterterWert> faelle[] = {
      {"Integer", qint16(0)},    {"Long", qint32(0)}, {"Double", 0.0},         {"Currency", Waehrung()},
      {"Single", 0.0F},          {"Date", nulldatum}, {"String", QString("")}, {"Text", QString("")},
      {"String+", QString(" ")}, {"Boolean", false}};
  for (const auto& [art, erwartet] : faelle) {
    EXPECT_TRUE(welt.typen.NullFilter(Feldwert(), art) == erwartet) << art;
  }
}

TEST(DatenTypenTest, NullFilterConvertsValues) {
  const Zahlungswelt welt;
  struct Fall {
    Feldwert wert;
    const char* art;
    GefilterterWert erwartet;
  };
  const QDateTime tag(QDate(2026, 3, 16), QTime(12, 0));
  const Fall faelle[] = {
      {QString(""), "Long", qint32(0)},
      {QString("  "), "Currency", Waehrung()},
      {QString("40000"), "Integer", qint32(40000)},
      {QString("32000"), "Integer", qint16(32000)},
      {-5, "Integer", qint16(-5)},
      {QString(" 1.234 "), "Long", qint32(1234)},
      {QString("12,5"), "Long", qint32(12)},
      {13.5, "Long", qint32(14)},
      {Waehrung::ausCent(250), "Long", qint32(2)},
      {true, "Long", qint32(-1)},
      {2147483647.4, "Long", qint32(2147483647)},
      {QString("1,25"), "Double", 1.25},
      {7, "Single", 7.0F},
      {0.00025, "Currency", Waehrung::ausZehntausendsteln(2)},
      {Waehrung::ausCent(1250), "Double", 12.5},
      {QString("16.03.2026 12:00:00"), "Date", tag},
      {46097.5, "Date", tag},
      {tag, "Text", QString("16.03.2026 12:00:00")},
      {QString(" a "), "String", QString(" a ")},
      {QString(""), "String+", QString(" ")},
      {QString("  "), "String+", QString("  ")},
      {12, "Text", QString("12")},
      {1.5, "Text", QString("1,5")},
      {Waehrung::ausZehntausendsteln(-10050), "Text", QString("-1,005")},
      {0, "Boolean", false},
      {-1, "Boolean", true},
      {QString("0"), "Boolean", false},
      {true, "Boolean", true},
  };
  for (const Fall& fall : faelle) {
    const GefilterterWert wert = welt.typen.NullFilter(fall.wert, fall.art);
    EXPECT_TRUE(wert == fall.erwartet) << fall.art << ", case " << &fall - faelle;
  }
  EXPECT_TRUE(welt.meldungen.gezeigt.empty());
}

TEST(DatenTypenTest, AnUnknownTypeNameIsShownAndAnsweredWithNothing) {
  Zahlungswelt welt;
  const Meldung erwartet{"Falscher Wert in der Funktion NullFilter", Symbol::Information, Knoepfe::Ok,
                         "Zahl"};
  EXPECT_EQ(welt.typen.NullFilter(Feldwert(), "Zahl").index(), 0U);
  EXPECT_TRUE(welt.protokollzeilen().isEmpty());
  EXPECT_EQ(welt.typen.NullFilter(5, "Zahl").index(), 0U);
  EXPECT_EQ(welt.protokollzeilen(), QStringList("Falscher Wert in der Funktion Nullfilter: Zahl"));
  EXPECT_EQ(welt.meldungen.gezeigt, std::vector<Meldung>({erwartet, erwartet}));
}

TEST(DatenTypenTest, AValueThatCannotBeConvertedEndsTheProgram) {
  struct Fall {
    Feldwert wert;
    const char* art;
    const char* fehler;
    const char* text;
  };
  const Fall faelle[] = {{QString("abc"), "Long", "13 (Typen unverträglich)", "abc"},
                         {QString("1x"), "Double", "13 (Typen unverträglich)", "1x"},
                         {QString("morgen"), "Date", "13 (Typen unverträglich)", "morgen"},
                         {QString("abc"), "Boolean", "13 (Typen unverträglich)", "abc"},
                         {QByteArray("\1"), "String", "13 (Typen unverträglich)", "(Binärdaten)"},
                         {QString("3000000000"), "Long", "6 (Überlauf)", "3000000000"},
                         {-40000, "Integer", "6 (Überlauf)", "-40000"},
                         {1e18, "Currency", "6 (Überlauf)", "1e+18"}};
  for (const Fall& fall : faelle) {
    Zahlungswelt welt;
    EXPECT_THROW(welt.typen.NullFilter(fall.wert, fall.art), ProgrammEnde) << fall.art;
    const QString fehler = QString("Fehler ") + fall.fehler + " in Prozedur NullFilter in Modul DatenTypen.";
    EXPECT_EQ(welt.protokollzeilen(),
              QStringList({fehler, QString("    Art: ") + fall.art, QString("    ") + fall.text,
                           "INISpeichern: Programm / DatenbankenKomprimierenNotwendig / 1 / "
                           "/prog/verbindo.ini"}));
    EXPECT_EQ(welt.speicher.inhalt("/prog/verbindo.ini"),
              QByteArray("[Programm]\r\nDatenbankenKomprimierenNotwendig=1\r\n"));
    EXPECT_EQ(
        welt.meldungen.gezeigt,
        std::vector<Meldung>({{fehler + "\n\nDas Programm wird jetzt beendet und beim nächsten Neustart "
                                        "eine Reparatur der Datenbanken durchgeführt. Sollte das Problem "
                                        "dann weiterhin bestehen, informieren Sie bitte den "
                                        "Programmierer!"}}));
  }
}

TEST(DatenTypenTest, NummerisolierenTakesOneField) {
  Zahlungswelt welt;
  struct Fall {
    const char *text, *position, *trenner, *erwartet;
  };
  const Fall faelle[] = {{"a;b;c", "2", ";", "b"},
                         {"a;b;c", "3", ";", "c"},
                         {"a;b", "4", ";", ""},
                         {"a", "1", ";", "a"},
                         {"a", "2", ";", ""},
                         {"Hans Maier", "Rechts", "", "Maier"},
                         {"Hans Maier", "links", "", "Hans"},
                         {"Hans", "Rechts", "", "Hans"},
                         {"a b;c", "Links", ";", "a"},
                         {"a;b c", "rechts", ";", "c"},
                         {" x ; y z ; w ", "2", ";", "y z"},
                         {"x; w", "2", ";", " w"},
                         {"a\tb", "2", "", "b"},
                         {" a b ", "Oben", ";", "a b"},
                         {"a b", "0", ";", "a b"}};
  for (const Fall& fall : faelle) {
    EXPECT_EQ(welt.typen.Nummerisolieren(fall.text, fall.position, fall.trenner), QString(fall.erwartet))
        << fall.text << ", " << fall.position;
  }
  EXPECT_EQ(welt.typen.Nummerisolieren(" a b", "mitte", ";"), " a b");
  EXPECT_EQ(welt.meldungen.gezeigt, std::vector<Meldung>({{"Falscher Wert in der Funktion Nummerisolieren",
                                                           Symbol::Information, Knoepfe::Ok, "Mitte"}}));
}

TEST(TextBereinigenTest, RemovesWhatFilesMustNotHold) {
  struct Fall {
    QString text;
    bool behalten;
    const char *erlaubt, *erwartet;
  };
  const Fall faelle[] = {
      {"A & B", false, "", "A B"},
      {"A & B", false, "&", "A & B"},
      {"eins\r\nzwei\tdrei", false, "", "eins zwei drei"},
      {"  O'Neil \"Hof\"  ", false, "", "ONeil Hof"},
      {QString::fromUtf16(u"a\0b", 3), false, "", "ab"},
      {QString::fromUtf16(u"a\0b", 3), true, "", "a b"},
      {"\tx\u00A0", false, "", "x"},
      {"\tx\u00A0", true, "", " x "},
      {"a\u001Fb\u000B", false, "", "ab\u000B"},
      {"   ", false, "", ""},
      {"&", false, "", ""},
  };
  for (const Fall& fall : faelle) {
    EXPECT_EQ(TextBereinigen(fall.text, fall.behalten, fall.erlaubt), QString(fall.erwartet))
        << fall.text.toStdString();
  }
  EXPECT_EQ(UmlauteErsetzen("äöüÄÖÜß é"), "aeoeueAEOEUEss é");
}

TEST(TastenFilternTest, PassesAndSwallowsKeys) {
  for (const ushort taste : {3, 8, 22, 24}) {
    EXPECT_EQ(TastenFiltern(taste, false, "", true, QString(QChar(taste))), taste);
  }
  EXPECT_EQ(TastenFiltern(u' ', true, "", true, ""), u' ');
  EXPECT_EQ(TastenFiltern(u' ', false, " ", true, ""), 0);
  EXPECT_EQ(TastenFiltern(13, false, "", true, ""), 0);
  EXPECT_EQ(TastenFiltern(13, false, "", false, ""), 13);
  for (const QChar zeichen : QString("0aZ-.+:!$%&(),/=?_`§´ÄÖÜßäöü°")) {
    EXPECT_EQ(TastenFiltern(zeichen.unicode(), true, "", true, ""), zeichen.unicode());
    EXPECT_EQ(TastenFiltern(zeichen.unicode(), true, "", true, zeichen), 0);
  }
  EXPECT_EQ(TastenFiltern(u'a', true, "", true, "A"), u'a');
  for (const QChar zeichen : QString("'\"*#;<>@é€\t")) {
    EXPECT_EQ(TastenFiltern(zeichen.unicode(), true, "", true, ""), 0);
    EXPECT_EQ(TastenFiltern(zeichen.unicode(), true, zeichen, true, ""), zeichen.unicode());
  }
}

}  // namespace
}  // namespace pelvanto::test
