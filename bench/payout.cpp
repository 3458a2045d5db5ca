#include "bench/payout.h"

#include <stdexcept>

#include "bench/program_folder.h"
#include "steps/schritte.h"

namespace bench {
namespace {

constexpr int rounds = 3;

void require(const ProgramFolder& program, bool holds, const char* what) {
  if (!holds) throw std::runtime_error(std::string("payout: ") + what + " " + program.complaints());
}

pelvanto::Seiten freshPages() {
  pelvanto::Seiten pages;
  pages.seite1.txtUnterlieferungGruppe.text = QStringLiteral("Milchlieferanten");
  pages.seite2.txtEinzahlungen.text = QStringLiteral("Mitgliedsbeitrag");
  pages.seite3.txtGruppeNotwendig.text = QStringLiteral("Qualitätsprogramm");
  pages.seite3b.txtGruppeNotwendig3b.text = QStringLiteral("Bio-Betriebe");
  pages.seite4.txtGesamtbetrag.text = QStringLiteral("1.250.000,00");
  pages.seite5.txtWortlautUeberweisung.text = QStringLiteral("Bonus");
  return pages;
}

// All run buttons and the payment file, as one clerk presses them.
void payOut(ProgramFolder& program, int members) {
  pelvanto::Umgebung& services = program.services();
  pelvanto::Seiten pages = freshPages();
  pelvanto::cmdErgebnisZeigen1_Click(services, pages);
  require(program, pages.seite1.lvwListe1.anzahl() == members, "members of step 1");
  pelvanto::cmdErgebnisZeigen2_Click(services, pages);
  pelvanto::cmdErgebnisZeigen3_Click(services, pages);
  pelvanto::cmdErgebnisZeigen3b_Click(services, pages);
  require(program, pages.seite3b.lvwListe3b.anzahl() == members, "members of step 3b");
  pelvanto::cmdErgebnisZeigen4_Click(services, pages);
  pelvanto::cmdErgebnisZeigen5_Click(services, pages);
  require(program, pages.ueberweisungT && pages.ueberweisungT->size() == static_cast<std::size_t>(members),
          "transfers");
  pelvanto::cmdDatentraegerErstellen_Click(services, pages);
  require(program, !pages.ueberweisungT, "payment file");
}

void measureSize(Report& report, const std::filesystem::path& folder, int members, std::optional<double> aim,
                 std::optional<double> floor) {
  ProgramFolder program(folder, static_cast<std::size_t>(members));
  const double all = best(rounds, [&] {
    program.deletePaymentFiles();
    payOut(program, members);
  });
  const std::string count = std::to_string(members);
  report.add({"steps 1 to 5 with payment file, " + count + " members", all, "s", {}, 0, true, aim, floor});
  if (!program.complaints().empty()) throw std::runtime_error(program.complaints());

  pelvanto::Seiten pages = freshPages();
  pelvanto::cmdErgebnisZeigen1_Click(program.services(), pages);
  const double second = best(rounds, [&] { pelvanto::cmdErgebnisZeigen2_Click(program.services(), pages); });
  require(program, pages.seite2.lvwListe2.anzahl() == members, "members of step 2");
  report.add({"step 2, " + count + " members", second, "s", {}, 0, true, {}, {}});
}

void measureTransfers(Report& report, const std::filesystem::path& folder) {
  constexpr int count = 10000;
  ProgramFolder program(folder, 10);
  pelvanto::UeberweisungT table;
  for (int i = 0; i < count; ++i) {
    pelvanto::Ueberweisung transfer;
    transfer.KundeIBAN = QStringLiteral("AT611904300234573201");
    transfer.KundeBIC = QStringLiteral("BKAUATWWXXX");
    transfer.EinzelBetrag = pelvanto::Waehrung::ausCent(i + 1);
    transfer.KundeName = QStringLiteral("Österreicher Jürgen %1").arg(i);
    transfer.KundeAdresse = QStringLiteral("4320 Perg, Linzer Straße %1").arg(i);
    transfer.Verwendungszweck = QStringLiteral("Bonus 2025 & danke");
    transfer.AuftraggeberReferenz = QString::number(i);
    table.push_back(transfer);
  }
  const double time = best(rounds, [&] {
    program.deletePaymentFiles();
    QString path;
    const bool written = program.services().zahlungsverkehr.UeberweisungDateiErstellen(
        table, QStringLiteral("AT611904300234573201"), QStringLiteral("MUSTAT2LXXX"), path);
    require(program, written, "transfers");
  });
  report.add({"10,000 transfers written and checked", time, "s", {}, 0, true, 0.1, 0.3});
}

}  // namespace

void measurePayout(Report& report, const std::filesystem::path& folder) {
  measureSize(report, folder / "2000", 2000, {}, {});
  measureSize(report, folder / "20000", 20000, 3, 6);
  measureTransfers(report, folder / "transfers");
}

}  // namespace bench
