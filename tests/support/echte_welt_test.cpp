#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "common/ausgabe.h"
#include "seams/real/dateifehler.h"
#include "seams/real/echtes_dateisystem.h"
#include "seams/real/echtes_gebietsschema.h"
#include "support/zahlenformat.h"

namespace pelvanto::test {
namespace {

namespace nr = Dateifehlernummer;

class EchtesDateisystemTest : public testing::Test {
 protected:
  QString pfad(const QString& name) const { return ordner_.filePath(name); }
  QByteArray inhalt(const QString& name) const {
    QByteArray bytes;
    EXPECT_TRUE(dateien_.lesen(pfad(name), bytes).ok()) << name.toStdString();
    return bytes;
  }
  QStringList namen() const { return dateien_.namen(ordner_.path()); }

  QTemporaryDir ordner_;
  EchtesDateisystem dateien_;
};

TEST_F(EchtesDateisystemTest, WritesReadsAndAppendsWholeContents) {
  const QByteArray gross(3'000'000, 'x');
  ASSERT_TRUE(dateien_.schreiben(pfad("Übung €.txt"), gross).ok());
  EXPECT_EQ(inhalt("Übung €.txt"), gross);
  EXPECT_TRUE(dateien_.schreiben(pfad("Übung €.txt"), QByteArray("kurz\0\r\n", 7)).ok());
  EXPECT_TRUE(dateien_.anhaengen(pfad("Übung €.txt"), "mehr").ok());
  EXPECT_TRUE(dateien_.anhaengen(pfad("neu"), "erste").ok());
  EXPECT_EQ(inhalt("Übung €.txt"), QByteArray("kurz\0\r\nmehr", 11));
  EXPECT_EQ(dateien_.groesse(pfad("Übung €.txt")), 11);
  EXPECT_EQ(namen(), QStringList({"neu", "Übung €.txt"}));
}

TEST_F(EchtesDateisystemTest, RenamesButNeverReplaces) {
  ASSERT_TRUE(dateien_.schreiben(pfad("a"), "a").ok());
  ASSERT_TRUE(dateien_.schreiben(pfad("b"), "b").ok());
  EXPECT_EQ(dateien_.umbenennen(pfad("a"), pfad("b")).nummer, nr::DateiExistiert);
  EXPECT_EQ(inhalt("b"), QByteArray("b"));
  EXPECT_TRUE(dateien_.umbenennen(pfad("a"), pfad("c")).ok());
  EXPECT_EQ(namen(), QStringList({"b", "c"}));
  EXPECT_EQ(inhalt("c"), QByteArray("a"));
  EXPECT_EQ(dateien_.umbenennen(pfad("fehlt"), pfad("d")).nummer, nr::DateiNichtGefunden);
}

TEST_F(EchtesDateisystemTest, ReplacesKeepingTheRightsOfTheOldFile) {
  ASSERT_TRUE(dateien_.schreiben(pfad("ini"), "alt").ok());
  QFile::setPermissions(pfad("ini"), QFile::ReadOwner | QFile::WriteOwner);
  const QFile::Permissions rechte = QFile::permissions(pfad("ini"));
  ASSERT_TRUE(dateien_.schreiben(pfad("ini.neu"), "neu").ok());
  EXPECT_TRUE(dateien_.ersetzen(pfad("ini.neu"), pfad("ini")).ok());
  EXPECT_EQ(inhalt("ini"), QByteArray("neu"));
  EXPECT_EQ(QFile::permissions(pfad("ini")), rechte);
  EXPECT_EQ(namen(), QStringList("ini"));
}

TEST_F(EchtesDateisystemTest, NumbersItsErrors) {
  QByteArray bytes;
  const QString imFehlendenOrdner = pfad("weg/datei");
  ASSERT_TRUE(dateien_.ordnerAnlegen(pfad("unter")).ok());
  EXPECT_EQ(dateien_.oeffnenPruefen(pfad("fehlt")).nummer, nr::DateiNichtGefunden);
  EXPECT_EQ(dateien_.oeffnenPruefen(imFehlendenOrdner).nummer, nr::PfadNichtGefunden);
  EXPECT_EQ(dateien_.oeffnenPruefen(pfad("unter")).nummer, nr::PfadZugriff);
  EXPECT_EQ(dateien_.lesen(pfad("unter"), bytes).nummer, nr::PfadZugriff);
  EXPECT_EQ(dateien_.schreiben(imFehlendenOrdner, "x").nummer, nr::PfadNichtGefunden);
  EXPECT_EQ(dateien_.loeschen(pfad("fehlt")).nummer, nr::DateiNichtGefunden);
#ifdef Q_OS_WIN
  const QString keinName = pfad("a|b");
#else
  const QString keinName = pfad(QString(300, u'x'));
#endif
  EXPECT_EQ(dateien_.schreiben(keinName, "x").nummer, nr::DateinameUngueltig);
  EXPECT_EQ(dateien_.ordnerAnlegen(pfad("unter")).nummer, nr::PfadZugriff);
  EXPECT_EQ(dateien_.ordnerAnlegen(pfad("weg/ordner")).nummer, nr::PfadNichtGefunden);
  EXPECT_EQ(dateien_.ordnerSpuelen(pfad("weg")).nummer, nr::DateiNichtGefunden);
  EXPECT_TRUE(dateien_.ordnerSpuelen(ordner_.path()).ok());
  EXPECT_EQ(dateien_.groesse(pfad("fehlt")), std::nullopt);
  EXPECT_FALSE(dateien_.zeiten(pfad("fehlt")).has_value());
  for (const int nummer : {5, 52, 53, 57, 58, 61, 70, 75, 76}) {
    EXPECT_NE(dateifehlerMitNummer(nummer).beschreibung, dateifehlerMitNummer(1).beschreibung) << nummer;
  }
}

TEST_F(EchtesDateisystemTest, AFullDiskIsAnError) {
  if (!QFile::exists("/dev/full")) {
    GTEST_SKIP() << "no device that is always full";
  }
  EXPECT_EQ(dateien_.anhaengen("/dev/full", "x").nummer, nr::DatentraegerVoll);
  EXPECT_EQ(dateien_.schreiben("/dev/full", "x").nummer, nr::DatentraegerVoll);
}

TEST_F(EchtesDateisystemTest, CopiesWithTheTimeOfTheOriginalAndClearsReadOnly) {
  ASSERT_TRUE(dateien_.schreiben(pfad("a"), "inhalt").ok());
  QFile datei(pfad("a"));
  ASSERT_TRUE(datei.open(QIODevice::ReadWrite));
  const QDateTime alt(QDate(2020, 2, 3), QTime(4, 5, 6));
  datei.setFileTime(alt, QFileDevice::FileModificationTime);
  datei.close();
  EXPECT_TRUE(dateien_.kopieren(pfad("a"), pfad("b")).ok());
  EXPECT_EQ(inhalt("b"), QByteArray("inhalt"));
  EXPECT_EQ(dateien_.zeiten(pfad("b"))->letztesSchreiben, alt);
  EXPECT_EQ(dateien_.zeiten(pfad("b"))->erstellt.time().msec(), 0);

  QFile::setPermissions(pfad("b"), QFile::ReadOwner);
  EXPECT_TRUE(dateien_.attributeLoeschen(pfad("b")).ok());
  EXPECT_TRUE(QFile::permissions(pfad("b")).testFlag(QFile::WriteOwner));
  EXPECT_TRUE(dateien_.loeschen(pfad("b")).ok());
  EXPECT_FALSE(dateien_.existiert(pfad("b")));
}

TEST(EchtesGebietsschemaTest, TakesCharactersAndPlaceFromTheSystem) {
  const Waehrung betrag = Waehrung::ausCent(123450);
  // Whatever the system says, an amount that is shown is read back as the same amount.
  const auto dezimal = [](const QLocale& schema) { return zahlenzeichenAus(schema).dezimal; };
  EXPECT_EQ(dezimal(QLocale(QLocale::Arabic, QLocale::Egypt)), u',');
  const std::pair<QLocale, QString> faelle[] = {
      {QLocale(QLocale::German, QLocale::Germany), "1.234,50 €"},
      {QLocale(QLocale::German, QLocale::Austria), "1\u00A0234,50 €"},
      {QLocale(QLocale::English, QLocale::UnitedStates), "$1,234.50"},
      {QLocale(QLocale::Danish, QLocale::Denmark), "1.234,50 kr"},
      {QLocale::c(), "1,234.50"},
  };
  for (const auto& [schema, erwartet] : faelle) {
    EXPECT_EQ(Zahlenformat::waehrung(betrag, zahlenzeichenAus(schema)), erwartet)
        << schema.name().toStdString();
  }
}

}  // namespace
}  // namespace pelvanto::test
