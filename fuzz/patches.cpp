#include "fuzz/patches.h"

#include <algorithm>

namespace jet::fuzz {
namespace {

constexpr int mostRecords = 64;

std::uint32_t number(const Content& file, std::size_t offset, unsigned bytes) {
  std::uint32_t value = 0;
  for (unsigned i = 0; i < bytes && offset + i < file.size(); ++i) {
    value |= std::uint32_t{file[offset + i]} << (8 * i);
  }
  return value;
}

void put(Content& file, Place place, std::uint32_t value) {
  for (unsigned i = 0; i < place.bytes && place.offset + i < file.size(); ++i) {
    file[place.offset + i] = static_cast<std::uint8_t>(value >> (8 * i));
  }
}

// Collects the places of one page.
class PagePlaces {
 public:
  PagePlaces(const Content& file, const Format& format, std::size_t page, std::vector<Place>& places)
      : file_(file), format_(format), start_(page * format.pageSize), places_(places) {}

  void collect() {
    if (start_ == 0) return several(0, 0xA0, 1);
    several(0, 1, 1);
    switch (file_[start_]) {
      case 1:
        return dataPage();
      case 2:
        return several(
            0, std::min<std::size_t>(8 + number(file_, start_ + format_.tdefLength, 4), format_.pageSize), 2);
      case 3:
      case 4:
        return indexPage();
      case 5:
        return several(4, 24, 1);
      default:
        return;
    }
  }

 private:
  void several(std::size_t from, std::size_t to, unsigned bytes) {
    for (; from + bytes <= to; from += bytes) places_.push_back({start_ + from, bytes});
  }

  void dataPage() {
    several(2, 4, 2);
    several(4, format_.dataRowCount, 4);
    several(format_.dataRowCount, format_.dataSlots, 2);
    const std::size_t slots = number(file_, start_ + format_.dataRowCount, 2);
    several(format_.dataSlots, format_.dataSlots + 2 * slots, 2);
    constexpr std::size_t rowsAtEachEnd = 4;
    std::size_t end = format_.pageSize;
    for (std::size_t slot = 0; slot < slots; ++slot) {
      const std::size_t begin = number(file_, start_ + format_.dataSlots + 2 * slot, 2) & 0x1FFF;
      if (slot < rowsAtEachEnd || slot + rowsAtEachEnd >= slots) row(begin, end);
      end = begin;
    }
  }

  // Its column count, where it leads to if it is a reference, and from its end the mask and the offsets.
  void row(std::size_t begin, std::size_t end) {
    constexpr std::size_t head = 16, tail = 48;
    several(begin, std::min(begin + 2, end), 2);
    several(begin, std::min(begin + head, end), 4);
    several(std::max(begin, end < tail ? 0 : end - tail), end, 1);
  }

  void indexPage() {
    several(2, 4, 2);
    several(4, format_.indexPrefixLength, 4);
    several(format_.indexPrefixLength, format_.indexBitmap + 38, 1);
    several(format_.indexEntries, format_.indexEntries + 60, 1);
    several(format_.indexEntries + 60, format_.indexEntries + 120, 4);
  }

  const Content& file_;
  const Format& format_;
  std::size_t start_;
  std::vector<Place>& places_;
};

class Patcher {
 public:
  Patcher(InputReader& input, const std::vector<Place>& places, std::size_t pageSize, Content& file)
      : input_(input), places_(places), pageSize_(pageSize), file_(file) {}

  void apply() {
    switch (input_.u8() % 8) {
      case 0: {
        const Place target = place();
        return put(file_, target, input_.u32());
      }
      case 1: {
        const Place target = place();
        return put(file_, target, number(file_, target.offset, target.bytes) + input_.u8() - 128);
      }
      case 2: {
        const Place target = place();
        const Place source = place();
        return put(file_, target, number(file_, source.offset, source.bytes));
      }
      case 3: {
        const Place target = place();
        return put(file_, target, reference());
      }
      case 4:
        return bytes();
      case 5: {
        const std::size_t at = anywhere();
        if (at < file_.size()) file_[at] ^= static_cast<std::uint8_t>(1u << input_.u8() % 8);
        return;
      }
      case 6:
        return copyPage();
      default:
        return resize();
    }
  }

 private:
  std::size_t pages() const { return file_.size() / pageSize_; }
  Place place() { return places_[input_.u16() % places_.size()]; }
  std::size_t page() { return pages() == 0 ? 0 : input_.u8() % pages(); }
  std::size_t anywhere() {
    const std::size_t start = page() * pageSize_;
    return start + input_.u16() % pageSize_;
  }
  // A page, or a page and a row.
  std::uint32_t reference() {
    const std::uint8_t kind = input_.u8();
    const std::uint32_t page = input_.u8();
    return kind % 2 == 0 ? page : page << 8 | input_.u8();
  }
  void bytes() {
    const std::size_t at = anywhere();
    for (std::size_t i = 0, length = input_.u8() % 32; i < length; ++i) {
      const std::uint8_t byte = input_.u8();
      if (at + i < file_.size()) file_[at + i] = byte;
    }
  }
  void copyPage() {
    const std::size_t from = page() * pageSize_, to = page() * pageSize_;
    if (std::max(from, to) + pageSize_ > file_.size()) return;
    std::copy_n(file_.begin() + static_cast<std::ptrdiff_t>(from), pageSize_,
                file_.begin() + static_cast<std::ptrdiff_t>(to));
  }
  // Cut off, at a page or within one, or some empty pages more.
  void resize() {
    const std::uint8_t kind = input_.u8();
    if (kind % 4 == 3) return file_.resize(file_.size() + pageSize_ * (input_.u8() % 4));
    file_.resize(std::min(file_.size(), page() * pageSize_ + (kind % 4 == 0 ? input_.u16() % pageSize_ : 0)));
  }

  InputReader& input_;
  const std::vector<Place>& places_;
  std::size_t pageSize_;
  Content& file_;
};

}  // namespace

std::vector<Place> structuralPlaces(const Content& file, const Format& format) {
  std::vector<Place> places;
  for (std::size_t page = 0; page < file.size() / format.pageSize; ++page)
    PagePlaces(file, format, page, places).collect();
  return places;
}

void applyPatches(InputReader& input, const std::vector<Place>& places, std::size_t pageSize, Content& file) {
  Patcher patcher(input, places, pageSize, file);
  for (int i = 0; i < mostRecords && !input.atEnd(); ++i) patcher.apply();
}

}  // namespace jet::fuzz
