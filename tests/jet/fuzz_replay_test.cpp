#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <iterator>
#include <vector>

#include "fuzz/patched_file.h"
#include "fuzz/targets.h"
#include "jet/check.h"

namespace jet::fuzz {
namespace {

using Files = std::vector<std::filesystem::path>;

Files filesIn(const std::filesystem::path& folder) {
  Files files;
  if (!std::filesystem::is_directory(folder)) return files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) files.push_back(entry.path());
  std::ranges::sort(files);
  return files;
}

void replay(const Target& target, const std::filesystem::path& path) {
  constexpr auto longest = std::chrono::seconds(2);
  std::ifstream file(path, std::ios::binary);
  const std::vector<char> content{std::istreambuf_iterator<char>(file), {}};
  const auto start = std::chrono::steady_clock::now();
  EXPECT_NO_THROW(target.run({reinterpret_cast<const std::uint8_t*>(content.data()), content.size()}))
      << path;
  EXPECT_LT(std::chrono::steady_clock::now() - start, longest) << path;
}

// Else most inputs would only ever meet the refusal of a broken file.
TEST(FuzzReplay, TheFilesThatInputsChangeAreSound) {
  for (const Base base : {Base::Worn, Base::Jet3}) {
    InputReader nothing({});
    Database database(patchedFile(base, nothing), fileName);
    const CheckReport report = check(database);
    EXPECT_EQ(report.errors, std::vector<std::string>());
    EXPECT_GE(report.rows, 8u);
    EXPECT_GE(report.indexEntries, 8u);
  }
}

// What fuzzing has kept, and every fault that it ever found.
TEST(FuzzReplay, KeptInputsAndFindings) {
  const std::filesystem::path folder = PELVANTO_SOURCE_DIR "/fuzz";
  for (const Target& target : targets()) {
    const Files kept = filesIn(folder / "corpus" / target.name),
                found = filesIn(folder / "findings" / target.name);
    EXPECT_FALSE(kept.empty()) << target.name;
    for (const auto& path : kept) replay(target, path);
    for (const auto& path : found) replay(target, path);
    std::cout << target.name << ": " << kept.size() << " inputs, " << found.size() << " findings\n";
  }
}

}  // namespace
}  // namespace jet::fuzz
