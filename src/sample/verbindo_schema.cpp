#include "sample/verbindo_schema.h"

namespace pelvanto::beispiel {

namespace {

using jet::ColumnType;
using jet::create::ColumnSpec;
using jet::create::TableSpec;

ColumnSpec text(const char16_t* name, std::uint16_t zeichen) {
  return {.name = name, .type = ColumnType::Text, .characters = zeichen};
}
ColumnSpec spalte(const char16_t* name, ColumnType typ) { return {.name = name, .type = typ}; }
ColumnSpec zaehler(const char16_t* name) {
  return {.name = name, .type = ColumnType::Long, .autoNumber = true};
}
ColumnSpec mitVorgabe(ColumnSpec spalte, const char16_t* vorgabe) {
  spalte.defaultValue = vorgabe;
  return spalte;
}

}  // namespace

TableSpec schemaAdressen() {
  using enum ColumnType;
  return {.name = u"Adressen",
          .columns = {zaehler(u"AdressenID"),
                      text(u"Anrede", 30),
                      text(u"Vorname", 40),
                      text(u"PLZOrt", 40),
                      text(u"Adresse", 50),
                      text(u"Sehr_geehr", 100),
                      text(u"Titel", 30),
                      text(u"Fax", 60),
                      spalte(u"IDNummer", Long),
                      text(u"Famname", 60),
                      text(u"TitelOben", 40),
                      text(u"NamenZusatzZeile", 60),
                      text(u"EMail", 120),
                      text(u"Telefon", 120),
                      spalte(u"Du", Boolean),
                      text(u"GanzeAnrede", 70),
                      text(u"GanzerName", 130),
                      text(u"PLZ", 7),
                      text(u"Ort", 50),
                      text(u"Straße", 50),
                      text(u"InternationaleFaxNummer", 70),
                      mitVorgabe(text(u"Kennzeichen", 20), u"\"neu\""),
                      mitVorgabe(spalte(u"Druckanzahl", Long), u"1")},
          .indexes = {{.name = u"PrimaryKey", .columns = {u"AdressenID"}, .primaryKey = true},
                      {.name = u"IDNummer", .columns = {u"IDNummer"}, .unique = true},
                      {.name = u"Famname", .columns = {u"Famname"}}}};
}

TableSpec schemaNamensliste() {
  using enum ColumnType;
  ColumnSpec bic = text(u"BIC", 15);
  bic.compressed = false;
  return {.name = u"Namensliste",
          .columns = {zaehler(u"ID"),
                      text(u"Namen", 255),
                      text(u"Kurzzeichen", 12),
                      text(u"Adresse", 255),
                      text(u"Telefon", 120),
                      spalte(u"Geburtsdatum", DateTime),
                      spalte(u"UstPauschaliert", Boolean),
                      text(u"UIDNummer", 20),
                      spalte(u"Notiz", Memo),
                      text(u"IBAN", 40),
                      bic,
                      spalte(u"Umsatz", Currency),
                      spalte(u"Familie", Integer),
                      spalte(u"Firma", Integer),
                      spalte(u"KeineAnrede", Integer),
                      text(u"BesondereBriefanrede", 100),
                      text(u"EMail", 255),
                      text(u"FaxNummern", 100),
                      spalte(u"KeinFax", Integer),
                      spalte(u"KeinMail", Integer),
                      spalte(u"Du", Integer)},
          .indexes = {{.name = u"PrimaryKey", .columns = {u"ID"}, .primaryKey = true},
                      {.name = u"Namen", .columns = {u"Namen"}}}};
}

TableSpec schemaPersonenGruppen() {
  using enum ColumnType;
  return {.name = u"PersonenGruppen",
          .columns = {zaehler(u"ID"), spalte(u"PersonenID", Long), spalte(u"GruppenID", Long),
                      spalte(u"GrosseGanzeZahl", Long), text(u"Bemerkung", 50)},
          .indexes = {{.name = u"PrimaryKey", .columns = {u"ID"}, .primaryKey = true},
                      {.name = u"PersonenID", .columns = {u"PersonenID"}},
                      {.name = u"GruppenID", .columns = {u"GruppenID"}},
                      {.name = u"PersonGruppe", .columns = {u"PersonenID", u"GruppenID"}}}};
}

TableSpec schemaPersonenGruppenBezeichnungen() {
  return {.name = u"PersonenGruppenBezeichnungen",
          .columns = {zaehler(u"ID"), text(u"Bezeichnung", 100), spalte(u"Farbe", ColumnType::Long)},
          .indexes = {{.name = u"PrimaryKey", .columns = {u"ID"}, .primaryKey = true},
                      {.name = u"Bezeichnung", .columns = {u"Bezeichnung"}}}};
}

TableSpec schemaVornamen() {
  using enum ColumnType;
  return {.name = u"Vornamen",
          .columns = {text(u"Vorname", 50), spalte(u"Titel", Boolean), spalte(u"TitelOben", Boolean),
                      spalte(u"AkademischerGrad", Boolean), spalte(u"Männlich", Boolean),
                      spalte(u"Anzahl", Long)},
          .indexes = {{.name = u"Vorname", .columns = {u"Vorname"}, .unique = true}}};
}

}  // namespace pelvanto::beispiel
