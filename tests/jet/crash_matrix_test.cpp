#include <cstdio>
#include <gtest/gtest.h>

#include "crash/engine_scenarios.h"
#include "crash/page_scenario.h"
#include "crash/scenario.h"
#include "jet/format.h"

namespace jet::test {
namespace {

void expectKept(const Scenario& scenario, const CrashCounts& counts) {
  std::printf("%s: %llu states, %llu of them in the recovery; %llu rolled back, %llu failed saves in doubt\n",
              scenario.name.c_str(), static_cast<unsigned long long>(counts.states),
              static_cast<unsigned long long>(counts.recoveryStates),
              static_cast<unsigned long long>(counts.rolledBack),
              static_cast<unsigned long long>(counts.inDoubt));
  for (const std::string& fault : counts.faults) ADD_FAILURE() << fault;
  EXPECT_GT(counts.states, 100u);
  EXPECT_GT(counts.rolledBack, 10u);
}

std::size_t pagesOfType(const Bytes& image, PageType type) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < image.size(); at += 4096)
    count += image[at] == static_cast<std::uint8_t>(type);
  return count;
}

TEST(CrashMatrix, TheScenariosDoWhatTheirNamesSay) {
  const Scenario splits = indexSplits();
  EXPECT_EQ(pagesOfType(splits.database, PageType::IndexNode), 0u);
  const Bytes split = imageAfter(splits, 24), emptied = imageAfter(splits, splits.saves);
  EXPECT_EQ(pagesOfType(split, PageType::IndexNode), 1u);
  EXPECT_LT(pagesOfType(emptied, PageType::IndexLeaf), pagesOfType(split, PageType::IndexLeaf));
  const Scenario memos = longMemos();
  EXPECT_GE(imageAfter(memos, 1).size(), memos.database.size() + 5 * 4096);
  const Scenario growth = fileGrowth();
  for (std::size_t saves = 1; saves <= growth.saves; ++saves) {
    EXPECT_GT(imageAfter(growth, saves).size(), imageAfter(growth, saves - 1).size() + 3 * 4096);
  }
}

TEST(CrashMatrix, RowsAreAsBeforeOrAsAfterASave) {
#ifdef __SANITIZE_ADDRESS__  // many times slower
  const std::vector<Scenario> scenarios{oneInsert(), personsWithCounters(3), longMemos()};
#else
  const std::vector<Scenario> scenarios = engineScenarios();
#endif
  for (const Scenario& scenario : scenarios) {
    expectKept(scenario, loseThePower(scenario, {.seeds = 2, .recoverySample = 25}));
  }
}

TEST(CrashMatrix, WhateverFailsRowsAreAsBeforeOrAsAfterASave) {
  for (const Scenario& scenario : {oneInsert(), personsWithCounters(2), longMemos()}) {
    expectKept(scenario, failEverything(scenario));
  }
}

TEST(CrashMatrix, PagesAreAsBeforeOrAsAfterASave) {
  const Scenario scenario = pageScenario();
  expectKept(scenario, loseThePower(scenario, {.seeds = 6, .recoverySample = 5}));
}

TEST(CrashMatrix, WhateverFailsPagesAreAsBeforeOrAsAfterASave) {
  const Scenario scenario = pageScenario();
  expectKept(scenario, failEverything(scenario));
}

}  // namespace
}  // namespace jet::test
