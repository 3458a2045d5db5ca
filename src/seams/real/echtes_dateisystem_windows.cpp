#ifdef _WIN32

#include <QDir>

#include <string>
#include <windows.h>

#include "seams/real/dateifehler.h"
#include "seams/real/echtes_dateisystem.h"

namespace pelvanto {

namespace {

class Griff {
 public:
  Griff(const QString& pfad, DWORD zugriff, DWORD teilen, DWORD weise, DWORD art = FILE_ATTRIBUTE_NORMAL)
      : griff_(::CreateFileW(breit(pfad).c_str(), zugriff, teilen, nullptr, weise, art, nullptr)) {}
  ~Griff() {
    if (offen()) {
      ::CloseHandle(griff_);
    }
  }
  Griff(const Griff&) = delete;
  Griff& operator=(const Griff&) = delete;

  static std::wstring breit(const QString& pfad) { return QDir::toNativeSeparators(pfad).toStdWString(); }
  bool offen() const { return griff_ != INVALID_HANDLE_VALUE; }
  HANDLE griff() const { return griff_; }

 private:
  HANDLE griff_;
};

constexpr DWORD allesTeilen = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

Dateifehler letzterFehler() { return dateifehlerAusSystem(::GetLastError()); }

Dateifehler ausErgebnis(BOOL gelungen) { return gelungen != 0 ? Dateifehler() : letzterFehler(); }

constexpr qsizetype blockgroesse = 1 << 20;

bool allesSchreiben(HANDLE griff, const QByteArray& inhalt) {
  for (qsizetype stelle = 0; stelle < inhalt.size();) {
    const auto teil = static_cast<DWORD>(qMin(blockgroesse, inhalt.size() - stelle));
    DWORD geschrieben = 0;
    if (::WriteFile(griff, inhalt.constData() + stelle, teil, &geschrieben, nullptr) == 0) {
      return false;
    }
    stelle += geschrieben;
  }
  return true;
}

QDateTime ortszeit(const FILETIME& zeit) {
  FILETIME lokal = {};
  SYSTEMTIME teile = {};
  if (::FileTimeToLocalFileTime(&zeit, &lokal) == 0 || ::FileTimeToSystemTime(&lokal, &teile) == 0) {
    return {};
  }
  return {QDate(teile.wYear, teile.wMonth, teile.wDay), QTime(teile.wHour, teile.wMinute, teile.wSecond)};
}

}  // namespace

Dateifehler EchtesDateisystem::oeffnenPruefen(const QString& pfad) const {
  if (istOrdner(pfad)) {
    return dateifehlerMitNummer(Dateifehlernummer::PfadZugriff);
  }
  const Griff datei(pfad, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
  return datei.offen() ? Dateifehler() : letzterFehler();
}

std::optional<Dateizeiten> EchtesDateisystem::zeiten(const QString& pfad) const {
  const Griff datei(pfad, GENERIC_READ, 0, OPEN_EXISTING);
  FILETIME erstellt = {};
  FILETIME zugriff = {};
  FILETIME geschrieben = {};
  if (!datei.offen() || ::GetFileTime(datei.griff(), &erstellt, &zugriff, &geschrieben) == 0) {
    return std::nullopt;
  }
  return Dateizeiten{ortszeit(erstellt), ortszeit(zugriff), ortszeit(geschrieben)};
}

Dateifehler EchtesDateisystem::lesen(const QString& pfad, QByteArray& inhalt) const {
  if (istOrdner(pfad)) {
    return dateifehlerMitNummer(Dateifehlernummer::PfadZugriff);
  }
  const Griff datei(pfad, GENERIC_READ, allesTeilen, OPEN_EXISTING);
  if (!datei.offen()) {
    return letzterFehler();
  }
  QByteArray gelesen;
  for (;;) {
    const qsizetype bisher = gelesen.size();
    gelesen.resize(bisher + blockgroesse);
    DWORD teil = 0;
    const bool ok = ::ReadFile(datei.griff(), gelesen.data() + bisher, static_cast<DWORD>(blockgroesse),
                               &teil, nullptr) != 0;
    gelesen.resize(bisher + static_cast<qsizetype>(teil));
    if (!ok) {
      return letzterFehler();
    }
    if (teil == 0) {
      break;
    }
  }
  inhalt = gelesen;
  return {};
}

Dateifehler EchtesDateisystem::anhaengen(const QString& pfad, const QByteArray& inhalt) {
  const Griff datei(pfad, FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_ALWAYS);
  return datei.offen() && allesSchreiben(datei.griff(), inhalt) ? Dateifehler() : letzterFehler();
}

Dateifehler EchtesDateisystem::schreiben(const QString& pfad, const QByteArray& inhalt) {
  const Griff datei(pfad, GENERIC_WRITE, 0, CREATE_ALWAYS);
  const bool ok =
      datei.offen() && allesSchreiben(datei.griff(), inhalt) && ::FlushFileBuffers(datei.griff()) != 0;
  return ok ? Dateifehler() : letzterFehler();
}

Dateifehler EchtesDateisystem::loeschen(const QString& pfad) {
  return ausErgebnis(::DeleteFileW(Griff::breit(pfad).c_str()));
}

Dateifehler EchtesDateisystem::attributeLoeschen(const QString& pfad) {
  return ausErgebnis(::SetFileAttributesW(Griff::breit(pfad).c_str(), FILE_ATTRIBUTE_NORMAL));
}

Dateifehler EchtesDateisystem::umbenennen(const QString& alt, const QString& neu) {
  return ausErgebnis(
      ::MoveFileExW(Griff::breit(alt).c_str(), Griff::breit(neu).c_str(), MOVEFILE_WRITE_THROUGH));
}

Dateifehler EchtesDateisystem::ersetzen(const QString& neu, const QString& ziel) {
  return ausErgebnis(::MoveFileExW(Griff::breit(neu).c_str(), Griff::breit(ziel).c_str(),
                                   MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

Dateifehler EchtesDateisystem::ordnerSpuelen(const QString& ordner) {
  // Renaming is written through already, and a folder has no buffers of its own to flush.
  return istOrdner(ordner) ? Dateifehler() : dateifehlerMitNummer(Dateifehlernummer::PfadNichtGefunden);
}

}  // namespace pelvanto

#endif
