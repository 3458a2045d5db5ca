#pragma once

#include <cstdint>
#include <span>

namespace jet {

// The one place where bytes of the file become numbers: every access is checked against the end of the
// range, and a miss is a `Damaged` error that names the page. All integers are little endian unless named
// otherwise. The range is not owned.
class ByteReader {
 public:
  ByteReader(std::span<const std::uint8_t> bytes, std::uint32_t page) : bytes_(bytes), page_(page) {}

  std::size_t size() const { return bytes_.size(); }
  std::uint32_t page() const { return page_; }

  std::uint8_t u8(std::size_t offset) const {
    require(offset, 1);
    return bytes_[offset];
  }
  std::uint16_t u16(std::size_t offset) const {
    require(offset, 2);
    return static_cast<std::uint16_t>(bytes_[offset] | bytes_[offset + 1] << 8);
  }
  std::uint32_t u24BigEndian(std::size_t offset) const {
    require(offset, 3);
    return std::uint32_t{bytes_[offset]} << 16 | std::uint32_t{bytes_[offset + 1]} << 8 | bytes_[offset + 2];
  }
  std::uint32_t u32(std::size_t offset) const {
    require(offset, 4);
    return std::uint32_t{bytes_[offset]} | std::uint32_t{bytes_[offset + 1]} << 8 |
           std::uint32_t{bytes_[offset + 2]} << 16 | std::uint32_t{bytes_[offset + 3]} << 24;
  }
  std::uint32_t u32BigEndian(std::size_t offset) const {
    require(offset, 4);
    return std::uint32_t{bytes_[offset]} << 24 | u24BigEndian(offset + 1);
  }
  std::uint64_t u64(std::size_t offset) const {
    require(offset, 8);
    return u32(offset) | std::uint64_t{u32(offset + 4)} << 32;
  }
  double f64(std::size_t offset) const;
  float f32(std::size_t offset) const;

  std::span<const std::uint8_t> slice(std::size_t offset, std::size_t length) const {
    require(offset, length);
    return bytes_.subspan(offset, length);
  }
  ByteReader sub(std::size_t offset, std::size_t length) const { return {slice(offset, length), page_}; }

  // Throws Error(Damaged) with the reason and this reader's page.
  [[noreturn]] void damaged(const char* reason) const;
  void check(bool holds, const char* reason) const {
    if (!holds) damaged(reason);
  }

 private:
  void require(std::size_t offset, std::size_t length) const {
    if (offset > bytes_.size() || length > bytes_.size() - offset) {
      damaged("a structure reaches beyond its end");
    }
  }

  std::span<const std::uint8_t> bytes_;
  std::uint32_t page_;
};

}  // namespace jet
