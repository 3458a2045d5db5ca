#pragma once

#include <filesystem>
#include <map>
#include <memory>

#include "jet/file.h"
#include "jet/page_file.h"

namespace jet {

// The database files that one program has open: every connection to one file shares one object, so that they
// never stand in each other's way. One per process, made in `main`; it must outlive all connections.
class FilePool {
 public:
  explicit FilePool(FileSystem& files) : files_(files) {}

  FileSystem& files() { return files_; }
  // The file as it is open already (looked at anew, see PageFile::refresh), else opened.
  std::shared_ptr<PageFile> open(const std::filesystem::path& path, std::size_t cacheBytes,
                                 const RecoverySink& recovered = {});
  // Whether a connection has it open now.
  bool isOpen(const std::filesystem::path& path) const;

 private:
  FileSystem& files_;
  std::map<std::filesystem::path, std::weak_ptr<PageFile>> open_;
};

}  // namespace jet
