#include <cstdio>
#include <fstream>
#include <random>
#include <string>

#include "bench/jet_copy.h"
#include "jet/sql/session.h"

// Does the engine's work of a payout on a file and prints the greatest memory this process had, in KiB.
int main(int count, char** arguments) {
  if (count != 2) return 2;
  jet::Database database(jet::systemFiles(), arguments[1]);
  jet::sql::Session session(database);
  jet::Row row;
  for (const char16_t* name : {u"Namensliste", u"PersonenGruppen"}) {
    for (jet::TableScan scan = database.table(name).scan(); scan.next(row);) {
    }
  }
  if (session.query(bench::queries::members).rowCount() == 0) return 1;
  std::mt19937 random(1);
  for (int i = 0; i < 20000; ++i) {
    const auto person = static_cast<std::int32_t>(random() % 20000 + 1);
    session.query(bench::queries::person(person));
    session.query(bench::queries::membership(person, static_cast<std::int32_t>(random() % 67 + 1)));
  }
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) std::printf("%ld\n", std::stol(line.substr(6)));
  }
  return 0;
}
