#pragma once

#include <chrono>
#include <filesystem>
#include <string>

namespace jet::test {

// Lets the saving program run on `file` for a while and kills it. Returns what it had written until then. On
// Windows, where a program may take long to start, the while begins with its first report.
std::string outputUntilKilled(const std::filesystem::path& file, std::chrono::microseconds delay);

}  // namespace jet::test
