#include "seams/real/echtes_dateisystem.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "seams/real/dateifehler.h"

namespace pelvanto {

// What Qt answers the same way on every system. The rest is written for each system in a file of its own.

bool EchtesDateisystem::existiert(const QString& pfad) const {
  return !pfad.isEmpty() && QFileInfo::exists(pfad);
}

bool EchtesDateisystem::istOrdner(const QString& pfad) const {
  return !pfad.isEmpty() && QFileInfo(pfad).isDir();
}

std::optional<qint64> EchtesDateisystem::groesse(const QString& pfad) const {
  const QFileInfo info(pfad);
  if (!info.exists() || info.isDir()) {
    return std::nullopt;
  }
  return info.size();
}

QStringList EchtesDateisystem::namen(const QString& ordner) const {
  return QDir(ordner).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System,
                                QDir::Name);
}

Dateifehler EchtesDateisystem::ordnerAnlegen(const QString& ordner) {
  if (existiert(ordner)) {
    return dateifehlerMitNummer(Dateifehlernummer::PfadZugriff);
  }
  if (QDir().mkdir(ordner)) {
    return {};
  }
  const bool elternDa = QFileInfo(QFileInfo(ordner).absolutePath()).isDir();
  return dateifehlerMitNummer(elternDa ? Dateifehlernummer::ZugriffVerweigert
                                       : Dateifehlernummer::PfadNichtGefunden);
}

Dateifehler EchtesDateisystem::kopieren(const QString& quelle, const QString& ziel) {
  QByteArray inhalt;
  Dateifehler gelesen = lesen(quelle, inhalt);
  if (!gelesen.ok()) {
    return gelesen;
  }
  const bool neu = !existiert(ziel);
  Dateifehler geschrieben = schreiben(ziel, inhalt);
  if (!geschrieben.ok()) {
    if (neu) {
      loeschen(ziel);
    }
    return geschrieben;
  }
  // A copy keeps the time of its original; that this may fail does no harm.
  QFile kopie(ziel);
  if (kopie.open(QIODevice::ReadWrite | QIODevice::ExistingOnly)) {
    kopie.setFileTime(QFileInfo(quelle).lastModified(), QFileDevice::FileModificationTime);
  }
  return {};
}

}  // namespace pelvanto
