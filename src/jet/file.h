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
  // False: another file stands at its path now. Systems that do not let that happen answer true.
  virtual bool isInPlace() const { return true; }
  // Nanoseconds of the last change, from an arbitrary but fixed start; 0 where it is unknown.
  virtual std::int64_t lastWriteTime() const = 0;
  // Fills `target` from `offset` on; reading beyond the end is Error(Truncated).
  virtual void read(std::uint64_t offset, std::span<std::uint8_t> target) const = 0;

  // Takes the file for this object alone, for writing: until `release` no other program, and no other object
  // of this one, has it open. Busy: somebody has; then this object stays open for reading as before.
  // AccessDenied: it may not be written.
  virtual void acquire() = 0;
  // Back to reading beside others. Never fails; a later `read` tells if the file is lost.
  virtual void release() noexcept = 0;

  // While acquired only. Writing behind the end grows the file; what lies between becomes zeros.
  virtual void write(std::uint64_t offset, std::span<const std::uint8_t> content) = 0;
  virtual void resize(std::uint64_t size) = 0;
  // Everything written so far is on the disk when this returns.
  virtual void flush() = 0;
};

// The engine's only way to the outside. Tests swap it: files in memory, files that fail, power that is lost.
class FileSystem {
 public:
  virtual ~FileSystem() = default;
  // Opens for reading beside other programs. A file that another program holds for itself is Error(Busy).
  virtual std::unique_ptr<File> openShared(const std::filesystem::path& path) = 0;
  // Makes a new, empty file, acquired. An existing one is Error(Io), untouched. Durable after `flush` and
  // `flushFolder`.
  virtual std::unique_ptr<File> create(const std::filesystem::path& path) = 0;
  virtual bool exists(const std::filesystem::path& path) const = 0;
  // One spelling for all paths that lead to the same file.
  virtual std::filesystem::path canonical(const std::filesystem::path& path) const {
    return path.lexically_normal();
  }
  // Durable after `flushFolder`.
  virtual void remove(const std::filesystem::path& path) = 0;
  // Never replaces: an existing `to` is Error(Io). Durable after `flushFolder`.
  virtual void rename(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
  // Makes names durable that were added to, changed in or removed from the folder of `file`.
  virtual void flushFolder(const std::filesystem::path& file) = 0;
  // Whether another program holds a lock on one of these bytes, which may lie behind the file's end. False
  // where there is no such file.
  virtual bool isLocked(const std::filesystem::path& path, std::uint64_t offset,
                        std::uint64_t length) const = 0;
};

// The system's own files.
FileSystem& systemFiles();

// Writes a new file as a whole; when this returns it is on the disk. An existing file is Error(Io),
// untouched; after a failure there is no file of that name.
void writeNewFile(FileSystem& files, const std::filesystem::path& path,
                  std::span<const std::uint8_t> content);

}  // namespace jet
