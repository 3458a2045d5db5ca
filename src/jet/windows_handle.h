#pragma once

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <cstdint>
#include <filesystem>
#include <utility>
#include <windows.h>

// What the engine's files on Windows are made of.
namespace jet::windows {

// Throws the `Error` that fits the system's error `code`.
[[noreturn]] void failWith(DWORD code, const char* action);

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

// Not open where it fails; the reason is the system's last error.
Handle openExisting(const std::filesystem::path& path, DWORD access, DWORD share, DWORD flags = 0);

// Tells one file from another, whatever their names. Zeros: it could not be asked.
struct Identity {
  std::uint32_t volume = 0;
  std::uint64_t number = 0;
  bool operator==(const Identity&) const = default;
};
Identity identityOf(const Handle& handle);

OVERLAPPED placeAt(std::uint64_t offset);

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

}  // namespace jet::windows

#endif
