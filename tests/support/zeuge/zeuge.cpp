// Stands in for another program: writes beside itself how it was started.
#include <cstdio>
#include <string>
#include <windows.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR argumente, int zeigeart) {
  wchar_t eigener[MAX_PATH];
  ::GetModuleFileNameW(nullptr, eigener, MAX_PATH);
  const std::wstring ziel = std::wstring(eigener) + L".gestartet";
  const std::wstring wie = std::wstring(argumente) + L"|" + std::to_wstring(zeigeart);
  char text[1000];
  const int laenge = ::WideCharToMultiByte(CP_UTF8, 0, wie.data(), static_cast<int>(wie.size()), text,
                                           sizeof text, nullptr, nullptr);
  std::FILE* datei = ::_wfopen((ziel + L".neu").c_str(), L"wb");
  if (!datei) return 1;
  std::fwrite(text, 1, static_cast<std::size_t>(laenge), datei);
  std::fclose(datei);
  return ::MoveFileW((ziel + L".neu").c_str(), ziel.c_str()) ? 0 : 1;
}
