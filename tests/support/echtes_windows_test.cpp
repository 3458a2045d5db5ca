#ifdef _WIN32

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <chrono>
#include <gtest/gtest.h>
#include <thread>
#include <windows.h>

#include "common/ausgabe.h"
#include "common/fakes.h"
#include "seams/real/echte_anwendungen.h"
#include "seams/real/echtes_dateisystem.h"
#include "seams/real/echtes_gebietsschema.h"
#include "support/funktionen_fuer_ini.h"
#include "support/protokoll.h"

namespace pelvanto::test {
namespace {

namespace nr = Dateifehlernummer;
using namespace std::chrono_literals;

std::wstring breit(const QString& text) { return QDir::toNativeSeparators(text).toStdWString(); }

// Another program that has a file open for some time and shares it in no way, or only for reading and
// writing.
class AndererHalter {
 public:
  AndererHalter(const QString& pfad, DWORD teilen)
      : griff_(::CreateFileW(breit(pfad).c_str(), GENERIC_READ | GENERIC_WRITE, teilen, nullptr,
                             OPEN_EXISTING, 0, nullptr)) {
    EXPECT_NE(griff_, INVALID_HANDLE_VALUE);
  }
  ~AndererHalter() {
    if (laeuft_.joinable()) laeuft_.join();
    loslassen();
  }
  void loslassenNach(std::chrono::milliseconds dauer) {
    laeuft_ = std::thread([this, dauer] {
      std::this_thread::sleep_for(dauer);
      loslassen();
    });
  }

 private:
  void loslassen() {
    if (griff_ != INVALID_HANDLE_VALUE) ::CloseHandle(griff_);
    griff_ = INVALID_HANDLE_VALUE;
  }
  HANDLE griff_;
  std::thread laeuft_;
};

constexpr DWORD kOhneLoeschen = FILE_SHARE_READ | FILE_SHARE_WRITE;

class WindowsTest : public testing::Test {
 protected:
  WindowsTest() { EXPECT_TRUE(QDir().mkpath(pfad("Verein Ä €"))); }
  QString pfad(const QString& name) const { return ordner_.filePath(name); }
  QByteArray inhalt(const QString& name) const {
    QFile datei(pfad(name));
    return datei.open(QIODevice::ReadOnly) ? datei.readAll() : QByteArray("(fehlt)");
  }
  void anlegen(const QString& name, const QByteArray& bytes) {
    ASSERT_TRUE(dateien_.schreiben(pfad(name), bytes).ok());
  }
  // What a started program has left, once it is there.
  QByteArray spur(const QString& name) const {
    for (const QDeadlineTimer frist(20000); !QFile::exists(pfad(name)) && !frist.hasExpired();)
      std::this_thread::sleep_for(20ms);
    return inhalt(name);
  }

  QTemporaryDir ordner_;
  EchtesDateisystem dateien_;
  EchteAnwendungen anwendungen_;
};

TEST_F(WindowsTest, AMomentOfAnotherProgramIsWaitedForALongOneIsAnError) {
  const QString ziel = pfad("Verein Ä €/verbindo.ini");
  anlegen("Verein Ä €/verbindo.ini", "alt");
  anlegen("neu", "neu");
  QByteArray gelesen;
  {
    const AndererHalter allein(ziel, 0);
    EXPECT_EQ(dateien_.oeffnenPruefen(ziel).nummer, nr::ZugriffVerweigert);
    EXPECT_EQ(dateien_.zeiten(ziel), std::nullopt);
    EXPECT_EQ(dateien_.lesen(ziel, gelesen).nummer, nr::ZugriffVerweigert);
    EXPECT_EQ(dateien_.schreiben(ziel, "x").nummer, nr::ZugriffVerweigert);
    EXPECT_EQ(dateien_.anhaengen(ziel, "x").nummer, nr::ZugriffVerweigert);
  }
  {
    const AndererHalter teilt(ziel, kOhneLoeschen);
    EXPECT_TRUE(dateien_.lesen(ziel, gelesen).ok());
    EXPECT_EQ(dateien_.ersetzen(pfad("neu"), ziel).nummer, nr::ZugriffVerweigert);
    EXPECT_EQ(dateien_.loeschen(ziel).nummer, nr::ZugriffVerweigert);
  }
  EXPECT_EQ(inhalt("Verein Ä €/verbindo.ini"), "alt");
  {
    AndererHalter kurz(ziel, 0);
    kurz.loslassenNach(100ms);
    EXPECT_TRUE(dateien_.lesen(ziel, gelesen).ok());
    EXPECT_EQ(gelesen, "alt");
  }
  {
    AndererHalter kurz(ziel, kOhneLoeschen);
    kurz.loslassenNach(100ms);
    EXPECT_TRUE(dateien_.ersetzen(pfad("neu"), ziel).ok());
  }
  EXPECT_EQ(inhalt("Verein Ä €/verbindo.ini"), "neu");
  EXPECT_FALSE(QFile::exists(pfad("neu")));
}

TEST_F(WindowsTest, ReadOnlyAndHiddenFilesAreGivenFree) {
  anlegen("alt.csv", "x");
  ::SetFileAttributesW(breit(pfad("alt.csv")).c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
  EXPECT_EQ(dateien_.namen(ordner_.path()), QStringList({"Verein Ä €", "alt.csv"}));
  EXPECT_EQ(dateien_.loeschen(pfad("alt.csv")).nummer, nr::ZugriffVerweigert);
  EXPECT_TRUE(dateien_.attributeLoeschen(pfad("alt.csv")).ok());
  EXPECT_TRUE(dateien_.loeschen(pfad("alt.csv")).ok());
}

// The contact program uses Windows' own functions on the same file.
TEST_F(WindowsTest, SharesTheSettingsFileWithWindowsOwnFunctions) {
  const QString ini = QDir::toNativeSeparators(pfad("Verein Ä €/verbindo.ini"));
  anlegen("Verein Ä €/verbindo.ini", "[Programm]\r\nLand=\xD6sterreich\r\n; bleibt\r\n");
  FakeUhr uhr;
  Protokoll protokoll(dateien_, uhr, ordner_.path());
  FunktionenFürINI eigene(dateien_, protokoll, ini);
  const auto fremdes = [&](const wchar_t* abschnitt, const wchar_t* schluessel) {
    wchar_t text[100];
    ::GetPrivateProfileStringW(abschnitt, schluessel, L"(fehlt)", text, 100, breit(ini).c_str());
    return QString::fromWCharArray(text);
  };
  const auto fremdSpeichern = [&](const wchar_t* schluessel, const wchar_t* wert) {
    EXPECT_NE(::WritePrivateProfileStringW(L"Programm", schluessel, wert, breit(ini).c_str()), 0);
  };
  for (int runde = 1; runde <= 20; ++runde) {
    const QString zahl = QString::number(runde);
    eigene.INISpeichern("Auszahlungen", "EigenerName", "Mühle & Söhne " + zahl);
    fremdSpeichern(L"Stand", zahl.toStdWString().c_str());
    EXPECT_EQ(fremdes(L"Auszahlungen", L"EigenerName"), "Mühle & Söhne " + zahl);
    EXPECT_EQ(eigene.INILesen("Programm", "Stand", ""), zahl);
  }
  EXPECT_EQ(eigene.INILesen("Programm", "Land", ""), "Österreich");
  EXPECT_TRUE(inhalt("Verein Ä €/verbindo.ini").contains("; bleibt\r\n"));
  EXPECT_EQ(dateien_.namen(pfad("Verein Ä €")), QStringList("verbindo.ini"));
}

TEST_F(WindowsTest, OpensDocumentsAndTellsWhyNot) {
  static const HKEY kWo[] = {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE};  // wine looks into the second one only
  const std::wstring klasse = L"Software\\Classes\\.pelvantotest";
  const std::wstring befehl = L"Software\\Classes\\pelvantotest\\shell\\open\\command";
  const auto eintragen = [](const std::wstring& schluessel, const std::wstring& wert) {
    const auto bytes = static_cast<DWORD>((wert.size() + 1) * sizeof(wchar_t));
    for (const HKEY wo : kWo) ::RegSetKeyValueW(wo, schluessel.c_str(), nullptr, REG_SZ, wert.c_str(), bytes);
  };
  anlegen("Verein Ä €/Liste 1.pelvantotest", "a;b\r\n");
  anlegen("Verein Ä €/Liste 1.unbekannt4711", "a;b\r\n");
  EXPECT_EQ(anwendungen_.oeffnen(pfad("fehlt.csv"), 1), 2);
  EXPECT_EQ(anwendungen_.oeffnen(pfad("Verein Ä €/Liste 1.unbekannt4711"), 1), kKeineAnwendung);

  ASSERT_TRUE(QFile::copy(ZEUGE, pfad("Anwendung.exe")));
  eintragen(klasse, L"pelvantotest");
  eintragen(befehl, L"\"" + breit(pfad("Anwendung.exe")) + L"\" \"%1\"");
  EXPECT_GT(anwendungen_.oeffnen(pfad("Verein Ä €/Liste 1.pelvantotest"), 1), kOeffnenGelungenAb);
  const QByteArray wie = spur("Anwendung.exe.gestartet");
  EXPECT_TRUE(wie.contains("Verein Ä €\\Liste 1.pelvantotest")) << wie.toStdString();
  for (const HKEY wo : kWo) {
    ::RegDeleteTreeW(wo, klasse.c_str());
    ::RegDeleteTreeW(wo, L"Software\\Classes\\pelvantotest");
  }
}

TEST_F(WindowsTest, StartsTheContactProgramMinimisedWithTheFocus) {
  ASSERT_TRUE(QFile::copy(ZEUGE, pfad("Verein Ä €/Verbindo2.exe")));
  // A program that a blank in the path could be mistaken for.
  ASSERT_TRUE(QFile::copy(ZEUGE, pfad("Verein.exe")));
  EXPECT_TRUE(anwendungen_.starten(pfad("Verein Ä €/Verbindo2.exe"), "ID1234").ok());
  EXPECT_EQ(spur("Verein Ä €/Verbindo2.exe.gestartet"), "ID1234|2");  // 2: SW_SHOWMINIMIZED
  EXPECT_FALSE(QFile::exists(pfad("Verein.exe.gestartet")));

  EXPECT_EQ(anwendungen_.starten(pfad("fehlt.exe"), "ID1").nummer, nr::DateiNichtGefunden);
  anlegen("kaputt.exe", "kein Programm");
  EXPECT_EQ(anwendungen_.starten(pfad("kaputt.exe"), "ID1").nummer, nr::UngueltigerAufruf);
}

TEST_F(WindowsTest, FindsTheDesktopOfTheUser) {
  const QString desktop = anwendungen_.schreibtisch();
  EXPECT_TRUE(QDir(desktop).exists()) << desktop.toStdString();
  EXPECT_FALSE(desktop.contains('/'));
  EXPECT_TRUE(desktop.startsWith(QDir::toNativeSeparators(qEnvironmentVariable("USERPROFILE"))))
      << desktop.toStdString();
}

// Sets one of the user's settings for as long as it lives.
class Einstellung {
 public:
  Einstellung(LCTYPE welche, const wchar_t* wert) : welche_(welche) {
    ::GetLocaleInfoW(LOCALE_USER_DEFAULT, welche, vorher_, 80);
    EXPECT_NE(::SetLocaleInfoW(LOCALE_USER_DEFAULT, welche, wert), 0);
  }
  ~Einstellung() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, welche_, vorher_); }

 private:
  LCTYPE welche_;
  wchar_t vorher_[80] = {};
};

TEST_F(WindowsTest, TakesTheUsersOwnCharactersForNumbersAndAmounts) {
  const Einstellung dezimal(LOCALE_SDECIMAL, L","), gruppe(LOCALE_STHOUSAND, L"'"),
      zeichen(LOCALE_SCURRENCY, L"EUR"), geldDezimal(LOCALE_SMONDECIMALSEP, L","),
      geldGruppe(LOCALE_SMONTHOUSANDSEP, L"'"), hinten(LOCALE_ICURRENCY, L"3");
  const Zahlenzeichen eigene = EchtesGebietsschema().zahlenzeichen();
  EXPECT_EQ(eigene.dezimal, u',');
  EXPECT_EQ(eigene.gruppierung, u'\'');
  EXPECT_EQ(eigene.waehrung, "EUR");
  EXPECT_FALSE(eigene.waehrungVorne);
  EXPECT_TRUE(eigene.waehrungAbstand);
  {
    const Einstellung vorne(LOCALE_ICURRENCY, L"0");
    EXPECT_TRUE(EchtesGebietsschema().zahlenzeichen().waehrungVorne);
  }
  EXPECT_GT(EchtesGebietsschema().landesvorwahl(), 0);
}

}  // namespace
}  // namespace pelvanto::test

#endif
