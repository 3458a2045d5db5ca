#include "crash/crash_files.h"

#include <algorithm>
#include <random>
#include <utility>

namespace jet::test {
namespace {

constexpr std::uint64_t sectorSize = 512;
constexpr std::int64_t tick = 1'000'000;  // between two operations, ns

// A change of a file's content: a write, or a new length.
struct Change {
  bool isResize = false;
  std::uint64_t at = 0;  // offset, or the length
  std::vector<std::uint8_t> bytes{};
};

void applyPart(std::vector<std::uint8_t>& content, const Change& change, std::uint64_t from,
               std::uint64_t to) {
  content.resize(std::max<std::uint64_t>(content.size(), change.at + to));
  std::copy(change.bytes.begin() + static_cast<std::ptrdiff_t>(from),
            change.bytes.begin() + static_cast<std::ptrdiff_t>(to),
            content.begin() + static_cast<std::ptrdiff_t>(change.at + from));
}

void applyWhole(std::vector<std::uint8_t>& content, const Change& change) {
  if (change.isResize) {
    content.resize(change.at);
  } else {
    applyPart(content, change, 0, change.bytes.size());
  }
}

using Random = std::mt19937_64;
bool coin(Random& random) { return (random() >> 40 & 1) != 0; }

// Not at all, wholly, up to some byte, or some of the sectors.
void applyTorn(std::vector<std::uint8_t>& content, const Change& change, Random& random) {
  const std::uint64_t size = change.bytes.size();
  switch (random() % 4) {
    case 0:
      return;
    case 1:
      return applyWhole(content, change);
    case 2:
      if (!change.isResize) return applyPart(content, change, 0, random() % (size + 1));
      return;
    default:
      if (change.isResize) return applyWhole(content, change);
      for (std::uint64_t from = 0; from < size;) {
        const std::uint64_t to = std::min(size, from + sectorSize - (change.at + from) % sectorSize);
        if (coin(random)) applyPart(content, change, from, to);
        from = to;
      }
  }
}

}  // namespace

struct CrashFiles::Content {
  StoredFile current, durable;
  std::vector<Change> pending;
  int holders = 0;
  bool acquired = false;

  void change(Change change, std::int64_t time) {
    applyWhole(current.content, change);
    current.lastWriteTime = time;
    pending.push_back(std::move(change));
  }
  void reachDisk() {
    for (const Change& change : pending) applyWhole(durable.content, change);
    durable.lastWriteTime = current.lastWriteTime;
    pending.clear();
  }
  StoredFile torn(Random& random) const {
    StoredFile result = durable;
    for (const Change& change : pending) applyTorn(result.content, change, random);
    if (coin(random)) result.lastWriteTime = current.lastWriteTime;
    return result;
  }
};

// A name that a file gets, loses or changes.
struct CrashFiles::NameChange {
  std::filesystem::path from, to;  // empty: there is none
  std::shared_ptr<Content> content{};
  const std::filesystem::path& name() const { return to.empty() ? from : to; }
};

class CrashFiles::Handle : public File {
 public:
  Handle(CrashFiles& files, std::filesystem::path path, std::shared_ptr<Content> content)
      : files_(files), path_(std::move(path)), content_(std::move(content)) {
    ++content_->holders;
  }
  ~Handle() override {
    Handle::release();
    --content_->holders;
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  std::uint64_t size() const override { return content_->current.content.size(); }
  std::int64_t lastWriteTime() const override { return content_->current.lastWriteTime; }
  void read(std::uint64_t offset, std::span<std::uint8_t> target) const override {
    if (files_.readFails) throw Error(*files_.readFails, "reading failed");
    const auto& content = content_->current.content;
    if (offset > content.size() || target.size() > content.size() - offset) {
      throw Error(ErrorKind::Truncated, "the file ends early");
    }
    std::copy_n(content.begin() + static_cast<std::ptrdiff_t>(offset), target.size(), target.begin());
  }

  void acquire() override {
    if (files_.acquireFails) throw Error(*files_.acquireFails, "taking failed");
    if (content_->holders > 1) throw Error(ErrorKind::Busy, "somebody else has it open");
    content_->acquired = acquired_ = true;
  }
  void release() noexcept override {
    if (std::exchange(acquired_, false)) content_->acquired = false;
  }

  void write(std::uint64_t offset, std::span<const std::uint8_t> bytes) override {
    requireAcquired();
    const bool failing = files_.isFailing();
    if (failing) bytes = bytes.first(files_.failure->shortWrite ? bytes.size() / 2 : 0);
    if (!bytes.empty()) {
      content_->change({.at = offset, .bytes = {bytes.begin(), bytes.end()}}, files_.clock_ += tick);
    }
    files_.failIf(files_.announce(Operation::Write, path_));
  }
  void resize(std::uint64_t size) override {
    requireAcquired();
    if (!files_.isFailing()) content_->change({.isResize = true, .at = size}, files_.clock_ += tick);
    files_.failIf(files_.announce(Operation::Resize, path_));
  }
  void flush() override {
    requireAcquired();
    const bool failing = files_.announce(Operation::Flush, path_);
    if (failing && files_.failure->flushForgets) content_->pending.clear();
    files_.failIf(failing);
    content_->reachDisk();
  }

 private:
  void requireAcquired() const {
    if (!acquired_) throw Error(ErrorKind::AccessDenied, "written without having been taken");
  }

  CrashFiles& files_;
  std::filesystem::path path_;
  std::shared_ptr<Content> content_;
  bool acquired_ = false;
};

CrashFiles::CrashFiles(Disk disk) {
  for (auto& [path, file] : disk) put(path, std::move(file));
}
CrashFiles::~CrashFiles() = default;

void CrashFiles::put(const std::filesystem::path& path, StoredFile file) {
  clock_ = std::max(clock_, file.lastWriteTime) + tick;
  auto& content = names_[path];
  if (!content) content = std::make_shared<Content>();
  content->pending.clear();
  content->durable = content->current = std::move(file);
  durableNames_[path] = content;
}

bool CrashFiles::isFailing() const {
  const std::uint64_t number = operations_ + 1;
  return failure && (number == failure->at || (failure->fromThenOn && number > failure->at));
}

bool CrashFiles::announce(Operation operation, const std::filesystem::path& path) {
  const bool failing = isFailing();
  ++operations_;
  if (onOperation) onOperation(operations_, operation, path);
  return failing;
}

void CrashFiles::failIf(bool failing) const {
  if (failing) throw Error(failure->kind, "the disk fails");
}

Disk CrashFiles::afterPowerLoss(Loss loss, std::uint64_t seed) const {
  Random random(seed * 1'000'003 + operations_);
  Names names = loss == Loss::Done ? names_ : durableNames_;
  if (loss == Loss::Torn) {
    for (const NameChange& change : pendingNames_) {
      if (coin(random)) applyTo(names, change);
    }
  }
  Disk disk;
  for (const auto& [path, content] : names) {
    disk[path] = loss == Loss::Done   ? content->current
                 : loss == Loss::Lost ? content->durable
                                      : content->torn(random);
  }
  return disk;
}

std::shared_ptr<CrashFiles::Content> CrashFiles::find(const std::filesystem::path& path) const {
  const auto found = names_.find(path);
  if (found == names_.end()) throw Error(ErrorKind::FileNotFound, "no such file");
  return found->second;
}

void CrashFiles::applyTo(Names& names, const NameChange& change) {
  if (!change.from.empty() && names.erase(change.from) == 0) return;
  if (!change.to.empty()) names[change.to] = change.content;
}

void CrashFiles::changeName(Operation operation, const NameChange& change) {
  if (!isFailing()) {
    applyTo(names_, change);
    pendingNames_.push_back(change);
  }
  failIf(announce(operation, change.name()));
}

std::unique_ptr<File> CrashFiles::openShared(const std::filesystem::path& path) {
  auto content = find(path);
  if (openFails) throw Error(*openFails, "opening failed");
  if (content->acquired) throw Error(ErrorKind::Busy, "somebody has it for himself");
  return std::make_unique<Handle>(*this, path, std::move(content));
}

std::unique_ptr<File> CrashFiles::create(const std::filesystem::path& path) {
  if (exists(path)) throw Error(ErrorKind::Io, "the file exists already");
  const auto content = std::make_shared<Content>();
  content->current.lastWriteTime = content->durable.lastWriteTime = clock_ += tick;
  changeName(Operation::Create, {.from = {}, .to = path, .content = content});
  auto file = std::make_unique<Handle>(*this, path, content);
  file->acquire();
  return file;
}

bool CrashFiles::exists(const std::filesystem::path& path) const { return names_.contains(path); }

void CrashFiles::remove(const std::filesystem::path& path) {
  const auto content = find(path);
  if (removeFails) throw Error(*removeFails, "removing failed");
  changeName(Operation::Remove, {.from = path, .to = {}, .content = content});
}

void CrashFiles::rename(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (exists(to)) throw Error(ErrorKind::Io, "the file exists already");
  changeName(Operation::Rename, {.from = from, .to = to, .content = find(from)});
}

void CrashFiles::flushFolder(const std::filesystem::path& file) {
  failIf(announce(Operation::FlushFolder, file));
  std::erase_if(pendingNames_, [&](const NameChange& change) {
    if (change.name().parent_path() != file.parent_path()) return false;
    applyTo(durableNames_, change);
    return true;
  });
}

}  // namespace jet::test
