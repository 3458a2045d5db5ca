#include "jet/database.h"

#include <string_view>
#include <unordered_map>
#include <utility>

#include "jet/collation.h"
#include "jet/error.h"

namespace jet {
namespace {

constexpr std::uint32_t catalogPage = 2;
constexpr std::int32_t typeTable = 1;
constexpr std::uint32_t systemFlags = 0x80000002;
constexpr std::uint32_t hiddenFlag = 0x00000008;

std::string nameKey(std::u16string_view name) {
  std::string key;
  collation::appendSortKey(name, key);
  return key;
}

std::size_t requireColumn(const Table& catalog, std::u16string_view name) {
  const auto column = catalog.findColumn(name);
  if (!column) throw Error(ErrorKind::Damaged, "the catalog lacks a column", catalogPage);
  return *column;
}

}  // namespace

struct Database::State {
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::u16string_view text) const { return std::hash<std::u16string_view>{}(text); }
  };
  struct Place {
    TableEntry entry;
    RowId row;
    std::unique_ptr<Table> table;  // made when first asked for
  };

  std::shared_ptr<PageFile> pages;
  WarningSink warn;
  std::uint64_t version = 0;  // of the pages, when the catalog was read
  std::unique_ptr<Table> catalog;
  bool catalogRead = false;
  std::vector<TableEntry> entries;
  std::vector<Place> places;
  std::unordered_map<std::string, std::vector<std::size_t>> byKey;
  // Spellings that were asked for already.
  std::unordered_map<Text, Place*, TextHash, std::equal_to<>> bySpelling;

  State(std::shared_ptr<PageFile> file, const OpenOptions& options)
      : pages(std::move(file)), warn(options.warn) {
    if (pages->header().hasPassword && !options.ignorePassword) {
      throw Error(ErrorKind::PasswordRequired, "the database has a password");
    }
    openCatalog();
  }

  // What fails here is tried again by the next question.
  void openCatalog() {
    catalogRead = false;
    bySpelling.clear();
    const std::uint64_t current = pages->version();
    catalog = std::make_unique<Table>(*pages, u"MSysObjects", readTableDefinition(*pages, catalogPage), warn);
    version = current;
  }

  // Forgets what was derived from pages that may have changed since.
  void keepUp() {
    if (version != pages->version()) openCatalog();
  }

  void readCatalog() {
    keepUp();
    if (catalogRead) return;
    const std::size_t id = requireColumn(*catalog, u"Id"), type = requireColumn(*catalog, u"Type"),
                      name = requireColumn(*catalog, u"Name"), flags = requireColumn(*catalog, u"Flags");
    entries.clear();
    places.clear();
    TableScan scan = catalog->scan();
    for (Row row; scan.next(row);) {
      std::int32_t number = 0;
      if (!row.asLong(type, number) || number != typeTable) continue;
      Place place;
      place.row = row.id();
      if (!row.asText(name, place.entry.name) || !row.asLong(id, number)) {
        throw Error(ErrorKind::Damaged, "a table in the catalog has no name or no place", row.id().page);
      }
      place.entry.definitionPage = static_cast<std::uint32_t>(number);
      const auto bits = static_cast<std::uint32_t>(row.asLong(flags, number) ? number : 0);
      place.entry.system = (bits & systemFlags) != 0;
      place.entry.hidden = (bits & hiddenFlag) != 0 || place.entry.name.starts_with(u'~');
      entries.push_back(place.entry);
      places.push_back(std::move(place));
    }
    byKey.clear();
    for (std::size_t i = 0; i < places.size(); ++i) byKey[nameKey(places[i].entry.name)].push_back(i);
    catalogRead = true;
  }

  // Names and definitions are unique in a sound catalog; two of one make every answer doubtful.
  void requireUnique(const Place& place, std::size_t namesakes) const {
    if (namesakes != 1) throw Error(ErrorKind::Damaged, "two tables have the same name", place.row.page);
    for (const Place& other : places) {
      if (&other != &place && other.entry.definitionPage == place.entry.definitionPage) {
        throw Error(ErrorKind::Damaged, "two tables share one definition", place.row.page);
      }
    }
  }

  Place& find(std::u16string_view name) {
    keepUp();
    if (const auto known = bySpelling.find(name); known != bySpelling.end()) return *known->second;
    readCatalog();
    const auto found = byKey.find(nameKey(name));
    if (found == byKey.end()) throw Error(ErrorKind::NoSuchTable, "there is no such table");
    Place& place = places[found->second.front()];
    requireUnique(place, found->second.size());
    bySpelling.emplace(name, &place);
    return place;
  }
};

Database::Database(FileSystem& files, const std::filesystem::path& path, const OpenOptions& options)
    : state_(std::make_unique<State>(
          std::make_shared<PageFile>(files, path, options.cacheBytes, options.recovered), options)) {}

Database::Database(FilePool& pool, const std::filesystem::path& path, const OpenOptions& options)
    : state_(std::make_unique<State>(pool.open(path, options.cacheBytes, options.recovered), options)) {}

Database::~Database() = default;

const Header& Database::header() const { return state_->pages->header(); }

const PageFile& Database::pages() const { return *state_->pages; }

PageFile& Database::pages() { return *state_->pages; }

TableEntry Database::entry(std::u16string_view name) { return state_->find(name).entry; }

const std::vector<TableEntry>& Database::tables() const {
  state_->readCatalog();
  return state_->entries;
}

Table& Database::table(std::u16string_view name) {
  State::Place& place = state_->find(name);
  if (!place.table) {
    place.table = std::make_unique<Table>(*state_->pages, place.entry.name,
                                          readTableDefinition(*state_->pages, place.entry.definitionPage),
                                          state_->warn);
  }
  return *place.table;
}

Bytes Database::tableProperties(std::u16string_view name) {
  state_->keepUp();
  const auto column = state_->catalog->findColumn(u"LvProp");
  if (!column) return {};
  const Value value = state_->catalog->fetch(state_->find(name).row).value(*column);
  const Bytes* bytes = std::get_if<Bytes>(&value);
  return bytes ? *bytes : Bytes{};
}

ChangeStamp Database::stamp() const { return state_->pages->stamp(); }

}  // namespace jet
