#include "bench/crash.h"

#include <chrono>
#include <cstdio>

#include "crash/engine_scenarios.h"
#include "crash/page_scenario.h"

namespace bench {
namespace {

using jet::test::CrashCounts;
using jet::test::Scenario;

constexpr std::uint64_t fewestStates = 30'000;

class Totals {
 public:
  void add(const Scenario& scenario, const char* kind, const CrashCounts& counts) {
    std::printf("%-32s %-12s %8llu states, %7llu in the recovery, %7llu rolled back, %3llu in doubt\n",
                scenario.name.c_str(), kind, number(counts.states), number(counts.recoveryStates),
                number(counts.rolledBack), number(counts.inDoubt));
    std::fflush(stdout);  // it takes minutes
    for (const std::string& fault : counts.faults) std::printf("  BROKEN: %s\n", fault.c_str());
    states_ += counts.states;
    faults_ += counts.faults.size();
  }
  bool print() const {
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start_;
    std::printf("%llu states in %.1f s, %llu broken promises\n", number(states_), time.count(),
                number(faults_));
    return faults_ == 0 && states_ >= fewestStates;
  }

 private:
  static unsigned long long number(std::uint64_t value) { return value; }

  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::uint64_t states_ = 0, faults_ = 0;
};

}  // namespace

bool loseThePower() {
  Totals totals;
  const Scenario persons = jet::test::personsWithCounters(100);
  totals.add(persons, "power loss", jet::test::loseThePower(persons, {.seeds = 6, .recoverySample = 50}));
  std::vector<Scenario> scenarios = jet::test::engineScenarios();
  scenarios.push_back(jet::test::pageScenario());
  for (const Scenario& scenario : scenarios) {
    totals.add(scenario, "power loss",
               jet::test::loseThePower(scenario, {.seeds = 20, .recoverySample = 10}));
  }
  for (const Scenario& scenario : scenarios) {
    totals.add(scenario, "failures", jet::test::failEverything(scenario));
  }
  return totals.print();
}

}  // namespace bench
