#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "crash/crash_files.h"
#include "jet/value.h"

namespace jet::test {

inline constexpr const char* databaseName = "folder/crash.mdb";

// Does the save with this number (from 0), on the database that it holds open.
using Saving = std::function<void(std::size_t)>;

// A run of saves.
struct Scenario {
  std::string name;
  Bytes database;  // at the start
  std::size_t saves = 0;
  std::function<Saving(FileSystem&)> open;
  // What has to be as before or after a save, as text; starts with "damaged" if something is wrong with it.
  std::function<std::string(const Bytes&)> content;
};

// A run that saves as often as it likes. A save is over when its journal is removed.
struct FreeRun {
  std::string name;
  Bytes database;  // at the start
  std::function<void(FileSystem&)> play;
  std::function<std::string(const Bytes&)> content;  // as in Scenario
};

// The file after so many saves without a crash.
Bytes imageAfter(const Scenario& scenario, std::size_t saves);

struct CrashCounts {
  std::uint64_t states = 0;          // disks that were opened again
  std::uint64_t recoveryStates = 0;  // of them: the power was lost again while it was being recovered
  std::uint64_t rolledBack = 0;      // a journal was found and applied
  std::uint64_t inDoubt = 0;         // failed saves that were done all the same
  std::vector<std::string> faults;   // each one a broken promise
};

struct CrashPlan {
  std::uint64_t seeds = 1;           // torn disks per operation
  std::uint64_t recoverySample = 7;  // every so many states: the power is lost at every step of the recovery
};

// The power is lost at every operation of the run, with every kind of loss.
CrashCounts loseThePower(const Scenario& scenario, const CrashPlan& plan);
CrashCounts loseThePower(const FreeRun& run, const CrashPlan& plan);
// Every operation of the run fails, once and from then on, in every way; then the power is lost as well, or
// the failed save is tried again.
CrashCounts failEverything(const Scenario& scenario);

}  // namespace jet::test
