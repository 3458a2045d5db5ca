#include "jet/create/database_builder.h"

#include <array>
#include <optional>

#include "jet/collation.h"
#include "jet/create/catalog.h"
#include "jet/create/header_page.h"
#include "jet/create/properties.h"
#include "jet/create/table_writer.h"
#include "jet/encode/bytes.h"
#include "jet/error.h"
#include "jet/rc4.h"

namespace jet::create {

struct TableBuilder::State {
  State(PageArray& pages, TableLayout layout, std::uint32_t page)
      : maps(pages, pages.allocate()), writer(pages, maps, page, std::move(layout), TableKind::User) {}

  UsageMapRows maps;
  TableWriter writer;
};

struct DatabaseBuilder::State {
  struct TableInProgress {
    TableInProgress(PageArray& pages, TableLayout layout, std::uint32_t page)
        : state(pages, std::move(layout), page), builder(state) {}
    TableBuilder::State state;
    TableBuilder builder;
  };

  explicit State(BuildOptions given) : options(std::move(given)) {
    pages.allocate();
    pages.allocate();
    formatGlobalMap(pages);
    catalog.emplace(pages, options.created,
                    options.accessVersion.empty() ? Bytes() : databaseProperties(options.accessVersion));
  }

  BuildOptions options;
  PageArray pages;
  std::optional<Catalog> catalog;
  std::vector<std::unique_ptr<TableInProgress>> tables;
};

RowId TableBuilder::insert(std::vector<Value> values) { return state_->writer.insert(std::move(values)); }

void TableBuilder::erase(RowId row) { state_->writer.erase(row); }

void TableBuilder::move(RowId row) { state_->writer.move(row); }

void TableBuilder::addColumn(const ColumnSpec& column) { state_->writer.addColumn(column); }

void TableBuilder::deleteColumn(const Text& name) { state_->writer.deleteColumn(name); }

DatabaseBuilder::DatabaseBuilder(BuildOptions options)
    : state_(std::make_unique<State>(std::move(options))) {}

DatabaseBuilder::~DatabaseBuilder() = default;

TableBuilder& DatabaseBuilder::addTable(const TableSpec& spec) {
  for (const auto& table : state_->tables) {
    if (collation::equal(table->state.writer.layout().name, spec.name)) {
      throw Error(ErrorKind::Constraint, "a table name twice");
    }
  }
  TableLayout layout = layoutOf(spec);  // a refused table takes no page
  const std::uint32_t page = state_->pages.allocate();
  state_->tables.push_back(std::make_unique<State::TableInProgress>(state_->pages, std::move(layout), page));
  return state_->tables.back()->builder;
}

namespace {

// Every page but the first is encoded with a key of its own.
void encodePages(std::span<std::uint8_t> file, std::uint32_t databaseKey) {
  for (std::uint32_t page = 1; page < file.size() / pageSize; ++page) {
    std::array<std::uint8_t, 4> key{};
    put32(key, 0, databaseKey ^ page);
    rc4(key, file.subspan(std::size_t{page} * pageSize, pageSize));
  }
}

}  // namespace

std::vector<std::uint8_t> DatabaseBuilder::finish() {
  PageArray& pages = state_->pages;
  for (const auto& table : state_->tables) {
    TableWriter& writer = table->state.writer;
    writer.finish();
    state_->catalog->addTable(writer.layout().name, writer.definitionPage(),
                              tableProperties(writer.layout()));
  }
  state_->catalog->finish();
  writeGlobalMap(pages);
  writeHeaderPage(pages.page(0), state_->options.databaseKey, state_->options.password);
  std::vector<std::uint8_t> file = pages.take();
  if (state_->options.databaseKey != 0) encodePages(file, state_->options.databaseKey);
  return file;
}

void DatabaseBuilder::write(FileSystem& files, const std::filesystem::path& path) {
  writeNewFile(files, path, finish());
}

}  // namespace jet::create
