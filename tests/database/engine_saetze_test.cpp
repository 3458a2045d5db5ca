#include "database/engine_saetze.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

// Every place of the writing engine that fails for a reason a clerk may read: its sentence as far as it
// stands in the source, before the name of a column, index or relation.
QStringList saetzeDerQuelle() {
  const QRegularExpression stelle(
      u"(?:(?:Error|fail)\\(\\s*ErrorKind::(?:TypeMismatch|Constraint|Limit|ReadOnly|NotWritable),\\s*|"
      "refuse\\(\\s*)(?:std::string\\()?\"([^\"]+)\""_s);
  QStringList saetze;
  for (const QString& ordner : {u""_s, u"/encode"_s, u"/write"_s}) {
    const QDir quellen(QStringLiteral(PELVANTO_SOURCE_DIR) + u"/src/jet"_s + ordner);
    for (const QString& name : quellen.entryList({u"*.cpp"_s})) {
      QFile datei(quellen.filePath(name));
      if (!datei.open(QIODevice::ReadOnly)) ADD_FAILURE() << name.toStdString();
      const QString text = QString::fromUtf8(datei.readAll());
      for (const QRegularExpressionMatch& fund : stelle.globalMatch(text)) saetze << fund.captured(1);
    }
  }
  return saetze;
}

TEST(EngineSaetzeTest, WhatKeepsARecordFromBeingSavedIsSaidInGerman) {
  const QStringList saetze = saetzeDerQuelle();
  EXPECT_GT(saetze.size(), 25);
  for (const QString& satz : saetze) {
    bool bekannt = false;
    for (const char* ende : {"", "X", ": column X", ": relation X", "column X", "index X"}) {
      const std::string ganzer = satz.toStdString() + ende;
      bekannt = bekannt || aufDeutsch(ganzer) != QString::fromStdString(ganzer);
    }
    EXPECT_TRUE(bekannt) << satz.toStdString();
  }
  EXPECT_EQ(aufDeutsch("a required value is missing: column Straße"),
            u"das Feld Straße muss ausgefüllt sein"_s);
}

}  // namespace
}  // namespace pelvanto
