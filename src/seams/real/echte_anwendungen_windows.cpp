#ifdef _WIN32

#include <QApplication>
#include <QDir>
#include <QStandardPaths>
#include <QWidget>

#include <string>
#include <windows.h>

#include "seams/real/dateifehler.h"
#include "seams/real/echte_anwendungen.h"

namespace pelvanto {

namespace {

std::wstring breit(const QString& text) { return text.toStdWString(); }

HWND hauptfenster() {
  const QWidget* fenster = QApplication::activeWindow();
  return fenster != nullptr ? reinterpret_cast<HWND>(fenster->winId()) : nullptr;
}

}  // namespace

// The shell's answer is a number in the clothes of a handle.
int EchteAnwendungen::oeffnen(const QString& datei, int fensterart) {
  const HINSTANCE antwort = ::ShellExecuteW(
      hauptfenster(), L"open", breit(QDir::toNativeSeparators(datei)).c_str(), nullptr, nullptr, fensterart);
  return static_cast<int>(reinterpret_cast<INT_PTR>(antwort));
}

// The program by its full path, in quotes: no blank in it can make another program of it.
Dateifehler EchteAnwendungen::starten(const QString& programm, const QString& argument) {
  const QString pfad = QDir::toNativeSeparators(programm);
  std::wstring befehl = breit(u'"' + pfad + QStringLiteral("\" ") + argument);
  STARTUPINFOW anfang = {};
  anfang.cb = sizeof(anfang);
  anfang.dwFlags = STARTF_USESHOWWINDOW;
  anfang.wShowWindow = SW_SHOWMINIMIZED;
  PROCESS_INFORMATION vorgang = {};
  if (::CreateProcessW(breit(pfad).c_str(), befehl.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &anfang, &vorgang) != 0) {
    ::CloseHandle(vorgang.hThread);
    ::CloseHandle(vorgang.hProcess);
    return {};
  }
  const Dateifehler fehler = dateifehlerAusSystem(::GetLastError());
  return fehler.nummer == Dateifehlernummer::EingabeAusgabe
             ? dateifehlerMitNummer(Dateifehlernummer::UngueltigerAufruf)
             : fehler;
}

QString EchteAnwendungen::schreibtisch() const {
  return QDir::toNativeSeparators(QStandardPaths::writableLocation(QStandardPaths::DesktopLocation));
}

}  // namespace pelvanto

#endif
