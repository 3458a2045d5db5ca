#include "bench/mail_merge.h"

#include <stdexcept>

#include "bench/association.h"
#include "bench/program_folder.h"
#include "bench/sqlite_copy.h"
#include "steps/schritte.h"

namespace bench {

// Each person is several durable saves: the address, and one for every first name that is counted.
void measureMailMerge(Report& report, const std::filesystem::path& folder) {
  constexpr int persons = 300;
  ProgramFolder program(folder / "program", persons);
  pelvanto::Umgebung& services = program.services();
  pelvanto::Seiten pages;
  pages.seite1.txtUnterlieferungGruppe.text = QStringLiteral("Milchlieferanten");
  pelvanto::cmdErgebnisZeigen1_Click(services, pages);

  SqliteCopy sqlite(Association{}, Indexes::None, folder / "beside.sqlite");
  sqlite.writeDurably();
  const Association association = makeAssociation(persons, 0, 0, year);
  const Duel times = duel(
      1, [&] { services.serienbriefe.SerienbriefAdressenKopieren(pages.seite1.lvwListe1); },
      [&] { sqlite.insertEach(association.persons); });

  const auto connection = services.datenbank.direktOeffnen(services.werte.DatenbankPfad, true);
  const int copied = connection->abfragen(QStringLiteral("SELECT IDNummer FROM Adressen")).anzahl();
  if (copied != persons) throw std::runtime_error("mail merge: " + program.complaints());
  report.add({"mail merge of 300 persons", times.ours, "s", "SQLite", times.theirs, true, {}, {}});
}

}  // namespace bench
