#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "jet/error.h"
#include "jet/file.h"

// Files that exist only in the memory of a test. A change of a stored file is seen by those who have it
// open, as with real files.
class MemoryFiles : public jet::FileSystem {
 public:
  struct Stored {
    std::vector<std::uint8_t> content;
    std::int64_t lastWriteTime = 1;
    std::optional<jet::ErrorKind> openFails;  // the next openings fail in this way
    std::optional<jet::ErrorKind> readFails;  // every read does, also of files that are open already
    int opened = 0;                           // how often the file was opened
    std::uint64_t reads = 0;                  // calls of File::read
    std::uint64_t bytesRead = 0;
  };

  Stored& put(const std::filesystem::path& path, std::vector<std::uint8_t> content) {
    auto& stored = files_[path];
    if (!stored) stored = std::make_shared<Stored>();
    stored->content = std::move(content);
    ++stored->lastWriteTime;
    return *stored;
  }
  // The file must exist.
  Stored& at(const std::filesystem::path& path) { return *files_.at(path); }
  bool exists(const std::filesystem::path& path) const { return files_.contains(path); }
  void remove(const std::filesystem::path& path) { files_.erase(path); }

  std::unique_ptr<jet::File> openShared(const std::filesystem::path& path) override {
    const auto found = files_.find(path);
    if (found == files_.end()) throw jet::Error(jet::ErrorKind::FileNotFound, "no such file");
    if (found->second->openFails) throw jet::Error(*found->second->openFails, "opening failed");
    ++found->second->opened;
    return std::make_unique<OpenFile>(found->second);
  }

  void createFile(const std::filesystem::path& path, std::span<const std::uint8_t> content) override {
    if (exists(path)) throw jet::Error(jet::ErrorKind::Io, "the file exists already");
    put(path, {content.begin(), content.end()});
  }

 private:
  class OpenFile : public jet::File {
   public:
    explicit OpenFile(std::shared_ptr<Stored> stored) : stored_(std::move(stored)) {}
    std::uint64_t size() const override { return stored_->content.size(); }
    std::int64_t lastWriteTime() const override { return stored_->lastWriteTime; }
    void read(std::uint64_t offset, std::span<std::uint8_t> target) const override {
      if (stored_->readFails) throw jet::Error(*stored_->readFails, "reading failed");
      const auto& content = stored_->content;
      if (offset > content.size() || target.size() > content.size() - offset) {
        throw jet::Error(jet::ErrorKind::Truncated, "the file ends early");
      }
      ++stored_->reads;
      stored_->bytesRead += target.size();
      std::copy_n(content.begin() + static_cast<std::ptrdiff_t>(offset), target.size(), target.begin());
    }

   private:
    std::shared_ptr<Stored> stored_;
  };

  std::map<std::filesystem::path, std::shared_ptr<Stored>> files_;
};
