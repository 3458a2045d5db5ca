#ifdef _WIN32

#include <algorithm>
#include <string>
#include <system_error>

#include "jet/windows_file.h"

namespace jet::windows {
namespace {

bool isAbsent(DWORD code) { return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND; }

// As the system itself calls an existing file or folder: one spelling, whatever letters, short names, mapped
// drives or links led to it. Empty where it does not say.
std::filesystem::path ownName(const std::filesystem::path& path) {
  const Handle handle = openExisting(path, FILE_READ_ATTRIBUTES, shareAll, FILE_FLAG_BACKUP_SEMANTICS);
  if (!handle.isOpen()) return {};
  std::wstring name(MAX_PATH, L'\0');
  DWORD length = ::GetFinalPathNameByHandleW(handle.get(), name.data(), MAX_PATH, 0);
  if (length > name.size()) {
    name.resize(length);
    length = ::GetFinalPathNameByHandleW(handle.get(), name.data(), length, 0);
  }
  name.resize(std::min<std::size_t>(length, name.size()));
  return name;
}

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

  // The name of a file that is removed but still open somewhere is neither there nor free.
  bool exists(const std::filesystem::path& path) const override {
    bool result = true;
    patiently("looking for a file failed", [&] {
      if (::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES) return true;
      const DWORD code = ::GetLastError();
      result = !isAbsent(code);
      return !result || code == ERROR_SHARING_VIOLATION;
    });
    return result;
  }

  std::filesystem::path canonical(const std::filesystem::path& path) const override {
    std::filesystem::path result = ownName(path);
    if (!result.empty()) return result;
    std::error_code ignored;
    result = std::filesystem::weakly_canonical(path, ignored);
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
    Handle handle;
    bool absent = false, taken = false;  // taken: somebody has the whole file
    patiently("opening failed", [&] {
      handle = openExisting(path, GENERIC_READ, shareAll);
      absent = !handle.isOpen() && isAbsent(::GetLastError());
      taken = !handle.isOpen() && ::GetLastError() == ERROR_SHARING_VIOLATION;
      return handle.isOpen() || absent || taken;
    });
    if (!handle.isOpen()) return taken;
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
}  // namespace jet::windows

namespace jet {

FileSystem& systemFiles() {
  static windows::WindowsFileSystem files;
  return files;
}

}  // namespace jet

#endif
