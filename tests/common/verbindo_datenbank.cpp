#include "common/verbindo_datenbank.h"

namespace pelvanto::test {

VerbindoDatenbank& VerbindoDatenbank::person(Person person) {
  daten.personen.push_back(std::move(person));
  return *this;
}

VerbindoDatenbank& VerbindoDatenbank::gruppe(std::int32_t id, beispiel::TextOderNull bezeichnung) {
  daten.gruppen.push_back({id, std::move(bezeichnung)});
  return *this;
}

VerbindoDatenbank& VerbindoDatenbank::mitglied(beispiel::ZahlOderNull person, beispiel::ZahlOderNull gruppe,
                                               beispiel::ZahlOderNull menge) {
  daten.mitglieder.push_back({person, gruppe, menge});
  return *this;
}

VerbindoDatenbank& VerbindoDatenbank::vorname(beispiel::Vorname vorname) {
  daten.vornamen.push_back(std::move(vorname));
  return *this;
}

VerbindoDatenbank& VerbindoDatenbank::anschrift(beispiel::Anschrift anschrift) {
  daten.adressen.push_back(std::move(anschrift));
  return *this;
}

std::vector<std::uint8_t> VerbindoDatenbank::bytes() const {
  jet::create::DatabaseBuilder datenbank(datei);
  beispiel::tabellenBauen(datenbank, daten, optionen);
  return datenbank.finish();
}

void VerbindoDatenbank::schreiben(const std::filesystem::path& pfad) const {
  std::filesystem::remove(pfad);
  jet::writeNewFile(jet::systemFiles(), pfad, bytes());
}

}  // namespace pelvanto::test
