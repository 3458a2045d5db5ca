#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
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
    std::optional<jet::ErrorKind> openFails;   // the next openings fail in this way
    std::optional<jet::ErrorKind> readFails;   // every read does, also of files that are open already
    std::optional<jet::ErrorKind> writeFails;  // every write, and taking the file
    int opened = 0;                            // how often the file was opened
    std::uint64_t reads = 0;                   // calls of File::read
    std::uint64_t bytesRead = 0;
    int holders = 0;        // objects that have it open
    bool acquired = false;  // one of them for itself
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
  std::set<std::filesystem::path> locked;  // files on whose bytes another program holds a lock

  std::unique_ptr<jet::File> openShared(const std::filesystem::path& path) override {
    const auto found = files_.find(path);
    if (found == files_.end()) throw jet::Error(jet::ErrorKind::FileNotFound, "no such file");
    if (found->second->openFails) throw jet::Error(*found->second->openFails, "opening failed");
    if (found->second->acquired) throw jet::Error(jet::ErrorKind::Busy, "somebody has it for himself");
    ++found->second->opened;
    return std::make_unique<OpenFile>(found->second);
  }

  std::unique_ptr<jet::File> create(const std::filesystem::path& path) override {
    if (exists(path)) throw jet::Error(jet::ErrorKind::Io, "the file exists already");
    put(path, {});
    auto file = std::make_unique<OpenFile>(files_.at(path));
    file->acquire();
    return file;
  }

  bool exists(const std::filesystem::path& path) const override { return files_.contains(path); }
  void remove(const std::filesystem::path& path) override {
    if (files_.erase(path) == 0) throw jet::Error(jet::ErrorKind::FileNotFound, "no such file");
  }
  void rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    if (exists(to)) throw jet::Error(jet::ErrorKind::Io, "the file exists already");
    auto node = files_.extract(from);
    if (node.empty()) throw jet::Error(jet::ErrorKind::FileNotFound, "no such file");
    node.key() = to;
    files_.insert(std::move(node));
  }
  void flushFolder(const std::filesystem::path&) override {}
  bool isLocked(const std::filesystem::path& path, std::uint64_t, std::uint64_t) const override {
    return exists(path) && locked.contains(path);
  }

 private:
  class OpenFile : public jet::File {
   public:
    explicit OpenFile(std::shared_ptr<Stored> stored) : stored_(std::move(stored)) { ++stored_->holders; }
    ~OpenFile() override {
      release();
      --stored_->holders;
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

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

    void acquire() override {
      requireWritable();
      if (stored_->holders > 1) throw jet::Error(jet::ErrorKind::Busy, "somebody else has it open");
      stored_->acquired = acquired_ = true;
    }
    void release() noexcept override {
      if (std::exchange(acquired_, false)) stored_->acquired = false;
    }
    void write(std::uint64_t offset, std::span<const std::uint8_t> content) override {
      requireWritable();
      auto& target = stored_->content;
      target.resize(std::max<std::size_t>(target.size(), offset + content.size()));
      std::ranges::copy(content, target.begin() + static_cast<std::ptrdiff_t>(offset));
      ++stored_->lastWriteTime;
    }
    void resize(std::uint64_t size) override {
      requireWritable();
      stored_->content.resize(size);
      ++stored_->lastWriteTime;
    }
    void flush() override { requireWritable(); }

   private:
    void requireWritable() const {
      if (stored_->writeFails) throw jet::Error(*stored_->writeFails, "writing failed");
    }

    std::shared_ptr<Stored> stored_;
    bool acquired_ = false;
  };

  std::map<std::filesystem::path, std::shared_ptr<Stored>> files_;
};
