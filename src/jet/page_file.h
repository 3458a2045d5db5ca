#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

#include "jet/byte_reader.h"
#include "jet/file.h"
#include "jet/format.h"
#include "jet/header.h"

namespace jet {

struct IndexLayout;  // index_page.h: where the entries of an index page stand

// One decoded page. Pages are immutable and may outlive their place in the cache.
struct Page {
  Page();
  ~Page();
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;

  std::uint32_t number = 0;
  std::vector<std::uint8_t> bytes;
  mutable std::unique_ptr<IndexLayout> indexLayout;  // made when an index first needs it

  ByteReader reader() const { return {bytes, number}; }
  std::uint8_t type() const { return bytes[0]; }
};
using PageRef = std::shared_ptr<const Page>;

// What tells whether another program wrote: two equal stamps mean an unchanged file.
struct ChangeStamp {
  std::uint64_t size = 0;
  std::int64_t lastWriteTime = 0;
  std::array<std::uint8_t, 512> commitBytes{};
  bool operator==(const ChangeStamp&) const = default;
};

// Pages by number, decoded (RC4), through a cache of bounded size (least recently used pages leave first).
class PageFile {
 public:
  // Opening checks page 0 and the length and reads nothing else.
  PageFile(FileSystem& files, const std::filesystem::path& path, std::size_t cacheBytes);
  ~PageFile();

  const Format& format() const { return *header_.format; }
  const Header& header() const { return header_; }
  std::uint32_t pageCount() const { return pageCount_; }

  // A page other than 0. A number outside the file is Error(Damaged) that blames page `from`.
  PageRef page(std::uint32_t number, std::uint32_t from) const;
  // The same, and its type byte must be `type`.
  PageRef page(std::uint32_t number, std::uint32_t from, PageType type) const;

  // Read anew from the file, not from the cache.
  ChangeStamp stamp() const;
  std::size_t cachedBytes() const;

 private:
  struct Cache;
  PageRef load(std::uint32_t number) const;

  std::unique_ptr<File> file_;
  Header header_;
  std::uint32_t pageCount_ = 0;
  std::unique_ptr<Cache> cache_;
};

}  // namespace jet
