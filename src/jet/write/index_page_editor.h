#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "jet/encode/index_page_writer.h"
#include "jet/index_page.h"
#include "jet/transaction.h"

namespace jet::write {

// The quick ways for what happens nearly always: the entries behind the place are moved, nothing else. False,
// and nothing changed, where the page has to be put together anew: no space, or the entries share bytes in a
// way that does not suit. An `IndexPage` must have been made of the page; none is valid behind a change.
bool insertInPlace(Transaction& transaction, const PageRef& page, std::size_t position,
                   std::string_view entry);
bool eraseInPlace(Transaction& transaction, const PageRef& page, std::size_t position);

// An index page taken apart. Entries are complete: key, row, in nodes the child.
struct IndexContent {
  std::vector<std::string> entries;
  encode::IndexPageWriter::Links links;
  // Whether the entries may share bytes. Access does that only in leaves.
  bool mayShare = true;

  bool isLeaf() const { return links.level == 0; }
  // Key and row of an entry.
  std::string_view keyAndRow(std::size_t entry) const;
  // Nodes: replaces key and row of an entry, keeps the child.
  void describe(std::size_t entry, std::string_view keyAndRow);
};

std::string nodeEntry(std::string_view keyAndRow, std::uint32_t child);
std::uint32_t childOf(std::string_view nodeEntry);
IndexContent takeApart(const PageRef& page, const IndexPage& view);
bool fitsOnPage(const IndexContent& content);
// Shares the entries' common start only where they would not fit without; they must fit.
void putTogether(Transaction& transaction, std::uint32_t page, std::uint32_t owner,
                 const IndexContent& content);

// Where to part entries that do not fit on one page: those before the cut go to the left; of a node, the one
// before the cut goes up, with its child as the left side's tail. `changed`: the entry that came last. A tree
// that grows at one of its ends is left with full pages, others are parted in the middle.
std::size_t chooseCut(const IndexContent& content, std::size_t changed, std::uint32_t page);

}  // namespace jet::write
