#ifndef _WIN32

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

#include "jet/error.h"
#include "jet/file.h"

namespace jet {
namespace {

[[noreturn]] void failWith(int code, const char* action) {
  const std::string reason = std::string(action) + ": " + std::generic_category().message(code);
  switch (code) {
    case ENOENT:
    case ENOTDIR:
      throw Error(ErrorKind::FileNotFound, reason);
    case EACCES:
    case EPERM:
    case EROFS:
      throw Error(ErrorKind::AccessDenied, reason);
    case ENOSPC:
    case EDQUOT:
      throw Error(ErrorKind::DiskFull, reason);
    case EBUSY:
    case ETXTBSY:
    case EWOULDBLOCK:
      throw Error(ErrorKind::Busy, reason);
    default:
      throw Error(ErrorKind::Io, reason);
  }
}

// A file descriptor that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  int get() const { return number_; }

 private:
  int number_;
};

int openOrFail(const std::filesystem::path& path, int flags, const char* action) {
  int descriptor;
  do {
    descriptor = ::open(path.c_str(), flags | O_CLOEXEC, 0666);
  } while (descriptor < 0 && errno == EINTR);
  if (descriptor < 0) failWith(errno, action);
  return descriptor;
}

struct stat statusOf(const Descriptor& descriptor) {
  struct stat result {};
  if (::fstat(descriptor.get(), &result) != 0) failWith(errno, "asking for the file's state failed");
  return result;
}

// Tells programs that want the file for themselves that it is in use, or takes it. Systems without such locks
// are not refused.
void lock(const Descriptor& descriptor, int kind) {
  if (::flock(descriptor.get(), kind | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    throw Error(ErrorKind::Busy, "another program holds the file for itself");
  }
}

// Reads through one descriptor with a shared lock. `acquire` gives that lock up for an exclusive one on a
// second descriptor, which may write: locks cannot be exchanged in one step.
class PosixFile : public File {
 public:
  PosixFile(std::filesystem::path path, Descriptor reader)
      : path_(std::move(path)), reader_(std::move(reader)) {}
  // A new file: one descriptor for both, nobody else knows it.
  PosixFile(std::filesystem::path path, Descriptor reader, Descriptor writer)
      : path_(std::move(path)), reader_(std::move(reader)), writer_(std::move(writer)) {}

  std::uint64_t size() const override { return static_cast<std::uint64_t>(statusOf(reader_).st_size); }
  std::int64_t lastWriteTime() const override {
    const struct stat now = statusOf(reader_);
    return std::int64_t{now.st_mtim.tv_sec} * 1'000'000'000 + now.st_mtim.tv_nsec;
  }

  void read(std::uint64_t offset, std::span<std::uint8_t> target) const override {
    while (!target.empty()) {
      const ssize_t count = ::pread(reader_.get(), target.data(), target.size(), static_cast<off_t>(offset));
      if (count < 0) {
        if (errno == EINTR) continue;
        failWith(errno, "reading failed");
      }
      if (count == 0) throw Error(ErrorKind::Truncated, "the file ends early");
      target = target.subspan(static_cast<std::size_t>(count));
      offset += static_cast<std::uint64_t>(count);
    }
  }

  bool isInPlace() const override {
    struct stat there {};
    if (::stat(path_.c_str(), &there) != 0) return false;
    const struct stat known = statusOf(reader_);
    return there.st_ino == known.st_ino && there.st_dev == known.st_dev;
  }

  void acquire() override {
    ::flock(reader_.get(), LOCK_UN);
    try {
      Descriptor writer(openOrFail(path_, O_RDWR | O_NONBLOCK, "opening for writing failed"));
      lock(writer, LOCK_EX);
      if (!isInPlace()) {
        throw Error(ErrorKind::Busy, "another program has put a new file in the place of this one");
      }
      writer_ = std::move(writer);
    } catch (...) {
      lockForReading();
      throw;
    }
  }
  void release() noexcept override {
    writer_.reset();
    lockForReading();
  }

  void write(std::uint64_t offset, std::span<const std::uint8_t> content) override {
    while (!content.empty()) {
      const ssize_t count =
          ::pwrite(writer_->get(), content.data(), content.size(), static_cast<off_t>(offset));
      if (count < 0) {
        if (errno == EINTR) continue;
        failWith(errno, "writing failed");
      }
      if (count == 0) throw Error(ErrorKind::Io, "writing failed: nothing more is taken");
      content = content.subspan(static_cast<std::size_t>(count));
      offset += static_cast<std::uint64_t>(count);
    }
  }
  void resize(std::uint64_t size) override {
    if (::ftruncate(writer_->get(), static_cast<off_t>(size)) != 0)
      failWith(errno, "changing the size failed");
  }
  void flush() override {
    if (::fsync(writer_->get()) != 0) failWith(errno, "flushing failed");
  }

 private:
  // Who takes the file between the two locks is waited for, as a save takes moments. Nobody waits for ever
  // for a program that hangs: its journal then tells the next reader that a save is under way.
  void lockForReading() noexcept {
    constexpr int attempts = 100;
    for (int attempt = 0; attempt < attempts; ++attempt) {
      if (::flock(reader_.get(), LOCK_SH | LOCK_NB) == 0) return;
      if (errno != EWOULDBLOCK && errno != EINTR) return;
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
  }

  std::filesystem::path path_;
  Descriptor reader_;
  std::optional<Descriptor> writer_;
};

class PosixFileSystem : public FileSystem {
 public:
  std::unique_ptr<File> openShared(const std::filesystem::path& path) override {
    Descriptor descriptor(openOrFail(path, O_RDONLY | O_NONBLOCK, "opening failed"));
    if (!S_ISREG(statusOf(descriptor).st_mode)) {
      throw Error(ErrorKind::Io, "opening failed: this is not a file");
    }
    lock(descriptor, LOCK_SH);
    return std::make_unique<PosixFile>(path, std::move(descriptor));
  }

  std::unique_ptr<File> create(const std::filesystem::path& path) override {
    Descriptor writer(openOrFail(path, O_RDWR | O_CREAT | O_EXCL, "creating failed"));
    lock(writer, LOCK_EX);
    Descriptor reader(openOrFail(path, O_RDONLY, "opening failed"));
    return std::make_unique<PosixFile>(path, std::move(reader), std::move(writer));
  }

  bool exists(const std::filesystem::path& path) const override {
    struct stat status {};
    if (::lstat(path.c_str(), &status) == 0) return true;
    if (errno == ENOENT || errno == ENOTDIR) return false;
    failWith(errno, "looking for a file failed");
  }

  std::filesystem::path canonical(const std::filesystem::path& path) const override {
    std::error_code ignored;
    std::filesystem::path result = std::filesystem::weakly_canonical(path, ignored);
    return result.empty() ? path.lexically_normal() : result;
  }

  void remove(const std::filesystem::path& path) override {
    if (::unlink(path.c_str()) != 0) failWith(errno, "removing failed");
  }

  void rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return;
    // Some file systems cannot rule a replacement out in one step.
    if (errno != EINVAL && errno != ENOSYS) failWith(errno, "renaming failed");
    if (exists(to)) failWith(EEXIST, "renaming failed");
    if (::rename(from.c_str(), to.c_str()) != 0) failWith(errno, "renaming failed");
  }

  void flushFolder(const std::filesystem::path& file) override {
    const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
    const Descriptor descriptor(openOrFail(folder, O_RDONLY | O_DIRECTORY, "opening the folder failed"));
    // Some file systems cannot flush folders; they say so with EINVAL.
    if (::fsync(descriptor.get()) != 0 && errno != EINVAL) failWith(errno, "flushing the folder failed");
  }

  bool isLocked(const std::filesystem::path& path, std::uint64_t offset,
                std::uint64_t length) const override {
    const int number = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (number < 0) {
      if (errno == ENOENT || errno == ENOTDIR) return false;
      failWith(errno, "opening failed");
    }
    const Descriptor descriptor(number);
    struct flock range {};
    range.l_type = F_WRLCK;
    range.l_whence = SEEK_SET;
    range.l_start = static_cast<off_t>(offset);
    range.l_len = static_cast<off_t>(length);
    // A file system without such locks has none.
    return ::fcntl(descriptor.get(), F_GETLK, &range) == 0 && range.l_type != F_UNLCK;
  }
};

}  // namespace

FileSystem& systemFiles() {
  static PosixFileSystem files;
  return files;
}

}  // namespace jet

#endif
