#include "jet/file.h"

#include "jet/error.h"

namespace jet {

void writeNewFile(FileSystem& files, const std::filesystem::path& path,
                  std::span<const std::uint8_t> content) {
  std::unique_ptr<File> file = files.create(path);
  try {
    file->write(0, content);
    file->flush();
    files.flushFolder(path);
  } catch (const Error&) {
    file.reset();
    try {
      files.remove(path);
    } catch (const Error&) {  // the first failure is the one to tell
    }
    throw;
  }
}

}  // namespace jet
