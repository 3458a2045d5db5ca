// How the tree above the leaves follows their changes.

#include <utility>

#include "jet/encode/bytes.h"
#include "jet/error.h"
#include "jet/write/index_writer.h"

namespace jet::write {

std::uint32_t IndexWriter::addPage() {
  const std::uint32_t page = allocator_.allocate();
  map_.add(page);
  return page;
}

// The last entry of the page at `level` changes: so does what describes it, which stands in the parent, or
// further up where the page is the last child.
void IndexWriter::setGreatest(Path& path, std::size_t level, std::string_view greatest) {
  while (++level < path.size()) {
    const PageRef page = load(path[level].page, path[level - 1].page);
    const IndexPage node = view(page);
    const std::size_t entry = path[level].entry;
    if (entry == node.count()) continue;
    const bool describesNodeToo = node.tail() == 0 && entry + 1 == node.count();
    IndexContent content = takeApart(page, node);
    if (content.keyAndRow(entry) != greatest) {
      content.describe(entry, greatest);
      store(path, level, std::move(content), entry);
    }
    if (!describesNodeToo) return;
  }
}

void IndexWriter::store(Path& path, std::size_t level, IndexContent content, std::size_t changed) {
  if (fitsOnPage(content)) {
    putTogether(transaction_, path[level].page, owner_, content);
  } else {
    divide(path, level, std::move(content), changed);
  }
}

// The entries before the cut move to a new page; the rest stays, and with it the page's place in its parent,
// which may be that of the tail.
void IndexWriter::divide(Path& path, std::size_t level, IndexContent content, std::size_t changed) {
  if (level + 1 == path.size()) growRoot(path, content.links.level);
  const std::uint32_t page = path[level].page;
  const std::size_t cut = chooseCut(content, changed, page);
  const std::uint32_t added = addPage();

  const auto middle = content.entries.begin() + static_cast<std::ptrdiff_t>(cut);
  const std::string separator = nodeEntry(content.keyAndRow(cut - 1), added);
  IndexContent left{{content.entries.begin(), middle}, content.links, content.mayShare};
  left.links.next = page;
  left.links.tail = 0;
  content.entries.erase(content.entries.begin(), middle);
  content.links.previous = added;
  if (!content.isLeaf()) {
    left.links.tail = childOf(left.entries.back());
    left.entries.pop_back();
  }
  putTogether(transaction_, added, owner_, left);
  putTogether(transaction_, page, owner_, content);
  if (left.links.previous != 0) link(left.links.previous, page, Side::Next, added, content.isLeaf());
  if (content.links.level > 1) partNodes(left, content);

  const bool isLeft = path[level].entry < cut;
  if (isLeft) {
    path[level].page = added;
  } else {
    path[level].entry -= cut;
  }
  insertChild(path, level + 1, separator, isLeft);
}

// The root's content is about to move to a page of its own, the root's only child.
void IndexWriter::growRoot(Path& path, std::uint8_t level) {
  if (path.size() == greatestTreeDepth) throw Error(ErrorKind::Limit, "an index tree grows too deep");
  Step& former = path.back();
  former.page = addPage();
  IndexContent root;
  root.links.tail = former.page;
  root.links.level = static_cast<std::uint8_t>(level + 1);
  putTogether(transaction_, index_.root, owner_, root);
  path.push_back({index_.root, 0});
}

// A child of the node has got a neighbour at its left, described by `entry`. `followNew`: the path leads to
// the new one.
void IndexWriter::insertChild(Path& path, std::size_t level, const std::string& entry, bool followNew) {
  Step& step = path[level];
  const std::size_t position = step.entry;
  if (!followNew) ++step.entry;
  const PageRef page = load(step.page, path[level - 1].page);
  const IndexPage node = view(page);
  const bool wasOnlyDescribed = node.tail() == 0 && position + 1 == node.count();
  if (!wasOnlyDescribed && insertInPlace(transaction_, page, position, entry)) return;
  IndexContent content = takeApart(page, view(page));
  if (wasOnlyDescribed) {
    content.links.tail = childOf(content.entries.back());
    content.entries.back() = entry;
  } else {
    content.entries.insert(content.entries.begin() + static_cast<std::ptrdiff_t>(position), entry);
  }
  store(path, level, std::move(content), position);
}

// The page at `level` has neither entries nor children any more.
void IndexWriter::removePage(Path& path, std::size_t level) {
  const std::uint32_t number = path[level].page;
  if (number == index_.root) {
    putTogether(transaction_, number, owner_, {});
    return;
  }
  const PageRef page = load(number, owner_);
  const encode::IndexPageWriter::Links gone = takeApart(page, view(page)).links;
  const bool leaf = level == 0;
  if (gone.previous != 0) link(gone.previous, number, Side::Next, gone.next, leaf);
  if (gone.next != 0) link(gone.next, number, Side::Previous, gone.previous, leaf);
  map_.remove(number);
  allocator_.release(number);
  removeChild(path, level + 1);
}

void IndexWriter::removeChild(Path& path, std::size_t level) {
  const std::size_t gone = path[level].entry;
  const PageRef page = load(path[level].page, owner_);
  IndexContent content = takeApart(page, view(page));
  auto& entries = content.entries;
  std::uint32_t& tail = content.links.tail;
  if (gone < entries.size()) {
    entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(gone));
  } else {
    tail = 0;
  }
  if (entries.empty() && tail == 0) {
    removePage(path, level);
    return;
  }
  std::string greatest;
  if (tail == 0) {
    greatest = content.keyAndRow(entries.size() - 1);
    if (entries.size() > 1) {
      tail = childOf(entries.back());
      entries.pop_back();
    }
  } else if (entries.empty()) {
    entries.push_back(nodeEntry(greatestBelow(tail, page->number), tail));
    tail = 0;
  }
  store(path, level, std::move(content), 0);
  if (!greatest.empty()) setGreatest(path, level, greatest);
}

// Key and row of the last entry below a page.
std::string IndexWriter::greatestBelow(std::uint32_t number, std::uint32_t from) const {
  for (std::size_t depth = 0; depth < greatestTreeDepth; ++depth) {
    const PageRef page = load(number, from);
    const IndexPage node = view(page);
    if (node.isLeaf()) {
      page->reader().check(node.count() > 0, "a leaf of an index is empty");
      std::string greatest;
      node.keyAndRow(node.count() - 1, greatest);
      return greatest;
    }
    from = number;
    number = node.child(node.count());
  }
  throw Error(ErrorKind::Damaged, "an index tree is too deep", from);
}

// A neighbour that links to page `from` shall link to page `to`. Nobody walks along nodes, so that among them
// a link to elsewhere may stay as it is.
void IndexWriter::link(std::uint32_t number, std::uint32_t from, Side side, std::uint32_t to, bool leaf) {
  const PageRef page = load(number, from);
  const IndexPage neighbour = view(page);
  const bool isLinked =
      neighbour.isLeaf() == leaf && (side == Side::Next ? neighbour.next() : neighbour.previous()) == from;
  if (!isLinked) {
    page->reader().check(!leaf, "the links between index leaves contradict each other");
    return;
  }
  const std::uint32_t offset = side == Side::Next ? jet4.indexNext : jet4.indexPrevious;
  encode::put32(transaction_.change(number, from), offset, to);
}

// Nodes are linked with those of the same parent only: two that were neighbours have different ones now.
void IndexWriter::partNodes(const IndexContent& left, const IndexContent& right) {
  const std::uint32_t last = left.links.tail;
  const std::uint32_t first = right.entries.empty() ? right.links.tail : childOf(right.entries.front());
  link(last, first, Side::Next, 0, false);
  link(first, last, Side::Previous, 0, false);
}

}  // namespace jet::write
