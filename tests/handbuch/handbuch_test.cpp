// The handbook says what the program says: every message that a clerk can see is explained there word for
// word, and everything that is quoted there is still in the program.
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include <gtest/gtest.h>

#include "handbuch/programmtexte.h"

namespace {

using namespace Qt::StringLiterals;
using programmtexte::Absatz;

const QString kWurzel = QStringLiteral(PELVANTO_SOURCE_DIR);

QByteArray inhalt(const QString& pfad) {
  QFile datei(pfad);
  if (!datei.open(QIODevice::ReadOnly)) ADD_FAILURE() << "unreadable: " << pfad.toStdString();
  return datei.readAll();
}

QStringList dateien(const QString& ordner, const QStringList& muster) {
  QStringList alle;
  for (QDirIterator lauf(ordner, muster, QDir::Files, QDirIterator::Subdirectories); lauf.hasNext();)
    alle << lauf.next();
  alle.sort();
  return alle;
}

// What a programmer reads: the engine speaks English and is translated in database/; the others are not part
// of the program.
bool istFuerProgrammierer(const QString& pfad) {
  static const QRegularExpression ordner(u"/src/(jet|jet_tool|demo|sample)/"_s);
  return ordner.match(pfad).hasMatch();
}

// Handed to something that never shows a message: the log, the labels and tool tips of the window, or the
// engine's English sentence that a German one stands for.
bool istKeineMeldung(const Absatz& absatz) {
  static const QSet<QString> beschriftung{u"beschriftung"_s,
                                          u"textfeld"_s,
                                          u"knopf"_s,
                                          u"liste"_s,
                                          u"rahmen"_s,
                                          u"kopf"_s,
                                          u"SeitenFenster"_s,
                                          u"setAccessibleName"_s,
                                          u"serienbriefeAusgeschiedenKnopf"_s};
  static const QRegularExpression protokoll(
      u"^(?:protokoll_?\\.(?:schreiben|fehler)|fehlerProtokollieren)$"_s);
  const bool uebersetzt = absatz.aufruf == u"Satz" || absatz.aufruf == u"Schadensgrund";
  const bool englisch =
      (uebersetzt && absatz.argument == 0) || absatz.aufruf == u"Error" || absatz.aufruf == u"static_assert";
  return englisch || beschriftung.contains(absatz.aufruf) || absatz.aufruf.endsWith(u".setToolTip") ||
         protokoll.match(absatz.aufruf).hasMatch();
}

// Two words at least, and neither query nor XML. A message of a single word is not told from a name.
bool istSatz(const QString& text) {
  static const QRegularExpression woerter(u"\\p{L}{2,}.*\\s.*\\p{L}{2,}"_s);
  static const QRegularExpression maschinensprache(u"^(?:SELECT|FROM|WHERE|INNER|ORDER|AND|<)"_s);
  return woerter.match(text).hasMatch() && !maschinensprache.match(text).hasMatch();
}

// What may be quoted, and where each message stands.
struct Programm {
  QSet<QString> alles;
  QMap<QString, QString> meldungen;
};

const Programm& programm() {
  static const Programm gelesen = [] {
    Programm neu;
    for (const QString& pfad : dateien(kWurzel + "/src", {"*.cpp", "*.h"})) {
      if (istFuerProgrammierer(pfad)) continue;
      for (const Absatz& absatz : programmtexte::lesen(inhalt(pfad))) {
        neu.alles << absatz.text << QString(absatz.text).remove(u'&');
        if (istSatz(absatz.text) && !istKeineMeldung(absatz))
          neu.meldungen[absatz.text] = pfad.mid(kWurzel.size() + 1) + u':' + QString::number(absatz.zeile);
      }
    }
    return neu;
  }();
  return gelesen;
}

// What stands between the marks of this role in the handbook: [.role]##text##.
QMap<QString, QString> zitate(const QString& rolle) {
  const QRegularExpression marke(u"\\[\\.%1\\]##(.+?)##"_s.arg(rolle),
                                 QRegularExpression::DotMatchesEverythingOption);
  QMap<QString, QString> alle;
  for (const QString& pfad : dateien(kWurzel + "/docs/handbuch", {"*.adoc"})) {
    const QString text = QString::fromUtf8(inhalt(pfad));
    for (auto funde = marke.globalMatch(text); funde.hasNext();) {
      alle[programmtexte::vereinheitlicht(funde.next().captured(1))] = pfad.mid(kWurzel.size() + 1);
    }
  }
  return alle;
}

// The lines of the list of texts that are no messages; "#" begins a line that says why.
QStringList ausnahmen() {
  QStringList zeilen;
  const QString alles = QString::fromUtf8(inhalt(kWurzel + "/tests/handbuch/keine_meldungen.txt"));
  for (const QString& zeile : alles.split(u'\n', Qt::SkipEmptyParts)) {
    if (!zeile.startsWith(u'#')) zeilen << zeile;
  }
  return zeilen;
}

TEST(Handbuch, ErklaertJedeMeldungDesProgramms) {
  const QMap<QString, QString> erklaert = zitate(u"meldung"_s);
  const QStringList keine = ausnahmen();
  ASSERT_GT(programm().meldungen.size(), 100);
  for (auto meldung = programm().meldungen.begin(); meldung != programm().meldungen.end(); ++meldung) {
    EXPECT_TRUE(erklaert.contains(meldung.key()) || keine.contains(meldung.key()))
        << "not in docs/handbuch, in " << meldung.value().toStdString() << ":\n"
        << meldung.key().toStdString();
  }
}

TEST(Handbuch, ZitiertNurWasDasProgrammSagt) {
  for (const QString& rolle : {u"meldung"_s, u"feld"_s}) {
    const QMap<QString, QString> alle = zitate(rolle);
    ASSERT_FALSE(alle.isEmpty()) << rolle.toStdString();
    for (auto zitat = alle.begin(); zitat != alle.end(); ++zitat) {
      EXPECT_TRUE(programm().alles.contains(zitat.key()))
          << "not in the sources, in " << zitat.value().toStdString() << ":\n"
          << zitat.key().toStdString();
    }
  }
}

// An entry that nothing in the program needs any more would hide a new message of the same words.
TEST(Handbuch, NimmtNurAusWasEsGibt) {
  const QMap<QString, QString> erklaert = zitate(u"meldung"_s);
  for (const QString& ausnahme : ausnahmen()) {
    EXPECT_TRUE(programm().meldungen.contains(ausnahme)) << ausnahme.toStdString();
    EXPECT_FALSE(erklaert.contains(ausnahme)) << "explained as well: " << ausnahme.toStdString();
  }
}

TEST(Programmtexte, WerdenAusIhrenTeilenZusammengesetzt) {
  const QByteArray quelltext = R"cpp(
    // "no text"
#include "no/text.h"
    void f(const QString& pfad) {
      zeigen({u"Die Datei "_s + pfad +
                  QStringLiteral(" fehlt im "
                                 "Ordner %1.\n\nZweiter \"Absatz\" von ")
                      .arg(u"innen drin"_s) +
                  (a ? u"hier"_s : u"da"_s) + u'.',
              Symbol::Frage});
      protokoll_.fehler(pfad + u" im Protokoll"_s, 4);
      const Satz s[] = {Satz{u"english words", uR"(deutsche Worte)"}};
      text += u" und weiter"_s;
    }
  )cpp";
  QStringList gelesen;
  for (const Absatz& absatz : programmtexte::lesen(quelltext))
    gelesen << u"%1|%2|%3"_s.arg(absatz.aufruf).arg(absatz.argument).arg(absatz.text);
  gelesen.sort();
  QStringList erwartet{u"Satz|0|english words"_s,
                       u"Satz|1|deutsche Worte"_s,
                       u"|0|da"_s,
                       u"|0|hier"_s,
                       u"|0|und weiter"_s,
                       u"arg|0|innen drin"_s,
                       u"protokoll_.fehler|0|… im Protokoll"_s,
                       u"zeigen|0|Die Datei … fehlt im Ordner …."_s,
                       u"zeigen|0|Zweiter \"Absatz\" von …."_s};
  erwartet.sort();
  EXPECT_EQ(gelesen.join(u'\n').toStdString(), erwartet.join(u'\n').toStdString());
}

}  // namespace
