#pragma once

#include <cstdint>
#include <filesystem>
#include <gtest/gtest.h>
#include <vector>

#include "jet/error.h"
#include "jet/file.h"
#include "jet/own_folder.h"

namespace jet::test {

// The system's own files.
class SystemFiles : public testing::Test {
 protected:
  std::filesystem::path make(const char* name, std::size_t size, std::uint8_t byte = 0x4D) {
    writeNewFile(systemFiles(), folder_ / name, std::vector<std::uint8_t>(size, byte));
    return folder_ / name;
  }
  template <typename Action>
  static ErrorKind failureOf(Action action) {
    try {
      action();
    } catch (const Error& error) {
      return error.kind();
    }
    ADD_FAILURE() << "nothing failed";
    return ErrorKind::Sql;
  }
  static ErrorKind openingOf(const std::filesystem::path& path) {
    return failureOf([&] { systemFiles().openShared(path); });
  }

  const OwnFolder own_{"files"};
  const std::filesystem::path& folder_ = own_.path;
};

}  // namespace jet::test
