#pragma once

#include "crash/scenario.h"

namespace jet::test {

// Saves of whole pages: some change the middle of the file, page 1 and a definition, some let it grow.
Scenario pageScenario();

}  // namespace jet::test
