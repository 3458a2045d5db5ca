#ifdef _WIN32

#include "jet/windows_handle.h"

#include <string>

#include "jet/error.h"

namespace jet::windows {
namespace {

constexpr DWORD diskQuotaExceeded = 1295;  // the compiler's headers lack its name

ErrorKind kindOf(DWORD code) {
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_PATHNAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return ErrorKind::FileNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
      return ErrorKind::AccessDenied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case diskQuotaExceeded:
      return ErrorKind::DiskFull;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:  // cutting off what another program has in its memory
      return ErrorKind::Busy;
    default:
      return ErrorKind::Io;
  }
}

}  // namespace

void failWith(DWORD code, const char* action) {
  throw Error(kindOf(code), std::string(action) + ": system error " + std::to_string(code));
}

Handle openExisting(const std::filesystem::path& path, DWORD access, DWORD share, DWORD flags) {
  return Handle(::CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL | FILE_FLAG_RANDOM_ACCESS | flags, nullptr));
}

Identity identityOf(const Handle& handle) {
  BY_HANDLE_FILE_INFORMATION facts{};
  if (!handle.isOpen() || ::GetFileInformationByHandle(handle.get(), &facts) == 0) return {};
  return {facts.dwVolumeSerialNumber, std::uint64_t{facts.nFileIndexHigh} << 32 | facts.nFileIndexLow};
}

OVERLAPPED placeAt(std::uint64_t offset) {
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  return place;
}

}  // namespace jet::windows

#endif
