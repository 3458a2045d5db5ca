#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <span>
#include <string>
#include <unistd.h>

namespace jet::test {

// What an independent reader, mdbtools, makes of our files.
class ForeignReader : public ::testing::Test {
 protected:
  void SetUp() override {
    if (std::system("command -v mdb-export >/dev/null 2>&1") != 0)
      GTEST_SKIP() << "mdbtools are not installed";
    path_ =
        std::filesystem::temp_directory_path() / ("pelvanto-foreign-" + std::to_string(getpid()) + ".mdb");
  }
  void TearDown() override { std::filesystem::remove(path_); }

  void store(std::span<const std::uint8_t> content) {
    std::ofstream(path_, std::ios::binary)
        .write(reinterpret_cast<const char*>(content.data()), static_cast<std::streamsize>(content.size()));
  }
  std::string output(const std::string& program, const std::string& options) {
    const std::string command = program + " " + path_.string() + " " + options + " 2>&1";
    std::string text;
    FILE* pipe = popen(command.c_str(), "r");
    for (int byte = std::fgetc(pipe); byte != EOF; byte = std::fgetc(pipe))
      text.push_back(static_cast<char>(byte));
    pclose(pipe);
    return text;
  }

  std::filesystem::path path_;
};

}  // namespace jet::test
