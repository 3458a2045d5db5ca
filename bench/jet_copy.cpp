#include "bench/jet_copy.h"

#include "jet/create/database_builder.h"

namespace bench {
namespace {

using jet::ColumnType;
using jet::Value;
using jet::create::ColumnSpec;
using jet::create::IndexSpec;
using jet::create::TableSpec;

ColumnSpec column(const char16_t* name, ColumnType type, std::uint16_t characters = 0) {
  ColumnSpec spec;
  spec.name = name;
  spec.type = type;
  spec.characters = characters;
  return spec;
}

IndexSpec index(const char16_t* name, std::vector<jet::Text> columns, bool primaryKey = false) {
  IndexSpec spec;
  spec.name = name;
  spec.columns = std::move(columns);
  spec.primaryKey = primaryKey;
  return spec;
}

TableSpec personTable() {
  return {u"Namensliste",
          {column(u"ID", ColumnType::Long), column(u"Namen", ColumnType::Text, 100),
           column(u"Adresse", ColumnType::Text, 150), column(u"Telefon", ColumnType::Text, 50),
           column(u"UstPauschaliert", ColumnType::Boolean), column(u"UIDNummer", ColumnType::Text, 20),
           column(u"IBAN", ColumnType::Text, 42), column(u"BIC", ColumnType::Text, 20)},
          {index(u"PrimaryKey", {u"ID"}, true), index(u"Namen", {u"Namen"})}};
}

TableSpec membershipTable(Indexes indexes) {
  TableSpec spec{u"PersonenGruppen",
                 {column(u"ID", ColumnType::Long), column(u"PersonenID", ColumnType::Long),
                  column(u"GruppenID", ColumnType::Long), column(u"GrosseGanzeZahl", ColumnType::Long)},
                 {index(u"PrimaryKey", {u"ID"}, true)}};
  if (indexes == Indexes::AsVerbindo) {
    spec.indexes.push_back(index(u"PersonGruppe", {u"PersonenID", u"GruppenID"}));
  }
  if (indexes == Indexes::AsVerbindo || indexes == Indexes::PersonOnly) {
    spec.indexes.push_back(index(u"PersonenID", {u"PersonenID"}));
  }
  if (indexes == Indexes::AsVerbindo || indexes == Indexes::GroupOnly) {
    spec.indexes.push_back(index(u"GruppenID", {u"GruppenID"}));
  }
  return spec;
}

Value textOrNull(const std::u16string& text) { return text.empty() ? Value{jet::Null{}} : Value{text}; }

std::u16string digits(std::int32_t number) {
  const std::string text = std::to_string(number);
  return {text.begin(), text.end()};
}

}  // namespace

void writeJet(const Association& association, Indexes indexes, const std::filesystem::path& path) {
  jet::create::DatabaseBuilder builder;
  auto& persons = builder.addTable(personTable());
  for (const Person& person : association.persons) persons.insert(rowOf(person));
  auto& groups =
      builder.addTable({u"PersonenGruppenBezeichnungen",
                        {column(u"ID", ColumnType::Long), column(u"Bezeichnung", ColumnType::Text, 100)},
                        {index(u"PrimaryKey", {u"ID"}, true), index(u"Bezeichnung", {u"Bezeichnung"})}});
  for (const Group& group : association.groups) groups.insert({group.id, group.name});
  auto& memberships = builder.addTable(membershipTable(indexes));
  for (const Membership& membership : association.memberships) {
    const Value number = membership.number ? Value{*membership.number} : Value{jet::Null{}};
    memberships.insert({membership.id, membership.person, membership.group, number});
  }
  std::filesystem::remove(path);
  builder.write(jet::systemFiles(), path);
}

std::vector<Value> rowOf(const Person& person) {
  return {person.id,
          person.name,
          person.address,
          person.telephone,
          person.flatRate,
          textOrNull(person.uid),
          textOrNull(person.iban),
          textOrNull(person.bic)};
}

std::u16string queries::person(std::int32_t id) {
  return u"SELECT Namen, Adresse, Telefon FROM Namensliste WHERE ID = " + digits(id);
}

std::u16string queries::membership(std::int32_t person, std::int32_t group) {
  return u"SELECT ID FROM PersonenGruppen WHERE PersonenID = " + digits(person) + u" AND GruppenID = " +
         digits(group);
}

}  // namespace bench
