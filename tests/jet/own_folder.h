#pragma once

#include <filesystem>
#include <string>
#include <unistd.h>

namespace jet::test {

// A folder for this run's test `name` alone, as folders are called where clerks work.
struct OwnFolder {
  explicit OwnFolder(const char* name) : path(std::filesystem::temp_directory_path() / u8"Höfe für 5 € ") {
    path += name;
    path += std::to_string(::getpid());
    std::filesystem::create_directory(path);
  }
  ~OwnFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  OwnFolder(const OwnFolder&) = delete;
  OwnFolder& operator=(const OwnFolder&) = delete;

  std::filesystem::path path;
};

}  // namespace jet::test
