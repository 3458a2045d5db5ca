#pragma once

#include <filesystem>

namespace pelvanto::beispiel {

// Puts Verbindo.mdb and verbindo.ini into `ordner` (made if it is absent), in place of those that are there;
// nothing else is touched. `jahr`: the year of the payout. `heute`: creation date in the database, days since
// 1899-12-30. Errors: jet::Error, std::filesystem::filesystem_error.
void beispielordnerAnlegen(const std::filesystem::path& ordner, int jahr, double heute);

}  // namespace pelvanto::beispiel
