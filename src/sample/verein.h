#pragma once

#include "sample/verbindo_tabellen.h"

namespace pelvanto::beispiel {

// An invented association with about 300 persons, some 240 of them in the delivery group "Milchlieferanten",
// and every case that the payout knows. `jahr`: the year of the payout; the groups of the yearly payments are
// those up to it. The same year gives the same data.
VerbindoDaten verein(int jahr);

}  // namespace pelvanto::beispiel
