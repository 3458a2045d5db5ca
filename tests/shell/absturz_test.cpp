// The program itself, killed in the middle of a mail merge on a real disk.
#ifndef _WIN32

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <cstdio>
#include <gtest/gtest.h>
#include <random>

#include "jet/check.h"
#include "jet/export.h"
#include "sample/beispielordner.h"

namespace pelvanto {
namespace {

constexpr int kAbstuerze = 20;
constexpr int kGeduld = 120'000;  // milliseconds
constexpr double kHeute = 46097.0;

// A program folder with the wizard that plays itself in it.
class Lauf {
 public:
  explicit Lauf(const QByteArray& datenbank) {
    beispiel::beispielordnerAnlegen(ordner_.path().toStdString(), 2026, kHeute);
    QFile datei(pfad());
    if (!datenbank.isEmpty() && datei.open(QFile::WriteOnly)) datei.write(datenbank);
  }
  QString pfad() const { return ordner_.filePath("Verbindo.mdb"); }

  // Runs up to the first save of the mail merge of page 3a.
  void bisZumErstenSpeichern() {
    const QDateTime vorher = QFileInfo(pfad()).lastModified();
    const qint64 groesse = QFileInfo(pfad()).size();
    programm_.start(VORFUEHRUNG, {"--datum=2026-03-16T08:09:10", ordner_.path()});
    bisZeile("Schritt 3a");
    for (QFileInfo stand(pfad()); stand.lastModified() == vorher && stand.size() == groesse;
         stand.refresh()) {
      if (programm_.state() == QProcess::NotRunning || uhr_.elapsed() > kGeduld) break;
      QThread::usleep(200);
    }
  }
  void bisZeile(const QByteArray& anfang) {
    if (!uhr_.isValid()) uhr_.start();
    while (!ausgabe_.contains(anfang) && programm_.waitForReadyRead(kGeduld)) {
      ausgabe_ += programm_.readAllStandardOutput();
    }
    ASSERT_TRUE(ausgabe_.contains(anfang)) << ausgabe_.toStdString();
  }
  void toeten() {
    programm_.kill();
    programm_.waitForFinished(kGeduld);
    EXPECT_EQ(programm_.exitStatus(), QProcess::CrashExit);
  }

 private:
  QTemporaryDir ordner_;
  QProcess programm_;
  QByteArray ausgabe_;
  QElapsedTimer uhr_;
};

QByteArray inhalt(const QString& pfad) {
  QFile datei(pfad);
  return datei.open(QFile::ReadOnly) ? datei.readAll() : QByteArray();
}

// The tables of a database, opened as the program opens it: what was interrupted is undone.
struct Stand {
  explicit Stand(const QString& pfad) {
    jet::OpenOptions optionen;
    optionen.recovered = [this](const jet::RecoveryResult& ergebnis) {
      zurueckgenommen = ergebnis.what == jet::Recovery::RolledBack;
      beiseite = ergebnis.what == jet::Recovery::SetAside;
    };
    jet::Database datenbank(jet::systemFiles(), pfad.toStdU16String(), optionen);
    schaeden = jet::check(datenbank).errors;
    for (const jet::TableEntry& eintrag : datenbank.tables()) {
      const std::string tabelle = jet::exportTable(datenbank.table(eintrag.name));
      if (eintrag.name == u"Adressen") {
        adressen = tabelle;
      } else if (eintrag.name == u"Vornamen") {
        vornamen = tabelle;
      } else {
        uebrige += tabelle;
      }
    }
  }
  std::vector<std::string> schaeden;
  std::string adressen, vornamen, uebrige;
  bool zurueckgenommen = false, beiseite = false;
};

TEST(Absturz, MittenInDenSerienbriefenGetoetet) {
  Lauf vollstaendig({});
  const QByteArray anfang = inhalt(vollstaendig.pfad());
  const Stand vorher(vollstaendig.pfad());
  vollstaendig.bisZumErstenSpeichern();
  QElapsedTimer dauer;
  dauer.start();
  vollstaendig.bisZeile("  Serienbrief-Adressen");
  const auto mikrosekunden = static_cast<unsigned long>(dauer.nsecsElapsed() / 1000);
  vollstaendig.toeten();
  const Stand nachher(vollstaendig.pfad());
  ASSERT_TRUE(nachher.adressen.starts_with(vorher.adressen)) << "addresses are only added";
  ASSERT_GT(nachher.adressen.size(), vorher.adressen.size());

  std::mt19937 zufall(31);
  int mittendrin = 0, zurueckgenommen = 0;
  for (int i = 0; i < kAbstuerze; ++i) {
    SCOPED_TRACE(i);
    Lauf lauf(anfang);
    lauf.bisZumErstenSpeichern();
    QThread::usleep(zufall() % mikrosekunden);
    lauf.toeten();
    const Stand stand(lauf.pfad());
    EXPECT_EQ(stand.schaeden, std::vector<std::string>());
    EXPECT_FALSE(stand.beiseite);
    EXPECT_TRUE(stand.adressen.starts_with(vorher.adressen) && nachher.adressen.starts_with(stand.adressen))
        << "not the state after one of the persons";
    EXPECT_TRUE(stand.uebrige == vorher.uebrige) << "a table changed that nobody writes to";
    if (stand.vornamen != vorher.vornamen && stand.adressen != nachher.adressen) ++mittendrin;
    zurueckgenommen += stand.zurueckgenommen;
  }
  EXPECT_GT(mittendrin, kAbstuerze / 4) << "there was hardly anything to interrupt";
  std::printf("%d kills, %d of them between the first and the last person, %d saves rolled back\n",
              kAbstuerze, mittendrin, zurueckgenommen);
}

}  // namespace
}  // namespace pelvanto

#endif
