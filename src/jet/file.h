#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

namespace jet {

// A file as the engine sees it. All calls fail with `Error` (Io, Busy, AccessDenied, FileNotFound).
class File {
 public:
  virtual ~File() = default;
  virtual std::uint64_t size() const = 0;
  // Nanoseconds of the last change, from an arbitrary but fixed start; 0 where it is unknown.
  virtual std::int64_t lastWriteTime() const = 0;
  // Fills `target` from `offset` on; reading beyond the end is Error(Truncated).
  virtual void read(std::uint64_t offset, std::span<std::uint8_t> target) const = 0;
};

// The engine's only way to the outside. Tests swap it: files in memory, files that fail.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  // Opens for reading beside other programs; takes no lock over the data. A file that another program
  // holds for itself is Error(Busy).
  virtual std::unique_ptr<File> openShared(const std::filesystem::path& path) = 0;
  // Writes a new file as a whole and flushes it to the disk. An existing file is Error(Io), untouched.
  virtual void createFile(const std::filesystem::path& path, std::span<const std::uint8_t> content) = 0;
};

// The system's own files.
FileSystem& systemFiles();

}  // namespace jet
