#ifndef _WIN32

#include "seams/real/echte_anwendungen.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <cerrno>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include "common/ausgabe.h"

namespace pelvanto::test {
namespace {

namespace nr = Dateifehlernummer;

// A folder with programs of our own is searched for the desktop's opener.
class EchteAnwendungenTest : public testing::Test {
 protected:
  EchteAnwendungenTest() {
    qputenv("PATH", QFile::encodeName(pfad("programme")) + ":/usr/bin:/bin");
    QDir(ordner_.path()).mkdir("programme");
    schreiben("liste 1%20#.csv", "a;b\r\n");
  }
  ~EchteAnwendungenTest() override { qputenv("PATH", alterPfad_); }

  QString pfad(const QString& name) const { return ordner_.filePath(name); }
  void schreiben(const QString& name, const QByteArray& inhalt) const {
    QFile datei(pfad(name));
    ASSERT_TRUE(datei.open(QIODevice::WriteOnly));
    datei.write(inhalt);
  }
  void programm(const QString& name, const QByteArray& skript) const {
    schreiben(name, "#!/bin/sh\n" + skript + "\n");
    QFile::setPermissions(pfad(name), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  }
  int oeffnen(const QByteArray& oeffner, int geduld = 10000) const {
    programm("programme/xdg-open", oeffner);
    return EchteAnwendungen(geduld).oeffnen(liste_, 1);
  }
  // What a program has written to `ausgabe`, once it is there; it must be written in one step.
  QByteArray ausgabe() const {
    const QDeadlineTimer frist(10000);
    while (!QFile::exists(pfad("ausgabe")) && !frist.hasExpired()) QThread::msleep(10);
    QFile datei(pfad("ausgabe"));
    return datei.open(QIODevice::ReadOnly) ? datei.readAll() : QByteArray();
  }
  // Shell text that lets `ausgabe` appear whole.
  QByteArray ausgeben(const QByteArray& was) const {
    const QByteArray ziel = QFile::encodeName(pfad("ausgabe"));
    return "printf '%s' \"" + was + "\" > " + ziel + ".neu && mv " + ziel + ".neu " + ziel;
  }

  QTemporaryDir ordner_;
  const QString liste_ = pfad("liste 1%20#.csv");

 private:
  const QByteArray alterPfad_ = qgetenv("PATH");
};

TEST_F(EchteAnwendungenTest, TellsSuccessNoApplicationAndFailureApart) {
  programm("programme/xdg-mime", "echo tabellen.desktop");
  EXPECT_GT(oeffnen(ausgeben("$1")), kOeffnenGelungenAb);
  EXPECT_EQ(ausgabe(), QFile::encodeName(liste_));
  EXPECT_EQ(oeffnen("exit 3"), kKeineAnwendung);
  EXPECT_EQ(oeffnen("exit 2"), 2);
  EXPECT_EQ(oeffnen("exit 4"), 4);
  for (const char* const anders : {"exit 31", "exit 42", "exit 127", "kill -9 $$"}) {
    EXPECT_EQ(oeffnen(anders), 4) << anders;
  }
  programm("programme/xdg-mime", "test \"$*\" = 'query default text/csv' || echo tabellen.desktop");
  EXPECT_EQ(oeffnen("exit 4"), kKeineAnwendung);
  programm("programme/xdg-mime", "exit 1");
  EXPECT_EQ(oeffnen("exit 4"), 4);

  EXPECT_EQ(EchteAnwendungen().oeffnen(pfad("fehlt.csv"), 1), 2);
  schreiben("programme/xdg-open", "#!/fehlt/shell\n");
  EXPECT_EQ(EchteAnwendungen().oeffnen(liste_, 1), 4);
  qputenv("PATH", QFile::encodeName(pfad("leer")));
  EXPECT_EQ(EchteAnwendungen().oeffnen(liste_, 1), kKeineAnwendung);
}

TEST_F(EchteAnwendungenTest, AnOpenerThatStaysCountsAsStartedAndLeavesNoDeadProcess) {
  int zahl = 1;
  char name[] = "test";
  char* namen[] = {name, nullptr};
  const QCoreApplication app(zahl, namen);
  EXPECT_GT(oeffnen("sleep 1; " + ausgeben("fertig"), 200), kOeffnenGelungenAb);
  EXPECT_FALSE(QFile::exists(pfad("ausgabe")));
  EXPECT_EQ(ausgabe(), "fertig");
  const QDeadlineTimer frist(10000);
  const auto kinder = [] {
    siginfo_t info;
    return waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) == 0 || errno != ECHILD;
  };
  while (kinder() && !frist.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  EXPECT_FALSE(kinder());
}

TEST_F(EchteAnwendungenTest, WhatIsOpenOutlivesTheProgram) {
  EXPECT_EXIT(
      {
        const bool gestartet = oeffnen("sleep 1; " + ausgeben("fertig"), 100) > kOeffnenGelungenAb;
        std::_Exit(gestartet ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
  EXPECT_EQ(ausgabe(), "fertig");
}

TEST_F(EchteAnwendungenTest, StartsAProgramWithItsArgument) {
  EchteAnwendungen anwendungen;
  programm("Verbindo 2.exe", ausgeben("$# $1"));
  EXPECT_TRUE(anwendungen.starten(pfad("Verbindo 2.exe"), "ID1234").ok());
  EXPECT_EQ(ausgabe(), "1 ID1234");

  EXPECT_EQ(anwendungen.starten(pfad("fehlt.exe"), "ID1").nummer, nr::DateiNichtGefunden);
  EXPECT_EQ(anwendungen.starten(pfad("programme"), "ID1").nummer, nr::DateiNichtGefunden);
  EXPECT_EQ(anwendungen.starten(liste_, "ID1").nummer, nr::ZugriffVerweigert);
  // As a program of another system: executable by its rights, but not here.
  schreiben("Verbindo 2.exe", QByteArray("MZ\x90\0\3", 5));
  EXPECT_EQ(anwendungen.starten(pfad("Verbindo 2.exe"), "ID1").nummer, nr::UngueltigerAufruf);
}

TEST_F(EchteAnwendungenTest, FindsTheDesktopOfTheUser) {
  const QByteArray heim = qgetenv("HOME");
  const QByteArray einstellungen = qgetenv("XDG_CONFIG_HOME");
  qputenv("XDG_CONFIG_HOME", QFile::encodeName(ordner_.path()));
  qputenv("HOME", "/heim");
  schreiben("user-dirs.dirs", "XDG_DESKTOP_DIR=\"$HOME/Arbeitsfläche\"\n");
  EXPECT_EQ(EchteAnwendungen().schreibtisch(), "/heim/Arbeitsfläche");
  QFile::remove(pfad("user-dirs.dirs"));
  EXPECT_EQ(EchteAnwendungen().schreibtisch(), "/heim/Desktop");
  qputenv("HOME", heim);
  einstellungen.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", einstellungen);
}

}  // namespace
}  // namespace pelvanto::test

#endif
