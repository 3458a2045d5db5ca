#include "bench/report.h"

#include <algorithm>
#include <cstdio>
#include <limits>

namespace bench {
namespace {

std::string shortNumber(double number) {
  char text[32];
  const char* pattern = number >= 1000 ? "%.0f" : number >= 10 ? "%.1f" : "%.3f";
  std::snprintf(text, sizeof text, pattern, number);
  return text;
}

std::string optionalNumber(const std::optional<double>& number) { return number ? shortNumber(*number) : ""; }

}  // namespace

void Report::printHead() const {
  std::printf("%-52s %12s %-9s %-9s %12s %8s %8s %8s  %s\n", "measurement", "ours", "", "beside", "theirs",
              "ratio", "aim", "floor", "verdict");
}

void Report::add(const Measurement& measurement) {
  const bool compared = !measurement.beside.empty();
  const double ratio = compared ? measurement.value / measurement.besideValue : 0;
  const double judged = compared ? ratio : measurement.value;
  const auto reached = [&](const std::optional<double>& bar) {
    return !bar || (measurement.lessIsBetter ? judged <= *bar : judged >= *bar);
  };
  const char* verdict = "";
  if (!reached(measurement.floor)) {
    verdict = "FLOOR MISSED";
    floorMissed_ = true;
  } else if (!reached(measurement.aim)) {
    verdict = "aim missed";
    aimMissed_ = true;
  } else if (measurement.aim) {
    verdict = "ok";
  }
  std::printf("%-52s %12s %-9s %-9s %12s %8s %8s %8s  %s\n", measurement.name.c_str(),
              shortNumber(measurement.value).c_str(), measurement.unit.c_str(), measurement.beside.c_str(),
              compared ? shortNumber(measurement.besideValue).c_str() : "",
              compared ? shortNumber(ratio).c_str() : "", optionalNumber(measurement.aim).c_str(),
              optionalNumber(measurement.floor).c_str(), verdict);
  std::fflush(stdout);
}

double seconds(const std::function<void()>& action) {
  const auto start = std::chrono::steady_clock::now();
  action();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

Duel duel(int rounds, const std::function<void()>& ours, const std::function<void()>& theirs) {
  Duel result{std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
  for (int round = 0; round < rounds; ++round) {
    result.ours = std::min(result.ours, seconds(ours));
    result.theirs = std::min(result.theirs, seconds(theirs));
  }
  return result;
}

double best(int rounds, const std::function<void()>& action) {
  double result = std::numeric_limits<double>::max();
  for (int round = 0; round < rounds; ++round) result = std::min(result, seconds(action));
  return result;
}

}  // namespace bench
