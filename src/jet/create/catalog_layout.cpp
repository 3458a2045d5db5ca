#include "jet/create/catalog_layout.h"

#include "jet/format.h"

namespace jet::create {

namespace {

constexpr std::uint8_t unique = index_flag::unique, required = index_flag::required,
                       ignoreNulls = index_flag::ignoreNulls;
constexpr std::uint16_t longestSystemValue = 510;  // bytes, texts and binary values alike

TableLayout tableOf(const Text& name, const std::vector<std::pair<Text, ColumnType>>& columns) {
  TableLayout layout;
  layout.name = name;
  for (const auto& [columnName, type] : columns) {
    appendColumn(layout, {.name = columnName, .type = type, .compressed = false});
    ColumnDefinition& column = layout.definition.columns.back();
    column.flags |= column_flag::system;
    column.ordinal = 0;
    if (type == ColumnType::Binary) column.length = longestSystemValue;
  }
  return layout;
}

void addIndex(TableLayout& layout, const Text& name, const std::vector<Text>& columns, std::uint8_t flags,
              IndexKind kind = IndexKind::Normal) {
  IndexDefinition index;
  for (const Text& column : columns) index.columns.push_back({findColumn(layout.definition, column), false});
  index.flags = flags;
  layout.definition.indexNames.push_back({name, layout.definition.indexes.size(), kind});
  layout.definition.indexes.push_back(std::move(index));
}

void markAccountColumn(TableLayout& layout, const Text& name) {
  layout.definition.columns[findColumn(layout.definition, name)].flags |= column_flag::securityId;
}

TableLayout objects() {
  using enum ColumnType;
  TableLayout layout = tableOf(u"MSysObjects", {{u"Id", Long},
                                                {u"ParentId", Long},
                                                {u"Name", ColumnType::Text},
                                                {u"Type", Integer},
                                                {u"DateCreate", ColumnType::DateTime},
                                                {u"DateUpdate", ColumnType::DateTime},
                                                {u"Owner", Binary},
                                                {u"Flags", Long},
                                                {u"Database", Memo},
                                                {u"Connect", Memo},
                                                {u"ForeignName", ColumnType::Text},
                                                {u"RmtInfoShort", Binary},
                                                {u"RmtInfoLong", Ole},
                                                {u"Lv", Ole},
                                                {u"LvProp", Ole},
                                                {u"LvModule", Ole},
                                                {u"LvExtra", Ole}});
  markAccountColumn(layout, u"Owner");
  addIndex(layout, u"ParentIdName", {u"ParentId", u"Name"}, unique);
  addIndex(layout, u"Id", {u"Id"}, unique, IndexKind::PrimaryKey);
  return layout;
}

TableLayout accessRights() {
  using enum ColumnType;
  TableLayout layout = tableOf(
      u"MSysACEs", {{u"ObjectId", Long}, {u"SID", Binary}, {u"ACM", Long}, {u"FInheritable", Boolean}});
  markAccountColumn(layout, u"SID");
  addIndex(layout, u"ObjectId", {u"ObjectId"}, required);
  return layout;
}

TableLayout queries() {
  using enum ColumnType;
  TableLayout layout = tableOf(u"MSysQueries", {{u"ObjectId", Long},
                                                {u"Attribute", Byte},
                                                {u"Order", Binary},
                                                {u"Name1", ColumnType::Text},
                                                {u"Name2", ColumnType::Text},
                                                {u"Expression", Memo},
                                                {u"Flag", Integer},
                                                {u"LvExtra", Long}});
  addIndex(layout, u"ObjectIdAttribute", {u"ObjectId", u"Attribute", u"Order"}, unique,
           IndexKind::PrimaryKey);
  return layout;
}

TableLayout relationships() {
  using enum ColumnType;
  TableLayout layout = tableOf(u"MSysRelationships", {{u"szRelationship", ColumnType::Text},
                                                      {u"grbit", Long},
                                                      {u"ccolumn", Long},
                                                      {u"icolumn", Long},
                                                      {u"szObject", ColumnType::Text},
                                                      {u"szColumn", ColumnType::Text},
                                                      {u"szReferencedObject", ColumnType::Text},
                                                      {u"szReferencedColumn", ColumnType::Text}});
  for (const char16_t* column : {u"szRelationship", u"szObject", u"szReferencedObject"}) {
    addIndex(layout, column, {column}, ignoreNulls);
  }
  return layout;
}

}  // namespace

std::array<TableLayout, 4> systemTableLayouts() {
  return {objects(), accessRights(), queries(), relationships()};
}

}  // namespace jet::create
