#include "jet/journal_format.h"

#include <algorithm>
#include <bit>

#include "jet/byte_reader.h"
#include "jet/byte_writer.h"
#include "jet/journal.h"

namespace jet {
namespace {

constexpr std::array<std::uint8_t, 8> magic{journalMark, 'o', 'u', 'r', 'n', 'a', 'l', 1};

// Offsets in the header; what is not named is 0.
constexpr std::size_t pageSizeAt = 8, recordsAt = 12, lengthAt = 16, sizeBeforeAt = 24, sizeAfterAt = 32,
                      timeAt = 40, allRecordsAt = 48, checksumAt = 56, commitBytesAt = 512;
// Offsets in the head of a record.
constexpr std::size_t recordChecksumAt = 8;

std::uint64_t word(std::span<const std::uint8_t> bytes, std::size_t offset, std::size_t length) {
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < length; ++i) value |= std::uint64_t{bytes[offset + i]} << (8 * i);
  return value;
}

// Every word is spread over all 64 bits before the next one comes, so that neither runs of zeros nor swapped
// words pass unseen. `seed` chains several ranges to one checksum.
std::uint64_t checksum(std::span<const std::uint8_t> bytes, std::uint64_t seed) {
  constexpr std::uint64_t first = 0x9E37'79B1'85EB'CA87, second = 0xC2B2'AE3D'27D4'EB4F,
                          third = 0x1656'67B1'9E37'79F9;
  std::uint64_t state = (seed ^ bytes.size()) * second + third;
  const auto take = [&](std::uint64_t value) {
    state = std::rotl(state ^ std::rotl(value * second, 31) * first, 27) * first + third;
  };
  std::size_t offset = 0;
  for (; bytes.size() - offset >= 8; offset += 8) take(word(bytes, offset, 8));
  if (offset < bytes.size()) take(word(bytes, offset, bytes.size() - offset));
  state = (state ^ state >> 33) * second;
  state = (state ^ state >> 29) * third;
  return state ^ state >> 32;
}

std::uint64_t recordChecksum(std::uint32_t number, std::span<const std::uint8_t> before,
                             std::span<const std::uint8_t> after) {
  return checksum(after, checksum(before, number));
}

std::uint64_t chained(std::uint64_t allRecords, std::uint64_t record) {
  std::array<std::uint8_t, 8> bytes{};
  put64(bytes, 0, record);
  return checksum(bytes, allRecords);
}

bool isFileSize(std::uint64_t size) {
  return size % jet4.pageSize == 0 && size / jet4.pageSize <= largestPageCount;
}

}  // namespace

std::array<std::uint8_t, journalHeaderSize> encodeHeader(const JournalHeader& header) {
  std::array<std::uint8_t, journalHeaderSize> bytes{};
  std::ranges::copy(magic, bytes.begin());
  put32(bytes, pageSizeAt, jet4.pageSize);
  put32(bytes, recordsAt, header.records);
  put64(bytes, lengthAt, header.length());
  put64(bytes, sizeBeforeAt, header.before.size);
  put64(bytes, sizeAfterAt, header.sizeAfter);
  put64(bytes, timeAt, static_cast<std::uint64_t>(header.before.lastWriteTime));
  put64(bytes, allRecordsAt, header.allRecords);
  std::ranges::copy(header.before.commitBytes, bytes.begin() + commitBytesAt);
  put64(bytes, checksumAt, checksum(bytes, 0));  // of the header with zeros in this place
  return bytes;
}

std::optional<JournalHeader> decodeHeader(std::span<const std::uint8_t> bytes) {
  if (bytes.size() != journalHeaderSize || !std::ranges::equal(bytes.first(magic.size()), magic)) return {};
  const ByteReader reader(bytes, 0);
  std::vector<std::uint8_t> summed(bytes.begin(), bytes.end());
  put64(summed, checksumAt, 0);
  if (checksum(summed, 0) != reader.u64(checksumAt)) return {};

  JournalHeader header;
  header.records = reader.u32(recordsAt);
  header.before.size = reader.u64(sizeBeforeAt);
  header.before.lastWriteTime = static_cast<std::int64_t>(reader.u64(timeAt));
  std::ranges::copy(reader.slice(commitBytesAt, header.before.commitBytes.size()),
                    header.before.commitBytes.begin());
  header.sizeAfter = reader.u64(sizeAfterAt);
  header.allRecords = reader.u64(allRecordsAt);
  const bool possible = reader.u32(pageSizeAt) == jet4.pageSize && isFileSize(header.before.size) &&
                        isFileSize(header.sizeAfter) && reader.u64(lengthAt) == header.length() &&
                        header.records <= header.before.size / jet4.pageSize;
  return possible ? std::optional(header) : std::nullopt;
}

std::optional<JournalHeader> readJournalHeader(const File& journal) {
  if (journal.size() < journalHeaderSize) return {};
  std::array<std::uint8_t, journalHeaderSize> bytes{};
  journal.read(0, bytes);
  return decodeHeader(bytes);
}

void markJournal(File& journal, std::uint8_t mark) {
  journal.write(0, std::array{mark});
  journal.flush();
}

std::array<std::uint8_t, journalRecordHead> encodeRecordHead(const JournalPage& page, JournalHeader& header) {
  std::array<std::uint8_t, journalRecordHead> bytes{};
  const std::uint64_t sum = recordChecksum(page.number, page.before, page.after);
  put32(bytes, 0, page.number);
  put64(bytes, recordChecksumAt, sum);
  header.allRecords = chained(header.allRecords, sum);
  ++header.records;
  return bytes;
}

std::optional<JournalRecord> JournalReader::next() {
  const std::uint64_t recordSize = journalRecordHead + 2 * std::uint64_t{jet4.pageSize};
  if (read_ == header_.records) return {};
  const std::uint64_t offset = journalHeaderSize + recordSize * read_++;
  if (offset + recordSize > journal_.size()) return JournalRecord{};
  buffer_.resize(recordSize);
  journal_.read(offset, buffer_);
  const ByteReader reader(buffer_, 0);
  JournalRecord record;
  record.number = reader.u32(0);
  record.before = reader.slice(journalRecordHead, jet4.pageSize);
  record.after = reader.slice(journalRecordHead + jet4.pageSize, jet4.pageSize);
  const std::uint64_t sum = recordChecksum(record.number, record.before, record.after);
  record.whole = reader.u64(recordChecksumAt) == sum && record.number < header_.before.size / jet4.pageSize &&
                 (!lastNumber_ || *lastNumber_ < record.number);
  if (!record.whole) return record;
  lastNumber_ = record.number;
  allRecords_ = chained(allRecords_, sum);
  ++whole_;
  return record;
}

}  // namespace jet
