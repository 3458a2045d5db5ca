#ifndef _WIN32

#include <QFileInfo>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>

#include <memory>
#include <unistd.h>

#include "seams/real/dateifehler.h"
#include "seams/real/echte_anwendungen.h"

namespace pelvanto {

namespace {

constexpr int kNichtGefunden = 2;
constexpr int kFehlgeschlagen = 4;
constexpr int kGestartet = 42;

// Nothing ties it to this program or its terminal: it stays when they end.
void loesen(QProcess& vorgang) {
  vorgang.setStandardInputFile(QProcess::nullDevice());
  vorgang.setStandardOutputFile(QProcess::nullDevice());
  vorgang.setStandardErrorFile(QProcess::nullDevice());
  vorgang.setChildProcessModifier([] { ::setsid(); });
}

// Still running: the object, whose end would kill the process, goes with it.
void laufenLassen(std::unique_ptr<QProcess> vorgang) {
  QProcess* laufender = vorgang.release();
  QObject::connect(laufender, &QProcess::finished, laufender, &QObject::deleteLater);
}

// Openers of some desktops say only that they failed. True also when nobody knows.
bool hatAnwendung(const QString& datei, int geduld) {
  const QString auskunft = QStandardPaths::findExecutable(QStringLiteral("xdg-mime"));
  if (auskunft.isEmpty()) return true;
  QProcess frage;
  frage.start(auskunft, {QStringLiteral("query"), QStringLiteral("default"),
                         QMimeDatabase().mimeTypeForFile(datei).name()});
  const bool beantwortet =
      frage.waitForFinished(geduld) && frage.exitStatus() == QProcess::NormalExit && frage.exitCode() == 0;
  return !beantwortet || !frage.readAllStandardOutput().trimmed().isEmpty();
}

}  // namespace

// The desktop's opener hands the file over and ends; one that stays has become the application itself.
int EchteAnwendungen::oeffnen(const QString& datei, int /*fensterart*/) {
  constexpr int kKeinMittel = 3;  // the opener's own number
  if (!QFileInfo::exists(datei)) return kNichtGefunden;
  const QString oeffner = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
  if (oeffner.isEmpty()) return kKeineAnwendung;
  auto vorgang = std::make_unique<QProcess>();
  loesen(*vorgang);
  vorgang->start(oeffner, {datei});
  if (!vorgang->waitForStarted(geduld_)) return kFehlgeschlagen;
  if (!vorgang->waitForFinished(geduld_)) {
    laufenLassen(std::move(vorgang));
    return kGestartet;
  }
  const int ende = vorgang->exitStatus() == QProcess::NormalExit ? vorgang->exitCode() : kFehlgeschlagen;
  if (ende == 0) return kGestartet;
  if (ende == kKeinMittel || !hatAnwendung(datei, geduld_)) return kKeineAnwendung;
  return ende < kKeineAnwendung ? ende : kFehlgeschlagen;
}

Dateifehler EchteAnwendungen::starten(const QString& programm, const QString& argument) {
  const QFileInfo info(programm);
  if (!info.isFile()) return dateifehlerMitNummer(Dateifehlernummer::DateiNichtGefunden);
  if (!info.isExecutable()) return dateifehlerMitNummer(Dateifehlernummer::ZugriffVerweigert);
  QProcess vorgang;
  loesen(vorgang);
  vorgang.setProgram(info.absoluteFilePath());
  vorgang.setArguments({argument});
  return vorgang.startDetached() ? Dateifehler() : dateifehlerMitNummer(Dateifehlernummer::UngueltigerAufruf);
}

QString EchteAnwendungen::schreibtisch() const {
  return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
}

}  // namespace pelvanto

#endif
