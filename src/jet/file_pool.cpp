#include "jet/file_pool.h"

#include "jet/error.h"

namespace jet {
namespace {

// A file that can no longer be read as it is open (another one stands in its place) is opened anew.
bool isGood(PageFile& file) {
  try {
    file.refresh();
    return file.isInPlace();
  } catch (const Error&) {
    return false;
  }
}

}  // namespace

std::shared_ptr<PageFile> FilePool::open(const std::filesystem::path& path, std::size_t cacheBytes,
                                         const RecoverySink& recovered) {
  std::weak_ptr<PageFile>& place = open_[files_.canonical(path)];
  if (std::shared_ptr<PageFile> file = place.lock()) {
    const bool good = isGood(*file);
    for (const RecoveryResult& result : file->takeRecoveries()) {
      if (recovered) recovered(result);
    }
    if (good) return file;
  }
  auto file = std::make_shared<PageFile>(files_, path, cacheBytes, recovered);
  place = file;
  return file;
}

bool FilePool::isOpen(const std::filesystem::path& path) const {
  const auto place = open_.find(files_.canonical(path));
  return place != open_.end() && !place->second.expired();
}

}  // namespace jet
