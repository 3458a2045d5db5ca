#include "druck/druckserver.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QPrinterInfo>
#include <QStandardPaths>
#include <QThread>

using namespace Qt::StringLiterals;

namespace pelvanto::test {
namespace {

constexpr int kGeduld = 10'000;  // ms

QString serverprogramm() {
  return QStandardPaths::findExecutable(u"cupsd"_s, {u"/usr/sbin"_s, u"/usr/local/sbin"_s, u"/usr/bin"_s});
}

// Anybody who reaches the socket may do anything: it lies in a folder of the user's own.
constexpr char kServer[] = R"(Listen @/server
DefaultAuthType None
WebInterface No
Browsing No
LogLevel warn
<Location />
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
)";
constexpr char kOrte[] = R"(ServerRoot @/wurzel
ServerBin @/programme
DataDir @/wurzel
DocumentRoot @/wurzel
StateDir @/stand
CacheDir @/cache
RequestRoot @/auftraege
TempDir @/auftraege/tmp
AccessLog @/zugriffe.log
ErrorLog @/fehler.log
PageLog @/seiten.log
)";
constexpr char kWarteschlange[] = R"(<DefaultPrinter Ablage>
DeviceURI behalten:@/ablage
State Idle
Accepting %1
</DefaultPrinter>
)";
// Called with: number, user, title, copies, options, file.
constexpr char kBehalten[] = R"(#!/bin/sh
[ $# -eq 0 ] && { echo 'direct behalten "Unknown" "Behaelt jeden Auftrag"'; exit 0; }
ziel="${DEVICE_URI#behalten:}/$(printf %05d "$1").pdf"
if [ -n "$6" ]; then cat "$6"; else cat; fi > "$ziel.teil"
printf %s "$3" > "$ziel.titel"
mv "$ziel.teil" "$ziel"
)";

QByteArray inhalt(const QString& datei) {
  QFile f(datei);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

}  // namespace

bool Druckserver::vorhanden() { return !serverprogramm().isEmpty(); }

Druckserver& Druckserver::einziger() {
  static Druckserver server;
  return server;
}

Druckserver::Druckserver() {
  qputenv("CUPS_SERVER", pfad(u"server"_s).toUtf8());
  for (const QString& name :
       {u"wurzel"_s, u"programme/backend"_s, u"stand"_s, u"cache"_s, u"auftraege/tmp"_s, u"ablage"_s}) {
    QDir().mkpath(pfad(name));
  }
  schreiben(u"cupsd.conf"_s, QString::fromUtf8(kServer));
  schreiben(u"cups-files.conf"_s, QString::fromUtf8(kOrte));
  schreiben(u"wurzel/mime.types"_s, u"application/pdf pdf string(0,%PDF)\napplication/octet-stream\n"_s);
  schreiben(u"wurzel/mime.convs"_s, {});
  // A backend that others may not run is run as the user of the server.
  schreiben(u"programme/backend/behalten"_s, QString::fromUtf8(kBehalten));
  QFile::setPermissions(pfad(u"programme/backend/behalten"_s),
                        QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  // The server starts its backends through a program of its own.
  QFile::link(u"/usr/lib/cups/daemon"_s, pfad(u"programme/daemon"_s));
}

void Druckserver::schreiben(const QString& name, QString inhalt) const {
  QFile datei(pfad(name));
  if (datei.open(QIODevice::WriteOnly)) datei.write(inhalt.replace(u'@', ordner_.path()).toUtf8());
}

QString Druckserver::starten(bool nimmtAn) {
  beenden();
  QFile::remove(pfad(u"fehler.log"_s));
  schreiben(u"wurzel/printers.conf"_s, QString::fromUtf8(kWarteschlange).arg(nimmtAn ? u"Yes"_s : u"No"_s));
  for (const Druckauftrag& auftrag : auftraege(0)) QFile::remove(auftrag.datei);
  server_.setProcessChannelMode(QProcess::MergedChannels);
  server_.start(serverprogramm(),
                {u"-f"_s, u"-c"_s, pfad(u"cupsd.conf"_s), u"-s"_s, pfad(u"cups-files.conf"_s)});
  QElapsedTimer uhr;
  uhr.start();
  while (!QFileInfo::exists(pfad(u"server"_s)) || QPrinterInfo::defaultPrinterName() != u"Ablage") {
    if (server_.waitForFinished(20) || server_.state() == QProcess::NotRunning || uhr.elapsed() > kGeduld) {
      return QString::fromUtf8("cupsd: " + server_.readAll() + inhalt(pfad(u"fehler.log"_s)));
    }
  }
  return {};
}

void Druckserver::beenden() {
  if (server_.state() == QProcess::NotRunning) return;
  server_.terminate();
  if (!server_.waitForFinished(kGeduld)) server_.kill();
  server_.waitForFinished(kGeduld);
  QFile::remove(pfad(u"server"_s));
}

std::vector<Druckauftrag> Druckserver::auftraege(std::size_t anzahl) const {
  QElapsedTimer uhr;
  uhr.start();
  QFileInfoList dateien;
  do {
    QThread::msleep(20);
    dateien = QDir(pfad(u"ablage"_s)).entryInfoList({u"*.pdf"_s}, QDir::Files, QDir::Name);
  } while (static_cast<std::size_t>(dateien.size()) < anzahl && uhr.elapsed() < kGeduld);
  std::vector<Druckauftrag> auftraege;
  for (const QFileInfo& datei : dateien) {
    auftraege.push_back({QString::fromUtf8(inhalt(datei.filePath() + u".titel"_s)), datei.filePath()});
  }
  return auftraege;
}

}  // namespace pelvanto::test
