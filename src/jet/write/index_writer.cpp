#include "jet/write/index_writer.h"

#include "jet/encode/bytes.h"
#include "jet/error.h"

namespace jet::write {

namespace {

std::string entryOf(std::string_view key, RowId row) {
  std::string entry(key);
  encode::append24BigEndian(entry, row.page);
  entry.push_back(static_cast<char>(row.slot));
  return entry;
}

std::string_view keyOf(std::string_view entry) { return entry.substr(0, entry.size() - 4); }

bool hasKey(const IndexPage& leaf, std::size_t entry, std::string_view key) {
  return leaf.keySize(entry) == key.size() && leaf.startsWith(entry, key);
}

}  // namespace

IndexWriter::IndexWriter(Transaction& transaction, PageAllocator& allocator, std::uint32_t owner,
                         const IndexDefinition& index)
    : transaction_(transaction),
      allocator_(allocator),
      owner_(owner),
      index_(index),
      map_(transaction, allocator, index.ownedMap, owner) {}

IndexWriter::Path IndexWriter::descend(std::string_view probe) const {
  Path path;
  std::uint32_t number = index_.root, from = owner_;
  while (path.size() < greatestTreeDepth) {
    const PageRef page = load(number, from);
    const IndexPage node = view(page);
    std::size_t entry = node.lowerBound(probe);
    if (!node.isLeaf() && node.tail() == 0 && entry == node.count()) --entry;
    path.insert(path.begin(), {number, entry});
    if (node.isLeaf()) return path;
    from = number;
    number = node.child(entry);
  }
  throw Error(ErrorKind::Damaged, "an index tree is too deep", from);
}

PageRef IndexWriter::neighbour(const IndexPage& leaf, Side side) const {
  PageRef page = load(side == Side::Next ? leaf.next() : leaf.previous(), leaf.number());
  const IndexPage other = view(page);
  const std::uint32_t back = side == Side::Next ? other.previous() : other.next();
  page->reader().check(other.isLeaf() && back == leaf.number(),
                       "the links between index leaves contradict each other");
  return page;
}

bool IndexWriter::contains(std::string_view key) const {
  const Step place = descend(key).front();
  PageRef page = load(place.page, owner_);
  std::size_t entry = place.entry;
  for (std::uint32_t leaves = 0;; ++leaves) {
    const IndexPage leaf = view(page);
    for (; entry < leaf.count(); ++entry) {
      if (!leaf.startsWith(entry, key)) return false;
      if (leaf.keySize(entry) == key.size()) return true;
    }
    if (leaf.next() == 0) return false;
    page->reader().check(leaves < transaction_.file().pageCount(), "index leaves form a circle");
    page = neighbour(leaf, Side::Next);
    entry = 0;
  }
}

// Whether an entry beside the place of `entry` has its key. A place between two leaves that does not suit
// shows that a node has led to the wrong leaf.
bool IndexWriter::hasKeyBeside(const IndexPage& leaf, std::size_t position, std::string_view entry) const {
  const std::string_view key = keyOf(entry);
  if (position < leaf.count()) {
    if (leaf.keySize(position) == key.size() && leaf.startsWith(position, entry)) {
      throw Error(ErrorKind::Damaged, "a row has an entry in an index already", leaf.number());
    }
    if (hasKey(leaf, position, key)) return true;
  } else if (leaf.next() != 0 && leaf.count() > 0) {
    throw Error(ErrorKind::Damaged, "an index node leads to the wrong leaf", leaf.number());
  }
  if (position > 0) return hasKey(leaf, position - 1, key);
  if (leaf.previous() == 0) return false;
  const PageRef page = neighbour(leaf, Side::Previous);
  const IndexPage before = view(page);
  page->reader().check(before.lowerBound(entry) == before.count(), "an index node leads to the wrong leaf");
  return before.count() > 0 && hasKey(before, before.count() - 1, key);
}

bool IndexWriter::insert(std::string_view key, RowId row) {
  const std::string entry = entryOf(key, row);
  if (entry.size() + encode::IndexPageWriter::childSize > encode::IndexPageWriter::capacity / 2) {
    throw Error(ErrorKind::Limit, "an index key is too long for its page");
  }
  Path path = descend(entry);
  const std::size_t position = path.front().entry;
  PageRef page = load(path.front().page, owner_);
  const bool isNew = !hasKeyBeside(view(page), position, entry);
  if (position == view(page).count()) {
    setGreatest(path, 0, entry);
    page = load(path.front().page, owner_);
  }
  const IndexPage leaf = view(page);
  if (!insertInPlace(transaction_, page, position, entry)) {
    IndexContent content = takeApart(page, leaf);
    content.entries.insert(content.entries.begin() + static_cast<std::ptrdiff_t>(position), entry);
    store(path, 0, std::move(content), position);
  }
  return isNew;
}

void IndexWriter::erase(std::string_view key, RowId row) {
  const std::string entry = entryOf(key, row);
  Path path = descend(entry);
  const std::size_t position = path.front().entry;
  PageRef page = load(path.front().page, owner_);
  const IndexPage found = view(page);
  std::string stored;
  if (position < found.count()) found.keyAndRow(position, stored);
  if (stored != entry) throw Error(ErrorKind::Damaged, "an index lacks the entry of a row", found.number());
  if (found.count() == 1) {
    removePage(path, 0);
    return;
  }
  if (position + 1 == found.count()) {
    std::string greatest;
    found.keyAndRow(position - 1, greatest);
    setGreatest(path, 0, greatest);
    page = load(path.front().page, owner_);
  }
  const IndexPage leaf = view(page);
  if (!eraseInPlace(transaction_, page, position)) {
    IndexContent content = takeApart(page, leaf);
    content.entries.erase(content.entries.begin() + static_cast<std::ptrdiff_t>(position));
    store(path, 0, std::move(content), position);
  }
}

}  // namespace jet::write
