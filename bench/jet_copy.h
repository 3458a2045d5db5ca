#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "bench/association.h"
#include "jet/value.h"

namespace bench {

// Which indexes the memberships have beside the key. As Verbindo makes them: person and group together, and
// each alone.
enum class Indexes { AsVerbindo, GroupOnly, PersonOnly, None };

// Writes the association as a new database file.
void writeJet(const Association& association, Indexes indexes, const std::filesystem::path& path);

// The values of a row of Namensliste, in the order of its columns.
std::vector<jet::Value> rowOf(const Person& person);

namespace queries {
// The members of a group, as the first step of the payout asks for them.
inline constexpr const char16_t* members =
    u"SELECT Namensliste.ID, Namensliste.Namen, Namensliste.Adresse, Namensliste.Telefon FROM "
    u"((PersonenGruppen "
    u"INNER JOIN PersonenGruppenBezeichnungen ON PersonenGruppenBezeichnungen.ID = "
    u"PersonenGruppen.GruppenID) "
    u"INNER JOIN Namensliste ON Namensliste.ID = PersonenGruppen.PersonenID) "
    u"WHERE PersonenGruppenBezeichnungen.Bezeichnung = 'Milchlieferanten' "
    u"ORDER BY Namensliste.Namen, Namensliste.Adresse";
std::u16string person(std::int32_t id);
std::u16string membership(std::int32_t person, std::int32_t group);
}  // namespace queries

}  // namespace bench
