#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

#include "sample/verbindo_tabellen.h"

namespace pelvanto::test {

// A Verbindo.mdb for tests, in few words:
//   VerbindoDatenbank db;
//   db.person({.id = 1, .namen = u"Maier Hans", .adresse = u"4020 Linz, Am Damm 1"});
//   db.gruppe(7, u"Milchlieferanten");
//   db.mitglied(1, 7, 12000);
//   db.schreiben(ordner / "Verbindo.mdb");
// Rows are stored in the order of the calls; memberships are numbered from 1 on, without gaps where no rows
// were deleted. Fields left out are Null.
class VerbindoDatenbank {
 public:
  using Person = beispiel::Person;

  VerbindoDatenbank& person(Person person);
  VerbindoDatenbank& gruppe(std::int32_t id, beispiel::TextOderNull bezeichnung);
  // `menge`: quantity in kilograms, or any other number of the membership; nullopt is Null.
  VerbindoDatenbank& mitglied(beispiel::ZahlOderNull person, beispiel::ZahlOderNull gruppe,
                              beispiel::ZahlOderNull menge = std::nullopt);
  VerbindoDatenbank& vorname(beispiel::Vorname vorname);
  VerbindoDatenbank& anschrift(beispiel::Anschrift anschrift);

  beispiel::VerbindoDaten daten;
  beispiel::Tabellenoptionen optionen;                  // without secondary indexes, deleted rows, moved rows
  jet::create::BuildOptions datei{.created = 45000.5};  // password, encoding

  // The whole file.
  std::vector<std::uint8_t> bytes() const;
  // The same as a file, in place of one that is there.
  void schreiben(const std::filesystem::path& pfad) const;
};

}  // namespace pelvanto::test
