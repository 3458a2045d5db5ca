#include "crash/page_scenario.h"

#include <algorithm>

#include "jet/create/database_builder.h"
#include "jet/page_file.h"
#include "jet/transaction.h"

namespace jet::test {
namespace {

// No two saves leave a page with the same bytes, and none changes all of them.
void scribble(std::span<std::uint8_t> page, std::size_t save) {
  for (std::size_t i = 100; i < page.size(); i += 3) page[i] = static_cast<std::uint8_t>(page[i] + save + 1);
}

}  // namespace

Scenario pageScenario() {
  struct Step {
    std::vector<std::uint32_t> changed;
    std::size_t appended;
  };
  // Page 2 is a definition; pages 16 and 17 come into being in the second save.
  static const std::vector<Step> steps{{{7, 1, 2, 9, 14}, 0}, {{1, 5}, 2}, {{}, 1}, {{16, 3, 12}, 0}};
  Scenario scenario;
  scenario.name = "pages";
  scenario.database = create::DatabaseBuilder().finish();
  scenario.saves = steps.size();
  scenario.open = [](FileSystem& files) -> Saving {
    auto file = std::make_shared<PageFile>(files, databaseName, 1u << 20);
    return [file](std::size_t save) {
      Transaction transaction(*file);
      for (const std::uint32_t number : steps[save].changed) scribble(transaction.change(number, 0), save);
      for (std::size_t i = 0; i < steps[save].appended; ++i) {
        scribble(transaction.change(transaction.append(), 0), save + i);
      }
      transaction.commit();
    };
  };
  scenario.content = [](const Bytes& bytes) { return std::string(bytes.begin(), bytes.end()); };
  return scenario;
}

}  // namespace jet::test
