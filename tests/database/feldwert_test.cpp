#include "database/feldwert.h"

#include <gtest/gtest.h>
#include <limits>
#include <set>

#include "database/datenbankfehler.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

TEST(FeldwertTest, EveryTypeOfTheEngineHasItsOwn) {
  EXPECT_EQ(alsFeldwert(jet::Null{}), Feldwert());
  EXPECT_EQ(alsFeldwert(true), Feldwert(true));
  EXPECT_EQ(alsFeldwert(std::int32_t{-7}), Feldwert(-7));
  EXPECT_EQ(alsFeldwert(0.5F), Feldwert(0.5));
  EXPECT_EQ(alsFeldwert(jet::Currency{-12345}), Feldwert(Waehrung::ausZehntausendsteln(-12345)));
  EXPECT_EQ(alsFeldwert(jet::Text(u"Müller ")), Feldwert(u"Müller "_s));
  EXPECT_EQ(alsFeldwert(jet::Bytes{1, 0, 255}), Feldwert(QByteArray("\x01\x00\xff", 3)));
  EXPECT_EQ(alsFeldwert(jet::Guid{{9}}), Feldwert(QByteArray("\x09", 1) + QByteArray(15, '\0')));
}

TEST(FeldwertTest, DatesCountDaysFrom1899WithThePositiveTimeOfTheDay) {
  const auto datum = [](double tage) { return std::get<QDateTime>(alsFeldwert(jet::DateTime{tage})); };
  const std::pair<double, const char*> faelle[] = {
      {0, "1899-12-30T00:00:00"},
      {2.25, "1900-01-01T06:00:00"},
      {-1.25, "1899-12-29T06:00:00"},
      {46097.0 + 8.0 / 24 + 9.0 / 1440, "2026-03-16T08:09:00"},
      {46110.0 + 2.5 / 24, "2026-03-29T02:30:00"},  // an hour that summer time leaves out
      {2958465.5, "9999-12-31T12:00:00"},
      {-657434, "0100-01-01T00:00:00"},
  };
  for (const auto& [tage, text] : faelle) {
    EXPECT_EQ(datum(tage).toString(u"yyyy-MM-ddTHH:mm:ss"_s).toStdString(), text);
  }
  for (const double unsinn : {std::numeric_limits<double>::quiet_NaN(), 1e300, -1e300,
                              std::numeric_limits<double>::infinity(), 2958466.0}) {
    EXPECT_FALSE(datum(unsinn).isValid()) << unsinn;
  }
}

TEST(FeldwertTest, DecimalsAreMoneyWhereThatIsExact) {
  const auto wert = [](std::array<std::uint32_t, 4> gruppen, int stellen, bool negativ = false) {
    return alsFeldwert(jet::Numeric{negativ, gruppen, static_cast<std::uint8_t>(stellen)});
  };
  const auto zehntausendstel = [](qint64 anzahl) { return Feldwert(Waehrung::ausZehntausendsteln(anzahl)); };
  EXPECT_EQ(wert({0, 0, 0, 12345}, 2), zehntausendstel(1234500));
  EXPECT_EQ(wert({0, 0, 0, 12345}, 4, true), zehntausendstel(-12345));
  EXPECT_EQ(wert({0, 0, 0, 12300000}, 8), zehntausendstel(1230));
  EXPECT_EQ(wert({0, 0, 0x7FFFFFFF, 0xFFFFFFFF}, 4), zehntausendstel(std::numeric_limits<qint64>::max()));
  EXPECT_EQ(wert({0, 0, 0x80000000, 0}, 4), Feldwert(922337203685477.5808));
  EXPECT_EQ(wert({0, 0, 0x7FFFFFFF, 0xFFFFFFFF}, 3), Feldwert(9223372036854775.807));
  EXPECT_EQ(wert({0, 0, 0, 12345}, 5), Feldwert(0.12345));
  EXPECT_EQ(wert({1, 0, 0, 0}, 0, true), Feldwert(-79228162514264337593543950336.0));
}

constexpr jet::ErrorKind kArten[] = {
    jet::ErrorKind::FileNotFound,
    jet::ErrorKind::AccessDenied,
    jet::ErrorKind::Busy,
    jet::ErrorKind::Io,
    jet::ErrorKind::NotADatabase,
    jet::ErrorKind::UnsupportedFormat,
    jet::ErrorKind::PasswordRequired,
    jet::ErrorKind::Truncated,
    jet::ErrorKind::Damaged,
    jet::ErrorKind::NoSuchTable,
    jet::ErrorKind::NoSuchColumn,
    jet::ErrorKind::Sql,
    jet::ErrorKind::TypeMismatch,
    jet::ErrorKind::Constraint,
    jet::ErrorKind::Limit,
};

TEST(DatenbankfehlerTest, OnlyDamageCarriesTheTextThatMayReplaceTheFile) {
  const std::string boese = "Nicht erkennbares Datenbankformat, Zu viele aktive Benutzer";
  std::set<int> nummern;
  for (const jet::ErrorKind art : kArten) {
    const Datenbankfehler fehler =
        alsDatenbankfehler(jet::Error(art, boese), u"/"_s + QString::fromStdString(boese));
    SCOPED_TRACE(fehler.beschreibung.toStdString());
    EXPECT_TRUE(nummern.insert(fehler.nummer).second) << "every kind has its own number";
    const bool schaden = art == jet::ErrorKind::NotADatabase || art == jet::ErrorKind::Truncated ||
                         art == jet::ErrorKind::Damaged;
    EXPECT_EQ(istBeschaedigung(fehler), schaden);
    EXPECT_EQ(fehler.beschreibung.contains(u"Nicht erkennbares Datenbankformat"_s), schaden);
    EXPECT_EQ(fehler.beschreibung.startsWith(u"Nicht erkennbares Datenbankformat"_s), schaden);
    EXPECT_FALSE(fehler.beschreibung.contains(u"Zu viele aktive Benutzer"_s));
    EXPECT_EQ(fehler.beschreibung.contains(u"reparieren"_s), schaden);
    EXPECT_FALSE(fehler.beschreibung.contains(u'%'));
  }
}

TEST(DatenbankfehlerTest, DamageNamesThePageAndTheReason) {
  const auto text = [](const jet::Error& fehler) {
    return alsDatenbankfehler(fehler, u"/x.mdb"_s).beschreibung;
  };
  EXPECT_EQ(text(jet::Error(jet::ErrorKind::Damaged, "an index is over no column", 17)),
            u"Nicht erkennbares Datenbankformat: Seite 17 ist beschädigt, die Beschreibung einer Tabelle ist "
            "fehlerhaft; bitte die Datenbank in Verbindo reparieren und komprimieren"_s);
  EXPECT_EQ(text(jet::Error(jet::ErrorKind::Damaged, "something new")),
            u"Nicht erkennbares Datenbankformat: der Aufbau der Datei ist beschädigt; bitte die Datenbank in "
            "Verbindo reparieren und komprimieren"_s);
  EXPECT_EQ(
      text(jet::Error(jet::ErrorKind::Damaged,
                      "Table Index has 12 rows, its count says 13, and no index confirms either", 4)),
      u"Nicht erkennbares Datenbankformat: Seite 4 ist beschädigt, die Tabelle Index hat 12 Datensätze, "
      "ihr Zähler nennt 13, und kein Index bestätigt eine der beiden Zahlen; bitte die Datenbank in "
      "Verbindo reparieren und komprimieren"_s);
}

}  // namespace
}  // namespace pelvanto
