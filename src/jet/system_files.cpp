#ifndef _WIN32

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
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
  Descriptor& operator=(Descriptor&&) = delete;
  int get() const { return number_; }
  // Closes now; false if the system reports a failure.
  bool close() { return ::close(std::exchange(number_, -1)) == 0; }

 private:
  int number_;
};

class PosixFile : public File {
 public:
  explicit PosixFile(Descriptor descriptor) : descriptor_(std::move(descriptor)) {}

  std::uint64_t size() const override { return static_cast<std::uint64_t>(status().st_size); }
  std::int64_t lastWriteTime() const override {
    const struct stat now = status();
    return std::int64_t{now.st_mtim.tv_sec} * 1'000'000'000 + now.st_mtim.tv_nsec;
  }

  void read(std::uint64_t offset, std::span<std::uint8_t> target) const override {
    while (!target.empty()) {
      const ssize_t count =
          ::pread(descriptor_.get(), target.data(), target.size(), static_cast<off_t>(offset));
      if (count < 0) {
        if (errno == EINTR) continue;
        failWith(errno, "reading failed");
      }
      if (count == 0) throw Error(ErrorKind::Truncated, "the file ends early");
      target = target.subspan(static_cast<std::size_t>(count));
      offset += static_cast<std::uint64_t>(count);
    }
  }

 private:
  struct stat status() const {
    struct stat result {};
    if (::fstat(descriptor_.get(), &result) != 0) failWith(errno, "asking for the file's state failed");
    return result;
  }

  Descriptor descriptor_;
};

int openOrFail(const std::filesystem::path& path, int flags, const char* action) {
  int descriptor;
  do {
    descriptor = ::open(path.c_str(), flags | O_CLOEXEC, 0666);
  } while (descriptor < 0 && errno == EINTR);
  if (descriptor < 0) failWith(errno, action);
  return descriptor;
}

void writeAll(int descriptor, std::span<const std::uint8_t> content) {
  while (!content.empty()) {
    const ssize_t count = ::write(descriptor, content.data(), content.size());
    if (count < 0) {
      if (errno == EINTR) continue;
      failWith(errno, "writing failed");
    }
    content = content.subspan(static_cast<std::size_t>(count));
  }
}

// The new name itself has to reach the disk, too.
void flushFolder(const std::filesystem::path& file) {
  const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
  const Descriptor descriptor(openOrFail(folder, O_RDONLY | O_DIRECTORY, "opening the folder failed"));
  // Some file systems cannot flush folders; they say so with EINVAL.
  if (::fsync(descriptor.get()) != 0 && errno != EINVAL) failWith(errno, "flushing the folder failed");
}

class PosixFileSystem : public FileSystem {
 public:
  std::unique_ptr<File> openShared(const std::filesystem::path& path) override {
    Descriptor descriptor(openOrFail(path, O_RDONLY | O_NONBLOCK, "opening failed"));
    struct stat status {};
    if (::fstat(descriptor.get(), &status) != 0) failWith(errno, "asking for the file's state failed");
    if (!S_ISREG(status.st_mode)) throw Error(ErrorKind::Io, "opening failed: this is not a file");
    // Tells programs that want the file for themselves that it is being read. Systems without such locks
    // are not refused.
    if (::flock(descriptor.get(), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
      throw Error(ErrorKind::Busy, "another program holds the file for itself");
    }
    return std::make_unique<PosixFile>(std::move(descriptor));
  }

  void createFile(const std::filesystem::path& path, std::span<const std::uint8_t> content) override {
    Descriptor descriptor(openOrFail(path, O_WRONLY | O_CREAT | O_EXCL, "creating failed"));
    try {
      writeAll(descriptor.get(), content);
      if (::fsync(descriptor.get()) != 0) failWith(errno, "flushing failed");
      if (!descriptor.close()) failWith(errno, "closing failed");
      flushFolder(path);
    } catch (...) {
      ::unlink(path.c_str());
      throw;
    }
  }
};

}  // namespace

FileSystem& systemFiles() {
  static PosixFileSystem files;
  return files;
}

}  // namespace jet

#endif
