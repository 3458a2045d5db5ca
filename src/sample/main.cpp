#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "sample/beispielordner.h"

namespace {

// Days since 1899-12-30 of the first day of the Unix time.
constexpr double unixBeginn = 25569;

double heute() {
  const auto jetzt = std::chrono::system_clock::now().time_since_epoch();
  return unixBeginn + std::chrono::duration<double>(jetzt).count() / 86400;
}

int diesesJahr() {
  const std::time_t jetzt = std::time(nullptr);
  const std::tm* ortszeit = std::localtime(&jetzt);
  return ortszeit == nullptr ? 1970 : 1900 + ortszeit->tm_year;
}

// Paths know the system's own way of writing texts, whatever an argument means.
using Argument = std::filesystem::path;

int jahrAus(const Argument& argument) {
  const std::u8string text = argument.u8string();
  if (text.size() != 4 || text.find_first_not_of(u8"0123456789") != std::u8string::npos) return 0;
  return std::stoi(std::string(text.begin(), text.end()));
}

int beispielSchreiben(const std::vector<Argument>& argumente) {
  const int jahr = argumente.size() > 1 ? jahrAus(argumente[1]) : diesesJahr();
  if (argumente.empty() || argumente.size() > 2 || jahr < 1900) {
    std::cerr << "usage: pelvanto-beispiel FOLDER [yyyy]\n";
    return 2;
  }
  try {
    pelvanto::beispiel::beispielordnerAnlegen(argumente[0], jahr, heute());
  } catch (const std::exception& fehler) {
    std::cerr << "pelvanto-beispiel: " << fehler.what() << '\n';
    return 1;
  }
  std::cout << "Sample association for " << jahr << " in " << argumente[0].string() << '\n';
  return 0;
}

}  // namespace

// Prepares a sample program folder: pelvanto-beispiel FOLDER [yyyy]
// On Windows only the wide arguments hold every character.
#ifdef _WIN32
int wmain(int argc, wchar_t** argv) { return beispielSchreiben({argv + std::min(argc, 1), argv + argc}); }
#else
int main(int argc, char** argv) { return beispielSchreiben({argv + std::min(argc, 1), argv + argc}); }
#endif
