#include "jet/create/index_builder.h"

#include <algorithm>

#include "jet/encode/bytes.h"
#include "jet/encode/index_page_writer.h"
#include "jet/error.h"

namespace jet::create {

namespace {

constexpr std::size_t childPointer = 4;

// One page of the level just built: its number and its last entry, key and row.
struct Child {
  std::uint32_t page;
  std::string lastEntry;
};

std::uint64_t firstBytes(std::string_view key) {
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < 8; ++i) {
    value = value << 8 | (i < key.size() ? static_cast<std::uint8_t>(key[i]) : 0u);
  }
  return value;
}

std::string nodeEntry(const Child& child) {
  std::string entry = child.lastEntry;
  entry.push_back(static_cast<char>(child.page >> 24));
  append24BigEndian(entry, child.page & 0xFFFFFF);
  return entry;
}

// How many children, from `first` on, share one node: as many as fit, but never so many that a last one would
// be left alone. The last child of a node needs no entry.
std::size_t nodeSize(const std::vector<Child>& children, std::size_t first) {
  std::size_t used = 0, end = first;
  while (end < children.size()) {
    used += children[end].lastEntry.size() + childPointer;
    ++end;
    if (used > IndexPageWriter::capacity) break;
  }
  if (children.size() - end == 1 && end - first > 2) --end;
  return end - first;
}

// Groups the pages of one level under nodes. The only node of the topmost level is the root.
std::vector<Child> buildLevel(PageArray& pages, std::uint32_t table, std::uint32_t root,
                              const std::vector<Child>& children, std::uint8_t level) {
  std::vector<Child> nodes;
  for (std::size_t first = 0; first < children.size();) {
    const std::size_t count = nodeSize(children, first);
    const bool isRoot = count == children.size();
    IndexPageWriter node;
    for (std::size_t i = first; i + 1 < first + count; ++i) node.append(nodeEntry(children[i]));
    const Child& last = children[first + count - 1];
    nodes.push_back({isRoot ? root : pages.allocate(), last.lastEntry});
    node.write(pages.page(nodes.back().page), table, {.tail = last.page, .level = level});
    first += count;
  }
  return nodes;
}

// Nodes are linked with those of the same parent only.
void linkSiblings(PageArray& pages, const std::vector<Child>& nodes) {
  for (std::size_t first = 0; first < nodes.size();) {
    const std::size_t count = nodeSize(nodes, first);
    for (std::size_t i = first; i + 1 < first + count; ++i) {
      put32(pages.page(nodes[i].page), jet4.indexNext, nodes[i + 1].page);
      put32(pages.page(nodes[i + 1].page), jet4.indexPrevious, nodes[i].page);
    }
    first += count;
  }
}

}  // namespace

void IndexBuilder::add(std::string_view key, RowId row, bool exempt) {
  entries_.push_back({firstBytes(key), keys_.size(), static_cast<std::uint32_t>(key.size()), exempt, row});
  keys_.append(key);
}

bool IndexBuilder::precedes(const Entry& left, const Entry& right) const {
  if (left.prefix != right.prefix) return left.prefix < right.prefix;
  const int order = key(left).compare(key(right));
  return order != 0 ? order < 0 : left.row < right.row;
}

void IndexBuilder::sort(std::span<const RowId> removed) {
  std::erase_if(entries_, [&](const Entry& entry) { return std::ranges::binary_search(removed, entry.row); });
  const auto before = [this](const Entry& left, const Entry& right) { return precedes(left, right); };
  if (!std::ranges::is_sorted(entries_, before)) std::ranges::sort(entries_, before);
}

std::uint32_t IndexBuilder::countDistinct() const {
  std::uint32_t distinct = 0;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (i == 0 || key(entries_[i]) != key(entries_[i - 1])) {
      ++distinct;
    } else if (unique_ && !entries_[i].exempt) {
      throw Error(ErrorKind::Constraint, "a key occurs twice in a unique index");
    }
  }
  return distinct;
}

IndexBuilder::Tree IndexBuilder::build(PageArray& pages, std::uint32_t table, std::uint32_t root,
                                       std::span<const RowId> removed) {
  sort(removed);
  Tree tree{{root}, countDistinct()};
  const std::uint32_t firstNew = pages.count();

  std::vector<Child> level;
  IndexPageWriter leaf;
  std::string entry, previous;
  IndexPageWriter::Links links;
  std::uint32_t page = 0;
  for (const Entry& item : entries_) {
    entry.assign(key(item));
    append24BigEndian(entry, item.row.page);
    entry.push_back(static_cast<char>(item.row.slot));
    if (entry.size() + childPointer > IndexPageWriter::capacity / 2) {
      throw Error(ErrorKind::Limit, "an index key is too long for its page");
    }
    if (!leaf.fits(entry.size())) {
      if (page == 0) page = pages.allocate();
      links.next = pages.allocate();
      leaf.write(pages.page(page), table, links);
      level.push_back({page, previous});
      page = links.next;
      links = {.previous = level.back().page};
    }
    leaf.append(entry);
    previous.swap(entry);
  }
  leaf.write(pages.page(page == 0 ? root : page), table, links);
  level.push_back({page == 0 ? root : page, previous});

  for (std::uint8_t height = 1; level.size() > 1; ++height) {
    level = buildLevel(pages, table, root, level, height);
    linkSiblings(pages, level);
  }
  for (std::uint32_t made = firstNew; made < pages.count(); ++made) tree.pages.push_back(made);
  return tree;
}

}  // namespace jet::create
