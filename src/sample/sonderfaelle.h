#pragma once

#include <vector>

#include "sample/verbindo_tabellen.h"

namespace pelvanto::beispiel {

// A person made by hand, with everything that the steps look at.
struct Sonderfall {
  Person person{};
  ZahlOderNull menge = 20000;
  bool vorjahr = true, heuer = true;  // yearly payments
  bool qualitaet = true, bio = true;  // required groups
};

// Members of the delivery group that are what is rare in life: limits of quantities and bank details, odd
// names, unpaid contributions. IDs are not set.
std::vector<Sonderfall> sonderfaelle();

}  // namespace pelvanto::beispiel
