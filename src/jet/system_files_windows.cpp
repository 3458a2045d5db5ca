#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <algorithm>
#include <string>
#include <utility>
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
  explicit Handle(HANDLE handle) : handle_(handle) {}
  ~Handle() { close(); }
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  Handle& operator=(Handle&&) = delete;
  HANDLE get() const { return handle_; }
  void close() {
    if (handle_ != INVALID_HANDLE_VALUE) ::CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE));
  }

 private:
  HANDLE handle_;
};

class WindowsFile : public File {
 public:
  explicit WindowsFile(Handle handle) : handle_(std::move(handle)) {}

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
      OVERLAPPED place{};
      place.Offset = static_cast<DWORD>(offset);
      place.OffsetHigh = static_cast<DWORD>(offset >> 32);
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

 private:
  Handle handle_;
};

void writeAll(HANDLE handle, std::span<const std::uint8_t> content) {
  while (!content.empty()) {
    const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(content.size(), 1u << 30));
    DWORD count = 0;
    if (::WriteFile(handle, content.data(), wanted, &count, nullptr) == 0) {
      failWith(::GetLastError(), "writing failed");
    }
    content = content.subspan(count);
  }
}

class WindowsFileSystem : public FileSystem {
 public:
  std::unique_ptr<File> openShared(const std::filesystem::path& path) override {
    Handle handle(::CreateFileW(path.c_str(), GENERIC_READ,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_RANDOM_ACCESS, nullptr));
    if (handle.get() == INVALID_HANDLE_VALUE) failWith(::GetLastError(), "opening failed");
    return std::make_unique<WindowsFile>(std::move(handle));
  }

  void createFile(const std::filesystem::path& path, std::span<const std::uint8_t> content) override {
    Handle handle(
        ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (handle.get() == INVALID_HANDLE_VALUE) {
      const DWORD code = ::GetLastError();
      if (code == ERROR_FILE_EXISTS) throw Error(ErrorKind::Io, "creating failed: the file exists already");
      failWith(code, "creating failed");
    }
    try {
      writeAll(handle.get(), content);
      if (::FlushFileBuffers(handle.get()) == 0) failWith(::GetLastError(), "flushing failed");
    } catch (...) {
      handle.close();
      ::DeleteFileW(path.c_str());
      throw;
    }
  }
};

}  // namespace

FileSystem& systemFiles() {
  static WindowsFileSystem files;
  return files;
}

}  // namespace jet

#endif
