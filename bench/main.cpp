#include <QApplication>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string_view>

#include "bench/crash.h"
#include "bench/engine.h"
#include "bench/mail_merge.h"
#include "bench/payout.h"
#include "bench/report.h"
#include "bench/window.h"
#include "bench/writing.h"
#include "database/datenbankfehler.h"

namespace {

// Files of the measurements; gone at the end.
struct TemporaryFolder {
  TemporaryFolder() : path(std::filesystem::temp_directory_path() / "pelvanto_bench") {
    std::filesystem::create_directories(path);
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  std::filesystem::path path;
};

}  // namespace

// "--crash": the long proof that saves survive a loss of power, instead of the measurements.
// Ends with 1 if a floor is missed or a promise broken, 2 if something failed.
int main(int count, char** arguments) {
  if (count > 1 && std::string_view(arguments[1]) == "--crash") return bench::loseThePower() ? 0 : 1;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(count, arguments);
  try {
    const TemporaryFolder folder;
    const auto here = std::filesystem::path(arguments[0]).parent_path();
    bench::Report report;
    report.printHead();
    bench::measureEngine(report, folder.path, here / "pelvanto_bench_memory");
    bench::measureWriting(report, folder.path / "writing");
    bench::measureMailMerge(report, folder.path / "mail");
    bench::measurePayout(report, folder.path / "payout");
    bench::measureWindow(report, folder.path / "window");
    if (report.aimMissed()) std::printf("At least one aim is missed.\n");
    if (report.floorMissed()) std::printf("At least one floor is missed.\n");
    return report.floorMissed() ? 1 : 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "pelvanto_bench: %s\n", error.what());
  } catch (const pelvanto::Datenbankfehler& error) {
    std::fprintf(stderr, "pelvanto_bench: %s\n", qPrintable(error.beschreibung));
  }
  return 2;
}
