#include "jet/create/catalog.h"

#include "jet/create/catalog_layout.h"
#include "jet/create/header_page.h"

namespace jet::create {

namespace {

enum SystemTable : std::size_t { Objects, AccessRights, Queries, Relationships };
constexpr std::uint32_t firstDefinition = 2;  // of the four in a row
constexpr std::uint32_t containers = 0x0F000000, tablesContainer = 0x0F000001,
                        databasesContainer = 0x0F000002, relationshipsContainer = 0x0F000003,
                        databaseObject = 0x10000000;
constexpr std::int32_t tableType = 1, databaseType = 2, containerType = 3;
constexpr std::uint32_t systemObject = 0x80000000;

std::int32_t asSigned(std::uint32_t number) { return static_cast<std::int32_t>(number); }

}  // namespace

Catalog::Catalog(PageArray& pages, double created, const Bytes& databaseProperties)
    : pages_(pages), created_(created) {
  for (std::size_t i = 0; i < tables_.size(); ++i) pages_.allocate();
  maps_ = std::make_unique<UsageMapRows>(pages_, pages_.allocate());
  auto layouts = systemTableLayouts();
  for (std::uint32_t i = 0; i < tables_.size(); ++i) {
    tables_[i] = std::make_unique<TableWriter>(pages_, *maps_, firstDefinition + i, std::move(layouts[i]),
                                               TableKind::System);
  }
  tables_[Objects]->addDataPage();
  tables_[AccessRights]->addDataPage();
  insertOwnObjects(databaseProperties);
  insertOwnAccess();
}

void Catalog::insertObject(std::uint32_t id, std::uint32_t parent, const Text& name, std::int32_t type,
                           std::uint32_t flags, const Bytes& owner, const Bytes& properties) {
  std::vector<Value> row(tables_[Objects]->layout().definition.columns.size());
  row[0] = asSigned(id);
  row[1] = asSigned(parent);
  row[2] = name;
  row[3] = type;
  row[4] = row[5] = DateTime{created_};
  row[6] = owner;
  row[7] = asSigned(flags);
  if (!properties.empty()) row[14] = properties;
  tables_[Objects]->insert(std::move(row));
}

void Catalog::insertOwnObjects(const Bytes& databaseProperties) {
  const Bytes engine = accountId(Account::Engine);
  insertObject(tablesContainer, containers, u"Tables", containerType, systemObject, engine, {});
  insertObject(databasesContainer, containers, u"Databases", containerType, systemObject, engine, {});
  insertObject(relationshipsContainer, containers, u"Relationships", containerType, systemObject, engine, {});
  insertObject(databaseObject, databasesContainer, u"MSysDb", databaseType, systemObject,
               accountId(Account::Admin), databaseProperties);
  for (const auto& table : tables_) {
    insertObject(table->definitionPage(), tablesContainer, table->layout().name, tableType, systemObject,
                 engine, {});
  }
}

void Catalog::insertAccess(std::uint32_t object, const Bytes& account, std::uint32_t rights,
                           bool inheritable) {
  tables_[AccessRights]->insert({asSigned(object), account, asSigned(rights), inheritable});
}

// The rights of a new file, in the order in which Access writes them.
void Catalog::insertOwnAccess() {
  const Bytes admin = accountId(Account::Admin), users = accountId(Account::Users),
              group4 = accountId(Account::Group4);
  for (const std::uint32_t table : {2u, 3u, 4u}) insertAccess(table, admin, 0x60000, false);
  insertAccess(5, admin, 0xE0000, false);
  for (const std::uint32_t container : {tablesContainer, relationshipsContainer}) {
    insertAccess(container, group4, 0xF00FE, true);
    insertAccess(container, admin, 0x60001, false);
  }
  insertAccess(databasesContainer, admin, 0x60000, false);
  insertAccess(databaseObject, admin, 0x6000E, false);
  insertAccess(databaseObject, users, 0xE, false);
  for (const std::uint32_t table : {4u, 5u, 2u}) insertAccess(table, users, 0x14, false);
  insertAccess(tablesContainer, users, 0xFFEFF, true);
  insertAccess(relationshipsContainer, users, 0xFFFFF, true);
}

void Catalog::addTable(const Text& name, std::uint32_t page, const Bytes& properties) {
  constexpr std::uint32_t allRights = 0xFFFFF;
  insertObject(page, tablesContainer, name, tableType, 0, accountId(Account::Admin), properties);
  for (const Account account : {Account::Group4, Account::Admin, Account::Users}) {
    insertAccess(page, accountId(account), allRights, false);
  }
}

void Catalog::finish() {
  for (const auto& table : tables_) table->finish();
}

}  // namespace jet::create
