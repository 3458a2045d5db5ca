#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace bench {

// One line of the table.
struct Measurement {
  std::string name;
  double value = 0;
  std::string unit;
  std::string beside;                // what it is compared with: "SQLite", "mdbtools"; empty: nothing
  double besideValue = 0;            // in the same unit
  bool lessIsBetter = false;         // of `value`: times and sizes
  std::optional<double> aim, floor;  // of the ratio where there is a comparison, else of the value
};

class Report {
 public:
  // Prints the line at once, so that a long run shows where it is.
  void add(const Measurement& measurement);
  bool floorMissed() const { return floorMissed_; }
  bool aimMissed() const { return aimMissed_; }
  void printHead() const;

 private:
  bool floorMissed_ = false;
  bool aimMissed_ = false;
};

// Seconds of one call.
double seconds(const std::function<void()>& action);
// The best of several calls each, taken in turns, so that both meet the same state of the machine.
struct Duel {
  double ours = 0, theirs = 0;
};
Duel duel(int rounds, const std::function<void()>& ours, const std::function<void()>& theirs);
double best(int rounds, const std::function<void()>& action);

}  // namespace bench
