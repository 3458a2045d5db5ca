#include "bench/window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>

#include <stdexcept>

#include "bench/program_folder.h"
#include "shell/haupt_fenster.h"
#include "shell/listen_ansicht.h"

namespace bench {
namespace {

constexpr int members = 20000;
constexpr double aim = 0.5, floor_ = 1;

void require(bool holds, const char* what) {
  if (!holds) throw std::runtime_error(std::string("window: ") + what);
}

// Until everything is painted.
double shown(const std::function<void()>& action) {
  return seconds([&] {
    action();
    QApplication::processEvents();
  });
}

}  // namespace

void measureWindow(Report& report, const std::filesystem::path& folder) {
  ProgramFolder program(folder, members);
  pelvanto::HauptFenster window(program.services());
  require(window.starten(), "start");
  window.show();
  QApplication::processEvents();
  auto* run = window.findChild<QAbstractButton*>("cmdErgebnisZeigen1");
  auto* list = window.findChild<pelvanto::ListenAnsicht*>("lvwListe1");
  require(run != nullptr && list != nullptr, "controls");
  const auto rows = [&] { return window.seiten().seite1.lvwListe1.anzahl(); };

  const double fill = shown([&] { run->click(); });
  require(rows() == members, "rows after filling");
  report.add({"window: query and fill a list of 20,000 rows", fill, "s", {}, 0, true, aim, floor_});

  constexpr int addressColumn = 2;
  const double sort = shown([&] { emit list->spalteAngeklickt(addressColumn); });
  report.add({"window: sort it by another column", sort, "s", {}, 0, true, aim, floor_});

  const double erase = shown([&] {
    list->selectAll();
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    QApplication::sendEvent(list, &key);
  });
  require(rows() == 0, "rows after deleting");
  report.add({"window: select and delete all rows", erase, "s", {}, 0, true, aim, floor_});
}

}  // namespace bench
