#pragma once

#include <array>

#include "jet/create/table_layout.h"

namespace jet::create {

// MSysObjects, MSysACEs, MSysQueries, MSysRelationships, as every file of Access has them.
std::array<TableLayout, 4> systemTableLayouts();

}  // namespace jet::create
