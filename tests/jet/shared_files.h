#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace jet::test {

inline std::vector<std::uint8_t> readAll(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// A database of the shared collection and the folder with what its tables should read like.
struct SharedFile {
  std::filesystem::path database, expected;
};

// Empty where the collection is not there.
inline std::vector<SharedFile> sharedFiles() {
  const std::filesystem::path root = PELVANTO_SOURCE_DIR "/../shared/testdaten";
  std::vector<SharedFile> files;
  const auto addAll = [&](const std::filesystem::path& databases, const std::filesystem::path& expected) {
    if (!std::filesystem::is_directory(databases)) return;
    for (const auto& entry : std::filesystem::directory_iterator(databases)) {
      if (entry.path().extension() != ".mdb") continue;
      files.push_back({entry.path(), expected / entry.path().stem()});
    }
  };
  addAll(root, root / "tabellen");
  addAll(root / "access", root / "access" / "erwartet");
  std::sort(files.begin(), files.end(),
            [](const SharedFile& left, const SharedFile& right) { return left.database < right.database; });
  return files;
}

}  // namespace jet::test
