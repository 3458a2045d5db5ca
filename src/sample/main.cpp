#include <chrono>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <iostream>
#include <string>

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

int jahrAus(const std::string& text) {
  if (text.size() != 4 || text.find_first_not_of("0123456789") != std::string::npos) return 0;
  return std::stoi(text);
}

}  // namespace

// Prepares a sample program folder: pelvanto-beispiel FOLDER [yyyy]
int main(int argc, char** argv) {
  const int jahr = argc > 2 ? jahrAus(argv[2]) : diesesJahr();
  if (argc < 2 || argc > 3 || jahr < 1900) {
    std::cerr << "usage: pelvanto-beispiel FOLDER [yyyy]\n";
    return 2;
  }
  try {
    pelvanto::beispiel::beispielordnerAnlegen(argv[1], jahr, heute());
  } catch (const std::exception& fehler) {
    std::cerr << "pelvanto-beispiel: " << fehler.what() << '\n';
    return 1;
  }
  std::cout << "Sample association for " << jahr << " in " << argv[1] << '\n';
  return 0;
}
