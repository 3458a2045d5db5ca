#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <algorithm>
#include <string>
#include <utility>
#include <vector>
#include <windows.h>

#include "jet/error.h"
#include "jet/file.h"

namespace jet {
namespace {

[[noreturn]] void failWith(DWORD code, const char* action) {
  const std::string reason = std::string(action) + ": system error " + std::to_string(code);
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      throw Error(ErrorKind::FileNotFound, reason);
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
      throw Error(ErrorKind::AccessDenied, reason);
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      throw Error(ErrorKind::DiskFull, reason);
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
      throw Error(ErrorKind::Busy, reason);
    default:
      throw Error(ErrorKind::Io, reason);
  }
}

// A file handle that closes itself.
class Handle {
 public:
  explicit Handle(HANDLE handle = INVALID_HANDLE_VALUE) : handle_(handle) {}
  ~Handle() { close(); }
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  HANDLE get() const { return handle_; }
  bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  void close() {
    if (isOpen()) ::CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE));
  }

 private:
  HANDLE handle_;
};

// Beside all others, also those who write or rename.
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

Handle openExisting(const std::filesystem::path& path, DWORD access, DWORD share) {
  return Handle(::CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL | FILE_FLAG_RANDOM_ACCESS, nullptr));
}

// Whoever looks at every new file (a virus scanner) or still has a removed one open gets out of the way
// within moments. `attempt` answers whether it succeeded.
template <typename Attempt>
void patiently(const char* action, Attempt attempt) {
  constexpr int attempts = 100;
  for (int number = 1; !attempt(); ++number) {
    const DWORD code = ::GetLastError();
    const bool passes = code == ERROR_SHARING_VIOLATION || code == ERROR_ACCESS_DENIED;
    if (!passes || number == attempts) failWith(code, action);
    ::Sleep(20);
  }
}

OVERLAPPED placeAt(std::uint64_t offset) {
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  return place;
}

// Windows knows a file for one alone only from its opening on, so taking and giving back open it anew.
class WindowsFile : public File {
 public:
  WindowsFile(std::filesystem::path path, Handle handle)
      : path_(std::move(path)), handle_(std::move(handle)) {}

  std::uint64_t size() const override {
    LARGE_INTEGER size;
    if (::GetFileSizeEx(handle_.get(), &size) == 0) failWith(::GetLastError(), "asking for the size failed");
    return static_cast<std::uint64_t>(size.QuadPart);
  }

  std::int64_t lastWriteTime() const override {
    FILETIME time;
    if (::GetFileTime(handle_.get(), nullptr, nullptr, &time) == 0) return 0;
    const std::uint64_t hundredNanoseconds = std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
    // From 1970 on, as otherwise nanoseconds would not fit.
    return (static_cast<std::int64_t>(hundredNanoseconds) - 116'444'736'000'000'000) * 100;
  }

  void read(std::uint64_t offset, std::span<std::uint8_t> target) const override {
    while (!target.empty()) {
      OVERLAPPED place = placeAt(offset);
      const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(target.size(), 1u << 30));
      DWORD count = 0;
      if (::ReadFile(handle_.get(), target.data(), wanted, &count, &place) == 0) {
        const DWORD code = ::GetLastError();
        if (code == ERROR_HANDLE_EOF) throw Error(ErrorKind::Truncated, "the file ends early");
        failWith(code, "reading failed");
      }
      if (count == 0) throw Error(ErrorKind::Truncated, "the file ends early");
      target = target.subspan(count);
      offset += count;
    }
  }

  void acquire() override {
    handle_.close();
    Handle alone = openExisting(path_, GENERIC_READ | GENERIC_WRITE, 0);
    if (!alone.isOpen()) {
      const DWORD code = ::GetLastError();
      openForReading();
      failWith(code, "opening for writing failed");
    }
    handle_ = std::move(alone);
  }
  void release() noexcept override {
    handle_.close();
    openForReading();
  }

  void write(std::uint64_t offset, std::span<const std::uint8_t> content) override {
    // Not every file system fills a gap with zeros.
    if (const std::uint64_t end = size(); offset > end) fillWithZeros(end, offset);
    while (!content.empty()) {
      OVERLAPPED place = placeAt(offset);
      const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(content.size(), 1u << 30));
      DWORD count = 0;
      if (::WriteFile(handle_.get(), content.data(), wanted, &count, &place) == 0) {
        failWith(::GetLastError(), "writing failed");
      }
      content = content.subspan(count);
      offset += count;
    }
  }
  void resize(std::uint64_t size) override {
    if (const std::uint64_t end = this->size(); size > end) return fillWithZeros(end, size);
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    if (::SetFileInformationByHandle(handle_.get(), FileEndOfFileInfo, &end, sizeof end) == 0) {
      failWith(::GetLastError(), "changing the size failed");
    }
  }
  void flush() override {
    if (::FlushFileBuffers(handle_.get()) == 0) failWith(::GetLastError(), "flushing failed");
  }

 private:
  // Somebody may have the file for himself just now; a save takes moments.
  void openForReading() noexcept {
    constexpr int attempts = 100;
    for (int attempt = 0; attempt < attempts; ++attempt) {
      handle_ = openExisting(path_, GENERIC_READ, shareAll);
      if (handle_.isOpen() || ::GetLastError() != ERROR_SHARING_VIOLATION) return;
      ::Sleep(20);
    }
  }
  void fillWithZeros(std::uint64_t from, std::uint64_t to) {
    const std::vector<std::uint8_t> zeros(std::min<std::uint64_t>(to - from, 1u << 20));
    while (from < to) {
      const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(to - from, zeros.size()));
      write(from, std::span(zeros).first(count));
      from += count;
    }
  }

  std::filesystem::path path_;
  Handle handle_;
};

class WindowsFileSystem : public FileSystem {
 public:
  std::unique_ptr<File> openShared(const std::filesystem::path& path) override {
    Handle handle = openExisting(path, GENERIC_READ, shareAll);
    if (!handle.isOpen()) failWith(::GetLastError(), "opening failed");
    return std::make_unique<WindowsFile>(path, std::move(handle));
  }

  std::unique_ptr<File> create(const std::filesystem::path& path) override {
    Handle handle;
    patiently("creating failed", [&] {
      handle = Handle(::CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
      return handle.isOpen();
    });
    return std::make_unique<WindowsFile>(path, std::move(handle));
  }

  bool exists(const std::filesystem::path& path) const override {
    if (::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES) return true;
    const DWORD code = ::GetLastError();
    if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND) return false;
    failWith(code, "looking for a file failed");
  }

  std::filesystem::path canonical(const std::filesystem::path& path) const override {
    std::error_code ignored;
    std::filesystem::path result = std::filesystem::weakly_canonical(path, ignored);
    return result.empty() ? path.lexically_normal() : result;
  }

  void remove(const std::filesystem::path& path) override {
    patiently("removing failed", [&] { return ::DeleteFileW(path.c_str()) != 0; });
  }

  void rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    patiently("renaming failed",
              [&] { return ::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH) != 0; });
  }

  // A new name reaches the disk with the flush of its file, a new place with MOVEFILE_WRITE_THROUGH. There is
  // nothing for removed names: who relies on one here makes the file void first.
  void flushFolder(const std::filesystem::path&) override {}

  // Asked by trying: a shared lock is refused where somebody holds one for himself, and given back at once.
  // Reading would not tell, as behind the file's end there is nothing to read.
  bool isLocked(const std::filesystem::path& path, std::uint64_t offset,
                std::uint64_t length) const override {
    const Handle handle = openExisting(path, GENERIC_READ, shareAll);
    if (!handle.isOpen()) {
      const DWORD code = ::GetLastError();
      if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND) return false;
      if (code == ERROR_SHARING_VIOLATION) return true;  // somebody has the whole file
      failWith(code, "opening failed");
    }
    OVERLAPPED place = placeAt(offset);
    const DWORD low = static_cast<DWORD>(length), high = static_cast<DWORD>(length >> 32);
    if (::LockFileEx(handle.get(), LOCKFILE_FAIL_IMMEDIATELY, 0, low, high, &place) == 0) {
      const DWORD code = ::GetLastError();
      if (code == ERROR_LOCK_VIOLATION || code == ERROR_IO_PENDING) return true;
      failWith(code, "asking for locks failed");
    }
    ::UnlockFileEx(handle.get(), 0, low, high, &place);
    return false;
  }
};

}  // namespace

FileSystem& systemFiles() {
  static WindowsFileSystem files;
  return files;
}

}  // namespace jet

#endif
