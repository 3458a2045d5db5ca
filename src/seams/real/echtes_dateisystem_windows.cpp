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
  Griff() = default;
  Griff(const QString& pfad, DWORD zugriff, DWORD teilen, DWORD weise) {
    oeffnen(pfad, zugriff, teilen, weise);
  }
  // The error of what was tried with it stays the last one.
  ~Griff() {
    if (offen()) {
      const DWORD fehler = ::GetLastError();
      ::CloseHandle(griff_);
      ::SetLastError(fehler);
    }
  }
  Griff(const Griff&) = delete;
  Griff& operator=(const Griff&) = delete;

  // At most once.
  bool oeffnen(const QString& pfad, DWORD zugriff, DWORD teilen, DWORD weise) {
    griff_ =
        ::CreateFileW(breit(pfad).c_str(), zugriff, teilen, nullptr, weise, FILE_ATTRIBUTE_NORMAL, nullptr);
    return offen();
  }

  static std::wstring breit(const QString& pfad) { return QDir::toNativeSeparators(pfad).toStdWString(); }
  bool offen() const { return griff_ != INVALID_HANDLE_VALUE; }
  HANDLE griff() const { return griff_; }

 private:
  HANDLE griff_ = INVALID_HANDLE_VALUE;
};

constexpr DWORD allesTeilen = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

Dateifehler letzterFehler() { return dateifehlerAusSystem(::GetLastError()); }

// What another program has in its hands for a moment: the contact program while it saves its settings, a
// virus scanner or an indexer, which open every new file.
bool vergeht(DWORD fehler) {
  return fehler == ERROR_SHARING_VIOLATION || fehler == ERROR_LOCK_VIOLATION || fehler == ERROR_ACCESS_DENIED;
}

constexpr int halbeSekunde = 25;   // attempts
constexpr int zehntelSekunde = 5;  // attempts

// Tries again for a while; `versuch` answers whether it has succeeded.
template <typename Versuch>
Dateifehler geduldig(Versuch versuch, int versuche = halbeSekunde) {
  constexpr DWORD pause = 20;  // ms
  for (int nummer = 1; !versuch(); ++nummer) {
    const DWORD fehler = ::GetLastError();
    if (!vergeht(fehler) || nummer >= versuche) {
      return dateifehlerAusSystem(fehler);
    }
    ::Sleep(pause);
  }
  return {};
}

constexpr qsizetype blockgroesse = 1 << 20;

bool allesLesen(HANDLE griff, QByteArray& inhalt) {
  QByteArray gelesen;
  for (DWORD teil = 1; teil != 0;) {
    const qsizetype bisher = gelesen.size();
    gelesen.resize(bisher + blockgroesse);
    teil = 0;
    if (::ReadFile(griff, gelesen.data() + bisher, static_cast<DWORD>(blockgroesse), &teil, nullptr) == 0) {
      return false;
    }
    gelesen.resize(bisher + static_cast<qsizetype>(teil));
  }
  inhalt = gelesen;
  return true;
}

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

Dateifehler verschieben(const QString& von, const QString& nach, DWORD weise) {
  const std::wstring quelle = Griff::breit(von), ziel = Griff::breit(nach);
  return geduldig([&] { return ::MoveFileExW(quelle.c_str(), ziel.c_str(), weise) != 0; });
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
  return geduldig([&] {
    const Griff datei(pfad, GENERIC_READ, allesTeilen, OPEN_EXISTING);
    return datei.offen() && allesLesen(datei.griff(), inhalt);
  });
}

// Only the opening is tried again: what was written in part must not be written twice. And not for long: the
// log, which has many lines, is written this way.
Dateifehler EchtesDateisystem::anhaengen(const QString& pfad, const QByteArray& inhalt) {
  Griff datei;
  Dateifehler fehler = geduldig(
      [&] { return datei.oeffnen(pfad, FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_ALWAYS); },
      zehntelSekunde);
  return !fehler.ok() || allesSchreiben(datei.griff(), inhalt) ? fehler : letzterFehler();
}

Dateifehler EchtesDateisystem::schreiben(const QString& pfad, const QByteArray& inhalt) {
  return geduldig([&] {
    const Griff datei(pfad, GENERIC_WRITE, 0, CREATE_ALWAYS);
    return datei.offen() && allesSchreiben(datei.griff(), inhalt) && ::FlushFileBuffers(datei.griff()) != 0;
  });
}

Dateifehler EchtesDateisystem::loeschen(const QString& pfad) {
  return geduldig([&] { return ::DeleteFileW(Griff::breit(pfad).c_str()) != 0; });
}

Dateifehler EchtesDateisystem::attributeLoeschen(const QString& pfad) {
  return geduldig(
      [&] { return ::SetFileAttributesW(Griff::breit(pfad).c_str(), FILE_ATTRIBUTE_NORMAL) != 0; });
}

Dateifehler EchtesDateisystem::umbenennen(const QString& alt, const QString& neu) {
  return verschieben(alt, neu, MOVEFILE_WRITE_THROUGH);
}

Dateifehler EchtesDateisystem::ersetzen(const QString& neu, const QString& ziel) {
  return verschieben(neu, ziel, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
}

Dateifehler EchtesDateisystem::ordnerSpuelen(const QString& ordner) {
  // Renaming is written through already, and a folder has no buffers of its own to flush.
  return istOrdner(ordner) ? Dateifehler() : dateifehlerMitNummer(Dateifehlernummer::DateiNichtGefunden);
}

}  // namespace pelvanto

#endif
