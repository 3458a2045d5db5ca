#ifdef _WIN32

#include "jet/windows_file.h"

#include <algorithm>
#include <vector>

#include "jet/error.h"

namespace jet::windows {

WindowsFile::WindowsFile(std::filesystem::path path, Handle handle)
    : path_(std::move(path)), handle_(std::move(handle)), identity_(identityOf(handle_)) {}

// Until the next `acquire`, or until it is opened anew, nothing can be read.
void WindowsFile::requireOpen() const {
  if (!handle_.isOpen()) throw Error(ErrorKind::Busy, "another program has taken or replaced the file");
}

std::uint64_t WindowsFile::size() const {
  requireOpen();
  LARGE_INTEGER size;
  if (::GetFileSizeEx(handle_.get(), &size) == 0) failWith(::GetLastError(), "asking for the size failed");
  return static_cast<std::uint64_t>(size.QuadPart);
}

// Others may rename or remove a file that is read here, and put another one in its place.
bool WindowsFile::isInPlace() const {
  const Handle there = openExisting(path_, FILE_READ_ATTRIBUTES, shareAll);
  return handle_.isOpen() && there.isOpen() && identityOf(there) == identity_;
}

std::int64_t WindowsFile::lastWriteTime() const {
  FILETIME time;
  if (::GetFileTime(handle_.get(), nullptr, nullptr, &time) == 0) return 0;
  const std::uint64_t hundredNanoseconds = std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
  // From 1970 on, as otherwise nanoseconds would not fit.
  return (static_cast<std::int64_t>(hundredNanoseconds) - 116'444'736'000'000'000) * 100;
}

void WindowsFile::read(std::uint64_t offset, std::span<std::uint8_t> target) const {
  requireOpen();
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

// May be another file than before: whoever takes a file looks what is in it now.
void WindowsFile::acquire() {
  handle_.close();
  Handle alone = openExisting(path_, GENERIC_READ | GENERIC_WRITE, 0);
  if (!alone.isOpen()) {
    const DWORD code = ::GetLastError();
    openForReading();
    failWith(code, "opening for writing failed");
  }
  handle_ = std::move(alone);
  identity_ = identityOf(handle_);
}

void WindowsFile::release() noexcept {
  handle_.close();
  openForReading();
}

void WindowsFile::write(std::uint64_t offset, std::span<const std::uint8_t> content) {
  // Not every file system fills a gap with zeros.
  if (const std::uint64_t end = size(); offset > end) fillWithZeros(end, offset);
  while (!content.empty()) {
    OVERLAPPED place = placeAt(offset);
    const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(content.size(), 1u << 30));
    DWORD count = 0;
    if (::WriteFile(handle_.get(), content.data(), wanted, &count, &place) == 0) {
      failWith(::GetLastError(), "writing failed");
    }
    if (count == 0) throw Error(ErrorKind::Io, "writing failed: nothing more is taken");
    content = content.subspan(count);
    offset += count;
  }
}

void WindowsFile::resize(std::uint64_t size) {
  if (const std::uint64_t end = this->size(); size > end) return fillWithZeros(end, size);
  FILE_END_OF_FILE_INFO end{};
  end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
  if (::SetFileInformationByHandle(handle_.get(), FileEndOfFileInfo, &end, sizeof end) == 0) {
    failWith(::GetLastError(), "changing the size failed");
  }
}

void WindowsFile::flush() {
  if (::FlushFileBuffers(handle_.get()) == 0) failWith(::GetLastError(), "flushing failed");
}

// Somebody may have the file for himself just now; a save takes moments. A file that has come into its place
// in between is not read as if it were the one whose pages are known.
void WindowsFile::openForReading() noexcept {
  constexpr int attempts = 100;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    handle_ = openExisting(path_, GENERIC_READ, shareAll);
    if (handle_.isOpen() || ::GetLastError() != ERROR_SHARING_VIOLATION) break;
    ::Sleep(20);
  }
  if (identityOf(handle_) != identity_) handle_.close();
}

void WindowsFile::fillWithZeros(std::uint64_t from, std::uint64_t to) {
  const std::vector<std::uint8_t> zeros(std::min<std::uint64_t>(to - from, 1u << 20));
  while (from < to) {
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(to - from, zeros.size()));
    write(from, std::span(zeros).first(count));
    from += count;
  }
}

}  // namespace jet::windows

#endif
