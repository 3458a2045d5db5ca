#include "fuzz/targets.h"

#include <array>

namespace jet::fuzz {

std::span<const Target> targets() {
  static constexpr std::array all{Target{"opening", runOpening}, Target{"check", runCheck},
                                  Target{"scan", runScan},       Target{"index", runIndex},
                                  Target{"journal", runJournal}, Target{"sql", runSql},
                                  Target{"write", runWrite}};
  return all;
}

}  // namespace jet::fuzz
