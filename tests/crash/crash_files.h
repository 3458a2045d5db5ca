#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "jet/error.h"
#include "jet/file.h"

namespace jet::test {

struct StoredFile {
  std::vector<std::uint8_t> content;
  std::int64_t lastWriteTime = 0;
};
// What stands on a disk.
using Disk = std::map<std::filesystem::path, StoredFile>;

// What becomes of changes that nobody has flushed when the power goes: all of them are done, none is, or some
// are, in any combination, and of those some only in part (cut at any byte, or single sectors).
enum class Loss : std::uint8_t { Done, Lost, Torn };

// Something that changes a disk, or waits for it.
enum class Operation : std::uint8_t { Create, Write, Resize, Flush, Remove, Rename, FlushFolder };

// The operation with this number (from 1) fails, or it and all after it.
struct Failure {
  std::uint64_t at = 0;
  bool fromThenOn = false;
  ErrorKind kind = ErrorKind::Io;
  bool shortWrite = false;    // the first half of what was to be written is written all the same
  bool flushForgets = false;  // what a failed flush should have written never reaches the disk by itself
};

// Files in memory on a disk that can lose its power and fail. What programs see is the current state; what
// the disk holds follows with every flush: contents with the file's own, names with the folder's.
class CrashFiles : public FileSystem {
 public:
  // The files of a disk as it is found at the start.
  explicit CrashFiles(Disk disk = {});
  ~CrashFiles() override;

  // Called whenever an operation has reached the disk's queue and nothing more: a moment to lose the power.
  // `number` counts from 1. It must not use these files, but may ask for `afterPowerLoss`.
  std::function<void(std::uint64_t number, Operation operation, const std::filesystem::path& path)>
      onOperation;
  std::uint64_t operations() const { return operations_; }
  // The disk as it is found when the power goes now. The same seed gives the same disk.
  Disk afterPowerLoss(Loss loss, std::uint64_t seed = 0) const;
  // What programs see now: how things stand when only the program dies.
  Disk now() const { return afterPowerLoss(Loss::Done); }

  std::optional<Failure> failure;                               // of operations that change something
  std::optional<ErrorKind> openFails, readFails, acquireFails;  // every opening, reading, taking
  std::optional<ErrorKind> removeFails;                         // every removal
  // Another program's bytes, on the disk at once.
  void put(const std::filesystem::path& path, StoredFile file);

  std::unique_ptr<File> openShared(const std::filesystem::path& path) override;
  std::unique_ptr<File> create(const std::filesystem::path& path) override;
  bool exists(const std::filesystem::path& path) const override;
  void remove(const std::filesystem::path& path) override;
  void rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
  void flushFolder(const std::filesystem::path& file) override;
  bool isLocked(const std::filesystem::path&, std::uint64_t, std::uint64_t) const override { return false; }

 private:
  struct Content;  // of one file, under whatever name
  struct NameChange;
  class Handle;
  using Names = std::map<std::filesystem::path, std::shared_ptr<Content>>;

  bool isFailing() const;
  // The operation is on its way to the disk; true: it fails.
  bool announce(Operation operation, const std::filesystem::path& path);
  void failIf(bool failing) const;
  std::shared_ptr<Content> find(const std::filesystem::path& path) const;
  void changeName(Operation operation, const NameChange& change);
  static void applyTo(Names& names, const NameChange& change);

  std::uint64_t operations_ = 0;
  std::int64_t clock_ = 0;
  Names names_, durableNames_;
  std::vector<NameChange> pendingNames_;
};

}  // namespace jet::test
