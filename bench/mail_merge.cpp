#include "bench/mail_merge.h"

#include <stdexcept>

#include "bench/association.h"
#include "bench/program_folder.h"
#include "bench/sqlite_copy.h"
#include "jet/create/database_builder.h"
#include "sample/verbindo_tabellen.h"
#include "steps/schritte.h"

namespace bench {
namespace {

namespace beispiel = pelvanto::beispiel;

// The database with all of Verbindo's tables: a copy writes into more of them than the steps read.
void writeVerbindo(const Association& association, const std::filesystem::path& path) {
  beispiel::VerbindoDaten data;
  for (const Person& person : association.persons) {
    data.personen.push_back({.id = person.id,
                             .namen = person.name,
                             .adresse = person.address,
                             .telefon = person.telephone,
                             .ustPauschaliert = person.flatRate});
  }
  for (const Group& group : association.groups) data.gruppen.push_back({group.id, group.name});
  for (const Membership& membership : association.memberships) {
    data.mitglieder.push_back({membership.person, membership.group, membership.number});
  }
  for (const char16_t* name : {u"Franz", u"Jürgen", u"Josef", u"Günther"}) {
    data.vornamen.push_back({.vorname = name, .maennlich = true});
  }
  for (const char16_t* name : {u"Maria", u"Käthe", u"Anna-Maria"}) data.vornamen.push_back({.vorname = name});
  jet::create::DatabaseBuilder builder;
  beispiel::tabellenBauen(builder, data);
  std::filesystem::remove(path);
  builder.write(jet::systemFiles(), path);
}

}  // namespace

// Each person is several durable saves: the address, and one for every first name that is counted.
void measureMailMerge(Report& report, const std::filesystem::path& folder) {
  constexpr int persons = 300;
  const Association association = makeAssociation(persons, persons, 0, year);
  ProgramFolder program(folder / "program", persons);
  writeVerbindo(association, folder / "program" / "Verbindo.mdb");
  pelvanto::Umgebung& services = program.services();
  pelvanto::Seiten pages;
  pages.seite1.txtUnterlieferungGruppe.text = QStringLiteral("Milchlieferanten");
  pelvanto::cmdErgebnisZeigen1_Click(services, pages);

  SqliteCopy sqlite(Association{}, Indexes::None, folder / "beside.sqlite");
  sqlite.writeDurably();
  const Duel times = duel(
      1, [&] { services.serienbriefe.SerienbriefAdressenKopieren(pages.seite1.lvwListe1); },
      [&] { sqlite.insertEach(association.persons); });

  const auto connection = services.datenbank.direktOeffnen(services.werte.DatenbankPfad, true);
  const int copied = connection->abfragen(QStringLiteral("SELECT IDNummer FROM Adressen")).anzahl();
  if (copied != persons) throw std::runtime_error("mail merge: " + program.complaints());
  report.add({"mail merge of 300 persons", times.ours, "s", "SQLite", times.theirs, true, {}, {}});
}

}  // namespace bench
