#ifndef _WIN32

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include "seams/real/echte_anwendungen.h"

namespace pelvanto {

// The desktop's opener hands the file over and ends; one that stays has become the application itself.
int EchteAnwendungen::oeffnen(const QString& datei, int /*fensterart*/) {
  constexpr int kGeduldMillisekunden = 5000;
  constexpr int kNichtGefunden = 2;
  constexpr int kGestartet = 42;
  if (!QFileInfo::exists(datei)) return kNichtGefunden;
  const QString oeffner = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
  if (oeffner.isEmpty()) return kKeineAnwendung;
  auto* vorgang = new QProcess;
  QObject::connect(vorgang, &QProcess::finished, vorgang, &QObject::deleteLater);
  vorgang->start(oeffner, {datei});
  if (!vorgang->waitForFinished(kGeduldMillisekunden)) return kGestartet;
  switch (vorgang->exitCode()) {
    case 0:
      return kGestartet;
    case 3:  // xdg-open: no program that could do it
      return kKeineAnwendung;
    default:
      return vorgang->exitCode();
  }
}

Dateifehler EchteAnwendungen::starten(const QString& programm, const QString& argument) {
  if (!QFileInfo::exists(programm)) {
    return {Dateifehlernummer::DateiNichtGefunden, QStringLiteral("Datei nicht gefunden")};
  }
  if (QProcess::startDetached(programm, {argument})) return {};
  return {Dateifehlernummer::ZugriffVerweigert, QStringLiteral("Zugriff verweigert")};
}

QString EchteAnwendungen::schreibtisch() const {
  return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
}

}  // namespace pelvanto

#endif
