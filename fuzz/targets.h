#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace jet::fuzz {

using Input = std::span<const std::uint8_t>;

// One way into the engine with input that nobody has checked. Returning is fine, whatever the engine made of
// the input; any exception is a finding.
struct Target {
  std::string_view name;  // also its folder below fuzz/corpus and fuzz/findings
  void (*run)(Input input);
};

std::span<const Target> targets();

// The engine has broken a promise.
class Contradiction : public std::logic_error {
 public:
  using std::logic_error::logic_error;
};

inline void require(bool holds, const char* promise) {
  if (!holds) throw Contradiction(std::string("broken promise: ") + promise);
}

// The single targets.
void runOpening(Input input);  // opening, catalog, definitions, properties
void runCheck(Input input);    // the check of a whole file, which never fails on damage
void runScan(Input input);     // every value of every row of a table, by scan and by row
void runIndex(Input input);    // every index of a table: walk and lookup
void runJournal(Input input);  // recovery with a journal, and a file as a crash may leave it
void runSql(Input input);      // a query
void runWrite(Input input);    // changes of rows in a file that may be damaged

}  // namespace jet::fuzz
