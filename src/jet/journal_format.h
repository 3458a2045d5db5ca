#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "jet/change_stamp.h"
#include "jet/file.h"
#include "jet/format.h"

namespace jet {

// The bytes of a journal file: a header, then one record per page in ascending order of their numbers. All
// numbers are little endian.

// The first byte of a journal that counts. It is overwritten by 0 when the transaction has ended.
inline constexpr std::uint8_t journalMark = 'J';
inline constexpr std::size_t journalHeaderSize = 1024;
// Number (u32), 4 zeros, checksum of the two pages (u64); page before, page after.
inline constexpr std::size_t journalRecordHead = 16;

struct JournalPage;  // journal.h

struct JournalHeader {
  std::uint32_t records = 0;
  ChangeStamp before;            // the database's, when the transaction began
  std::uint64_t sizeAfter = 0;   // bytes
  std::uint64_t allRecords = 0;  // the checksums of all records, chained

  std::uint64_t length() const {  // of the whole journal, bytes
    return journalHeaderSize +
           std::uint64_t{records} * (journalRecordHead + 2 * std::uint64_t{jet4.pageSize});
  }
};

std::array<std::uint8_t, journalHeaderSize> encodeHeader(const JournalHeader& header);
// nullopt: this is no header, or not a whole one, or one whose numbers cannot be.
std::optional<JournalHeader> decodeHeader(std::span<const std::uint8_t> bytes);

// One record as it is read; the spans hold until the next one is read.
struct JournalRecord {
  bool whole = false;  // the checksum is right and the number is one that the database had
  std::uint32_t number = 0;
  std::span<const std::uint8_t> before, after;
};

// The header of a journal file; nullopt as above. Errors: Io and the like.
std::optional<JournalHeader> readJournalHeader(const File& journal);
// Sets the first byte, 0 or the mark; it is on the disk when this returns.
void markJournal(File& journal, std::uint8_t mark);

// Takes the record into the header's count and checksum.
std::array<std::uint8_t, journalRecordHead> encodeRecordHead(const JournalPage& page, JournalHeader& header);

// Reads the records of a journal one by one. Nothing in them is trusted.
class JournalReader {
 public:
  // Both must outlive this.
  JournalReader(const File& journal, const JournalHeader& header) : journal_(journal), header_(header) {}
  // The next record, whole or not; nullopt after the last one. Errors: Io and the like.
  std::optional<JournalRecord> next();
  // After the last one: every record is whole and is the one that the header speaks of.
  bool allWhole() const { return whole_ == header_.records && allRecords_ == header_.allRecords; }

 private:
  const File& journal_;
  const JournalHeader& header_;
  std::uint32_t read_ = 0, whole_ = 0;
  std::uint64_t allRecords_ = 0;
  std::optional<std::uint32_t> lastNumber_;
  std::vector<std::uint8_t> buffer_;
};

}  // namespace jet
