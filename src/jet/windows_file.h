#pragma once

#ifdef _WIN32

#include "jet/file.h"
#include "jet/windows_handle.h"

namespace jet::windows {

// Windows knows a file for one alone only from its opening on, so taking and giving back open it anew.
class WindowsFile : public File {
 public:
  WindowsFile(std::filesystem::path path, Handle handle);

  std::uint64_t size() const override;
  bool isInPlace() const override;
  std::int64_t lastWriteTime() const override;
  void read(std::uint64_t offset, std::span<std::uint8_t> target) const override;

  void acquire() override;
  void release() noexcept override;
  void write(std::uint64_t offset, std::span<const std::uint8_t> content) override;
  void resize(std::uint64_t size) override;
  void flush() override;

 private:
  void requireOpen() const;
  void openForReading() noexcept;
  void fillWithZeros(std::uint64_t from, std::uint64_t to);

  std::filesystem::path path_;
  Handle handle_;  // not open: somebody took the file while it was given back
  Identity identity_;
};

}  // namespace jet::windows

#endif
