#include "jet/check.h"

#include "jet/check_findings.h"
#include "jet/check_table.h"
#include "jet/data_page.h"
#include "jet/text_codec.h"

namespace jet {

namespace {

constexpr std::uint32_t globalPage = 1;
constexpr std::uint8_t globalMapRow = 0;
constexpr std::size_t inlineMapHeader = 5;

// Which pages the file's own map says are free: it holds a 1 for a free page, and pages beyond it are free.
class FreePages {
 public:
  explicit FreePages(const PageFile& file) : file_(file) {
    page_ = file.page(globalPage, globalPage, PageType::Data);
    row_ = DataPage(*page_, file.format()).row(globalMapRow);
    reader().check(row_.size() >= inlineMapHeader, "the map of free pages is too short");
    reader().check(row_[0] <= 1, "the map of free pages is of an unknown kind");
  }

  bool isFree(std::uint32_t number) const {
    return row_[0] == 0 ? isFreeInline(number) : isFreeByBitmap(number);
  }

 private:
  ByteReader reader() const { return {row_, globalPage}; }

  static bool bit(std::span<const std::uint8_t> bitmap, std::uint64_t place) {
    return place / 8 >= bitmap.size() || (bitmap[place / 8] >> (place % 8) & 1) != 0;
  }

  bool isFreeInline(std::uint32_t number) const {
    const std::uint32_t start = reader().u32(1);
    return number < start || bit(row_.subspan(inlineMapHeader), number - start);
  }

  bool isFreeByBitmap(std::uint32_t number) const {
    constexpr std::size_t bitmapHeader = 4;
    const std::uint32_t pagesPerBitmap = (file_.format().pageSize - bitmapHeader) * 8;
    const std::size_t at = 1 + 4 * (number / pagesPerBitmap);
    if (at + 4 > row_.size() || reader().u32(at) == 0) return true;
    const PageRef bitmap = file_.page(reader().u32(at), globalPage, PageType::UsageBitmap);
    return bit(std::span(bitmap->bytes).subspan(bitmapHeader), number % pagesPerBitmap);
  }

  const PageFile& file_;
  PageRef page_;
  std::span<const std::uint8_t> row_;
};

void claimGlobalMap(const PageFile& file, PageOwners& owners) {
  const auto owner = owners.add("the map of free pages");
  owners.claim(globalPage, owner);
  const PageRef page = file.page(globalPage, globalPage, PageType::Data);
  const ByteReader row(DataPage(*page, file.format()).row(globalMapRow), globalPage);
  if (row.u8(0) != 1) return;
  for (std::size_t at = 1; at + 4 <= row.size(); at += 4) {
    if (row.u32(at) != 0) owners.claimOnce(row.u32(at), owner);
  }
}

void checkFreePages(const PageFile& file, const PageOwners& owners, CheckFindings& findings) {
  const FreePages free(file);
  std::uint32_t unused = 0, firstUnused = 0;
  for (std::uint32_t number = 1; number < file.pageCount(); ++number) {
    const bool isFree = free.isFree(number);
    if (owners.isOwned(number) && isFree) {
      findings.error("Page " + std::to_string(number) +
                     " is in use, but the map of free pages gives it away.");
    }
    if (!owners.isOwned(number) && !isFree) {
      if (unused++ == 0) firstUnused = number;
    }
  }
  if (unused == 0) return;
  findings.remark(std::to_string(unused) + " pages belong to nobody and are not free, the first is page " +
                  std::to_string(firstUnused) + ".");
}

}  // namespace

CheckReport check(Database& database) {
  CheckReport report;
  CheckFindings findings(report);
  const PageFile& file = database.pages();
  PageOwners owners(file.pageCount(), findings);
  owners.claim(0, owners.add("the header"));
  findings.attempt("The map of free pages", [&] { claimGlobalMap(file, owners); });
  CheckedPlaces places{owners, owners.add("the usage maps"), {}, {}};
  findings.attempt("The catalog", [&] {
    for (const TableEntry& entry : database.tables()) {
      findings.attempt("Table " + toUtf8(entry.name),
                       [&] { checkTable(database.table(entry.name), places, findings); });
    }
  });
  findings.attempt("The map of free pages", [&] { checkFreePages(file, owners, findings); });
  return report;
}

}  // namespace jet
