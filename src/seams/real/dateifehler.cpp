#include "seams/real/dateifehler.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <cerrno>
#endif

namespace pelvanto {

namespace {

namespace nr = Dateifehlernummer;

#ifdef _WIN32
int nummerAusSystem(unsigned long systemfehler) {
  switch (systemfehler) {
    case ERROR_FILE_NOT_FOUND:
      return nr::DateiNichtGefunden;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
      return nr::DateinameUngueltig;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return nr::PfadNichtGefunden;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
      return nr::ZugriffVerweigert;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return nr::DateiExistiert;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return nr::DatentraegerVoll;
    case ERROR_WRITE_PROTECT:
    case ERROR_DIR_NOT_EMPTY:
      return nr::PfadZugriff;
    default:
      return nr::EingabeAusgabe;
  }
}
#else
int nummerAusSystem(unsigned long systemfehler) {
  switch (systemfehler) {
    case ENOENT:
      return nr::DateiNichtGefunden;
    case EILSEQ:
    case EINVAL:
    case ENAMETOOLONG:
      return nr::DateinameUngueltig;
    case ENOTDIR:
    case ELOOP:
      return nr::PfadNichtGefunden;
    case EACCES:
    case EPERM:
    case EBUSY:
    case ETXTBSY:
      return nr::ZugriffVerweigert;
    case EEXIST:
      return nr::DateiExistiert;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return nr::DatentraegerVoll;
    case EISDIR:
    case EROFS:
    case ENOTEMPTY:
      return nr::PfadZugriff;
    default:
      return nr::EingabeAusgabe;
  }
}
#endif

}  // namespace

Dateifehler dateifehlerMitNummer(int nummer) {
  switch (nummer) {
    case 0:
      return {};
    case nr::UngueltigerAufruf:
      return {nummer, QStringLiteral("Das Programm kann auf diesem Computer nicht gestartet werden")};
    case nr::DateinameUngueltig:
      return {nummer, QStringLiteral("Dateiname ungültig oder zu lang")};
    case nr::DateiNichtGefunden:
      return {nummer, QStringLiteral("Datei nicht gefunden")};
    case nr::EingabeAusgabe:
      return {nummer, QStringLiteral("Ein-/Ausgabefehler des Geräts")};
    case nr::DateiExistiert:
      return {nummer, QStringLiteral("Datei existiert bereits")};
    case nr::DatentraegerVoll:
      return {nummer, QStringLiteral("Datenträger voll")};
    case nr::ZugriffVerweigert:
      return {nummer, QStringLiteral("Zugriff verweigert")};
    case nr::PfadZugriff:
      return {nummer, QStringLiteral("Fehler beim Zugriff auf Pfad oder Datei")};
    case nr::PfadNichtGefunden:
      return {nummer, QStringLiteral("Pfad nicht gefunden")};
    default:
      return {nummer, QStringLiteral("Dateifehler")};
  }
}

Dateifehler dateifehlerAusSystem(unsigned long systemfehler) {
  return dateifehlerMitNummer(nummerAusSystem(systemfehler));
}

}  // namespace pelvanto
