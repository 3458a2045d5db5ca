#include "sample/verbindo_tabellen.h"

#include "sample/verbindo_schema.h"

namespace pelvanto::beispiel {

namespace {

using jet::Value;
using jet::create::DatabaseBuilder;
using jet::create::TableBuilder;

Value wert(const TextOderNull& text) { return text ? Value(*text) : Value(); }
Value wert(const ZahlOderNull& zahl) { return zahl ? Value(*zahl) : Value(); }

std::vector<Value> zeile(const Person& person) {
  return {person.id,
          wert(person.namen),
          wert(person.kurzzeichen),
          wert(person.adresse),
          wert(person.telefon),
          person.geburtsdatum ? Value(jet::DateTime{*person.geburtsdatum}) : Value(),
          person.ustPauschaliert,
          wert(person.uidNummer),
          wert(person.notiz),
          wert(person.iban),
          wert(person.bic),
          person.umsatz ? Value(jet::Currency{*person.umsatz}) : Value(),
          wert(person.familie),
          wert(person.firma),
          wert(person.keineAnrede),
          wert(person.besondereBriefanrede),
          wert(person.eMail),
          wert(person.faxNummern),
          wert(person.keinFax),
          wert(person.keinMail),
          wert(person.du)};
}

std::vector<Value> zeile(const Gruppe& gruppe) { return {gruppe.id, wert(gruppe.bezeichnung), Value()}; }

std::vector<Value> zeile(const Mitgliedschaft& mitglied) {
  return {Value(), wert(mitglied.person), wert(mitglied.gruppe), wert(mitglied.menge), Value()};
}

std::vector<Value> zeile(const Vorname& name) {
  return {name.vorname, name.titel, name.titelOben, name.akademischerGrad, name.maennlich, wert(name.anzahl)};
}

std::vector<Value> zeile(const Anschrift& anschrift) {
  const Text ganzerName = anschrift.vorname + u" " + anschrift.famname;
  const Text plzOrt = anschrift.plz + u" " + anschrift.ort;
  std::vector<Value> werte(23);
  werte[1] = anschrift.anrede;
  werte[2] = anschrift.vorname;
  werte[3] = plzOrt;
  werte[4] = anschrift.strasse;
  werte[5] = u"Sehr geehrte/r " + anschrift.anrede + u" " + anschrift.famname;
  werte[8] = anschrift.idNummer;
  werte[9] = anschrift.famname;
  werte[14] = anschrift.du;
  werte[15] = anschrift.anrede + u" " + ganzerName;
  werte[16] = ganzerName;
  werte[17] = anschrift.plz;
  werte[18] = anschrift.ort;
  werte[19] = anschrift.strasse;
  werte[21] = Text(u"neu");
  werte[22] = std::int32_t{1};
  return werte;
}

// Rows that have moved or gone leave traces at regular distances.
template <typename Zeile>
void fuellen(TableBuilder& tabelle, const std::vector<Zeile>& zeilen, const Tabellenoptionen& optionen) {
  constexpr std::size_t abstandGeloescht = 6, abstandVerschoben = 4;
  std::vector<jet::RowId> verschieben;
  for (std::size_t i = 0; i < zeilen.size(); ++i) {
    if (optionen.geloeschteZeilen && i % abstandGeloescht == 0)
      tabelle.erase(tabelle.insert(zeile(zeilen[i])));
    const jet::RowId id = tabelle.insert(zeile(zeilen[i]));
    if (i % abstandVerschoben == 1) verschieben.push_back(id);
  }
  if (!optionen.verschobeneZeilen) return;
  for (const jet::RowId id : verschieben) tabelle.move(id);
}

}  // namespace

void tabellenBauen(DatabaseBuilder& datenbank, const VerbindoDaten& daten, const Tabellenoptionen& optionen) {
  const auto tabelle = [&](jet::create::TableSpec schema) -> TableBuilder& {
    if (!optionen.nebenindexe)
      std::erase_if(schema.indexes, [](const auto& index) { return !index.primaryKey; });
    return datenbank.addTable(schema);
  };
  fuellen(tabelle(schemaAdressen()), daten.adressen, optionen);
  fuellen(tabelle(schemaNamensliste()), daten.personen, optionen);
  fuellen(tabelle(schemaPersonenGruppen()), daten.mitglieder, optionen);
  fuellen(tabelle(schemaPersonenGruppenBezeichnungen()), daten.gruppen, optionen);
  fuellen(tabelle(schemaVornamen()), daten.vornamen, optionen);
}

}  // namespace pelvanto::beispiel
