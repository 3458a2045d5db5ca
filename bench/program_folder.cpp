#include "bench/program_folder.h"

#include <algorithm>
#include <fstream>

#include "bench/association.h"
#include "bench/jet_copy.h"
#include "jet/file.h"
#include "support/pfade.h"

namespace bench {
namespace {

constexpr std::size_t membershipsPerMember = 25;

// ASCII but for one ä, in Windows-1252.
constexpr const char* settings =
    "[Auszahlungen]\r\n"
    "UnterlieferungGruppe=Milchlieferanten\r\n"
    "Einzahlungen=Mitgliedsbeitrag\r\n"
    "GruppeNotwendig=Qualit\xE4tsprogramm\r\n"
    "GruppeNotwendig3b=Bio-Betriebe\r\n"
    "GesamtBetrag=1.250.000,00\r\n"
    "WortlautUeberweisung=Bonus\r\n"
    "EigeneIBAN=AT61 1904 3002 3457 3201\r\n"
    "EigeneBIC=MUSTAT2LXXX\r\n"
    "EigenerName=Milchgemeinschaft\r\n"
    "EigeneAdresse=4320 Perg, Hauptplatz 1\r\n";

}  // namespace

ProgramFolder::ProgramFolder(const std::filesystem::path& folder, std::size_t members) : folder_(folder) {
  std::filesystem::create_directories(folder);
  writeJet(makeAssociation(members + members / 10, members, membershipsPerMember * members, year),
           Indexes::AsVerbindo, folder / "Verbindo.mdb");
  std::ofstream(folder / "verbindo.ini", std::ios::binary) << settings;
  services_ = std::make_unique<pelvanto::Umgebung>(
      pelvanto::Aussenwelt{clock_, boxes_, surface_, numbers_, files_, jet::systemFiles(), printer_,
                           programs_},
      pelvanto::prozesswerteFuer(QString::fromStdString(folder.string()), files_));
}

ProgramFolder::~ProgramFolder() = default;

std::string ProgramFolder::complaints() const {
  std::string text;
  for (const pelvanto::Meldung& box : boxes_.shown) {
    if (box.symbol != pelvanto::Symbol::Information) text += box.text.toStdString() + "\n";
  }
  return text;
}

void ProgramFolder::deletePaymentFiles() const {
  std::vector<std::filesystem::path> found;
  for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
    if (entry.path().extension() == ".xml") found.push_back(entry.path());
  }
  for (const auto& path : found) std::filesystem::remove(path);
}

pelvanto::Antwort ProgramFolder::Boxes::zeigen(const pelvanto::Meldung& box) {
  shown.push_back(box);
  return box.knoepfe == pelvanto::Knoepfe::Ok ? pelvanto::Antwort::Ok : pelvanto::Antwort::Nein;
}

}  // namespace bench
