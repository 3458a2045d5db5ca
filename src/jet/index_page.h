#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "jet/page_file.h"
#include "jet/row_id.h"

namespace jet {

// Pages from the root to a leaf. A page holds dozens of entries, so no file of the format's greatest size
// comes near.
inline constexpr std::size_t greatestTreeDepth = 12;

// Where the entries of an index page stand. Made once per loaded page, fully checked.
struct IndexLayout {
  bool leaf = false;
  std::uint16_t prefixLength = 0;  // bytes that all entries share; only the first entry holds them
  std::uint32_t owner = 0;         // definition page of the table
  std::uint32_t previous = 0, next = 0;
  std::uint32_t tail = 0;           // nodes: the last child, which has no entry; 0 for none
  std::vector<std::uint16_t> ends;  // where each entry ends on the page; the first starts at indexEntries
};

// Whether two entries (key and row) may follow each other. Their order is that of their bytes; where one key
// is the beginning of another, which only an empty binary is, also that of the keys alone.
bool entriesAscend(std::string_view before, std::string_view after);

// A page of an index tree: a view, the page must outlive it. An entry is the key of a row, then the row (page
// 3 bytes, slot 1 byte, big endian); in a node it describes the last entry of a child, whose page follows (4
// bytes, big endian). Entries are in ascending order of key and row.
class IndexPage {
 public:
  // Error(Damaged) if the page is no index page of that table or its entries contradict the format.
  IndexPage(const Page& page, const Format& format, std::uint32_t owner);

  std::uint32_t number() const { return page_->number; }
  bool isLeaf() const { return layout_->leaf; }
  std::uint32_t previous() const { return layout_->previous; }
  std::uint32_t next() const { return layout_->next; }
  std::uint32_t tail() const { return layout_->tail; }
  std::size_t count() const { return layout_->ends.size(); }
  // End of the entries on the page.
  std::uint32_t end() const { return count() == 0 ? format_->indexEntries : layout_->ends.back(); }

  RowId row(std::size_t entry) const;
  // Nodes: the page of a child; `entry` == count() means the tail, or where there is none the last child.
  std::uint32_t child(std::size_t entry) const;
  // Replaces `target` by the key alone, or by key and row.
  void key(std::size_t entry, std::string& target) const;
  void keyAndRow(std::size_t entry, std::string& target) const;

  // The first entry whose key and row are not less than `probe`; count() if there is none.
  std::size_t lowerBound(std::string_view probe) const;
  bool startsWith(std::size_t entry, std::string_view probe) const;
  // Length of the key without the row.
  std::size_t keySize(std::size_t entry) const { return sortedSize(entry) - rowSize; }

 private:
  static constexpr std::size_t rowSize = 4;
  static constexpr std::size_t childSize = 4;

  // The shared start of all entries, and what an entry holds behind it (without the child).
  std::string_view prefix() const;
  std::string_view rest(std::size_t entry) const;
  std::size_t sortedSize(std::size_t entry) const { return layout_->prefixLength + rest(entry).size(); }
  void append(std::size_t entry, std::size_t length, std::string& target) const;

  const Page* page_;
  const Format* format_;
  const IndexLayout* layout_;
};

}  // namespace jet
