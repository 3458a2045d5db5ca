#include "jet/users_file.h"

#include <algorithm>

namespace jet {
namespace {

// User n (1 to 255) holds the byte at 0x10000000 + n, far behind the file's end.
constexpr std::uint64_t firstUserByte = 0x1000'0001, userBytes = 255;

using Name = std::filesystem::path::string_type;

// File names of this kind are plain letters; others stay as they are.
Name inCase(Name name, char first, char last, int distance) {
  std::ranges::transform(name, name.begin(), [&](Name::value_type letter) {
    const bool changes = letter >= Name::value_type(first) && letter <= Name::value_type(last);
    return changes ? Name::value_type(letter + distance) : letter;
  });
  return name;
}

}  // namespace

bool hasUsers(const FileSystem& files, const std::filesystem::path& database) {
  // The file may have been made on a system that does not tell upper from lower case, by a user who wrote the
  // name in his own way.
  const Name name = database.stem().native();
  const auto isHeld = [&](const Name& stem, const char* extension) {
    std::filesystem::path file = database.parent_path() / stem;
    file += extension;
    return files.isLocked(file, firstUserByte, userBytes);
  };
  return std::ranges::any_of(
      std::initializer_list<Name>{name, inCase(name, 'A', 'Z', 'a' - 'A'), inCase(name, 'a', 'z', 'A' - 'a')},
      [&](const Name& stem) { return isHeld(stem, ".ldb") || isHeld(stem, ".LDB"); });
}

}  // namespace jet
