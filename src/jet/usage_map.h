#pragma once

#include <cstdint>
#include <vector>

#include "jet/page_file.h"
#include "jet/warning.h"

namespace jet {

// The pages of a usage map, ascending. `pointer` is the map's place (page and row); `from` is the page that
// named it, for the error. Pages outside the file are left out with one warning. Errors: Damaged.
std::vector<std::uint32_t> readUsageMap(const PageFile& file, std::uint32_t pointer, std::uint32_t from,
                                        const WarningSink& warn = {});

}  // namespace jet
