#ifndef _WIN32

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "seams/real/dateifehler.h"
#include "seams/real/echtes_dateisystem.h"

namespace pelvanto {

namespace {

class Beschreiber {
 public:
  Beschreiber(const QString& pfad, int art, mode_t rechte = 0)
      : nummer_(::open(QFile::encodeName(pfad).constData(), art | O_CLOEXEC, rechte)) {}
  ~Beschreiber() {
    if (nummer_ >= 0) {
      ::close(nummer_);
    }
  }
  Beschreiber(const Beschreiber&) = delete;
  Beschreiber& operator=(const Beschreiber&) = delete;

  bool offen() const { return nummer_ >= 0; }
  int nummer() const { return nummer_; }
  // Errors that were put off until the file is closed count too.
  bool schliessen() {
    const int nummer = nummer_;
    nummer_ = -1;
    return ::close(nummer) == 0;
  }

 private:
  int nummer_;
};

// errno as it is now. A missing file in a missing folder is a missing path.
Dateifehler letzterFehler(const QString& pfad) {
  const int systemfehler = errno;
  if (systemfehler == ENOENT && !QFileInfo(QFileInfo(pfad).absolutePath()).isDir()) {
    return dateifehlerMitNummer(Dateifehlernummer::PfadNichtGefunden);
  }
  return dateifehlerAusSystem(static_cast<unsigned long>(systemfehler));
}

bool allesSchreiben(int nummer, const QByteArray& inhalt) {
  qsizetype geschrieben = 0;
  while (geschrieben < inhalt.size()) {
    const ssize_t teil =
        ::write(nummer, inhalt.constData() + geschrieben, static_cast<size_t>(inhalt.size() - geschrieben));
    if (teil < 0 && errno != EINTR) {
      return false;
    }
    geschrieben += teil > 0 ? teil : 0;
  }
  return true;
}

constexpr mode_t neueRechte = 0666;

}  // namespace

Dateifehler EchtesDateisystem::oeffnenPruefen(const QString& pfad) const {
  if (istOrdner(pfad)) {
    return dateifehlerMitNummer(Dateifehlernummer::PfadZugriff);
  }
  return Beschreiber(pfad, O_RDONLY | O_NONBLOCK).offen() ? Dateifehler() : letzterFehler(pfad);
}

std::optional<Dateizeiten> EchtesDateisystem::zeiten(const QString& pfad) const {
  if (!oeffnenPruefen(pfad).ok()) {
    return std::nullopt;
  }
  const QFileInfo info(pfad);
  const auto ganzeSekunden = [](const QDateTime& zeit) { return zeit.addMSecs(-zeit.time().msec()); };
  Dateizeiten zeiten;
  zeiten.letztesSchreiben = ganzeSekunden(info.lastModified());
  zeiten.letzterZugriff = ganzeSekunden(info.lastRead());
  // Some file systems do not keep the time of birth.
  zeiten.erstellt = info.birthTime().isValid() ? ganzeSekunden(info.birthTime()) : zeiten.letztesSchreiben;
  return zeiten;
}

Dateifehler EchtesDateisystem::lesen(const QString& pfad, QByteArray& inhalt) const {
  Dateifehler geprueft = oeffnenPruefen(pfad);
  if (!geprueft.ok()) {
    return geprueft;
  }
  const Beschreiber datei(pfad, O_RDONLY);
  if (!datei.offen()) {
    return letzterFehler(pfad);
  }
  constexpr qsizetype block = 1 << 16;
  QByteArray gelesen;
  for (;;) {
    const qsizetype bisher = gelesen.size();
    gelesen.resize(bisher + block);
    const ssize_t teil = ::read(datei.nummer(), gelesen.data() + bisher, block);
    if (teil < 0 && errno != EINTR) {
      return letzterFehler(pfad);
    }
    gelesen.resize(bisher + (teil > 0 ? teil : 0));
    if (teil == 0) {
      break;
    }
  }
  inhalt = gelesen;
  return {};
}

Dateifehler EchtesDateisystem::anhaengen(const QString& pfad, const QByteArray& inhalt) {
  Beschreiber datei(pfad, O_WRONLY | O_APPEND | O_CREAT, neueRechte);
  const bool ok = datei.offen() && allesSchreiben(datei.nummer(), inhalt) && datei.schliessen();
  return ok ? Dateifehler() : letzterFehler(pfad);
}

Dateifehler EchtesDateisystem::schreiben(const QString& pfad, const QByteArray& inhalt) {
  Beschreiber datei(pfad, O_WRONLY | O_CREAT | O_TRUNC, neueRechte);
  const bool ok = datei.offen() && allesSchreiben(datei.nummer(), inhalt) && ::fsync(datei.nummer()) == 0 &&
                  datei.schliessen();
  return ok ? Dateifehler() : letzterFehler(pfad);
}

Dateifehler EchtesDateisystem::loeschen(const QString& pfad) {
  return ::unlink(QFile::encodeName(pfad).constData()) == 0 ? Dateifehler() : letzterFehler(pfad);
}

Dateifehler EchtesDateisystem::attributeLoeschen(const QString& pfad) {
  struct stat stand = {};
  const QByteArray name = QFile::encodeName(pfad);
  if (::stat(name.constData(), &stand) != 0) {
    return letzterFehler(pfad);
  }
  if ((stand.st_mode & S_IWUSR) != 0 || ::chmod(name.constData(), stand.st_mode | S_IWUSR) == 0) {
    return {};
  }
  return letzterFehler(pfad);
}

Dateifehler EchtesDateisystem::umbenennen(const QString& alt, const QString& neu) {
  const QByteArray alterName = QFile::encodeName(alt);
  const QByteArray neuerName = QFile::encodeName(neu);
#ifdef RENAME_NOREPLACE
  if (::renameat2(AT_FDCWD, alterName.constData(), AT_FDCWD, neuerName.constData(), RENAME_NOREPLACE) == 0) {
    return {};
  }
  if (errno != EINVAL && errno != ENOSYS) {
    return letzterFehler(alt);
  }
#endif
  // File systems without that call: a second name that must not exist yet, then the first one is removed.
  if (::link(alterName.constData(), neuerName.constData()) != 0) {
    return letzterFehler(alt);
  }
  if (::unlink(alterName.constData()) != 0) {
    Dateifehler fehler = letzterFehler(alt);
    ::unlink(neuerName.constData());
    return fehler;
  }
  return {};
}

Dateifehler EchtesDateisystem::ersetzen(const QString& neu, const QString& ziel) {
  // Through a link the file it leads to is replaced; the new file takes over the old one's rights.
  const QString kanonisch = QFileInfo(ziel).canonicalFilePath();
  const QByteArray zielName = QFile::encodeName(kanonisch.isEmpty() ? ziel : kanonisch);
  const QByteArray neuerName = QFile::encodeName(neu);
  struct stat stand = {};
  if (::stat(zielName.constData(), &stand) == 0) {
    ::chmod(neuerName.constData(), stand.st_mode & 07777);
  }
  return ::rename(neuerName.constData(), zielName.constData()) == 0 ? Dateifehler() : letzterFehler(neu);
}

Dateifehler EchtesDateisystem::ordnerSpuelen(const QString& ordner) {
  const Beschreiber verzeichnis(ordner, O_RDONLY | O_DIRECTORY);
  if (!verzeichnis.offen()) {
    return letzterFehler(ordner);
  }
  // EINVAL: a file system that cannot flush folders has nothing to flush.
  if (::fsync(verzeichnis.nummer()) == 0 || errno == EINVAL) {
    return {};
  }
  return letzterFehler(ordner);
}

}  // namespace pelvanto

#endif
