#include "seams/real/landesvorwahl.h"

#include <algorithm>
#include <array>

namespace pelvanto {

namespace {

struct Vorwahl {
  QLocale::Country land;
  int nummer;
};

// ITU-T E.164, assigned country codes.
constexpr std::array kVorwahlen{
    Vorwahl{QLocale::Albania, 355},       Vorwahl{QLocale::Andorra, 376},
    Vorwahl{QLocale::Austria, 43},        Vorwahl{QLocale::Belarus, 375},
    Vorwahl{QLocale::Belgium, 32},        Vorwahl{QLocale::BosniaAndHerzegowina, 387},
    Vorwahl{QLocale::Bulgaria, 359},      Vorwahl{QLocale::Croatia, 385},
    Vorwahl{QLocale::Cyprus, 357},        Vorwahl{QLocale::CzechRepublic, 420},
    Vorwahl{QLocale::Denmark, 45},        Vorwahl{QLocale::Estonia, 372},
    Vorwahl{QLocale::Finland, 358},       Vorwahl{QLocale::France, 33},
    Vorwahl{QLocale::Germany, 49},        Vorwahl{QLocale::Greece, 30},
    Vorwahl{QLocale::Hungary, 36},        Vorwahl{QLocale::Iceland, 354},
    Vorwahl{QLocale::Ireland, 353},       Vorwahl{QLocale::Italy, 39},
    Vorwahl{QLocale::Kosovo, 383},        Vorwahl{QLocale::Latvia, 371},
    Vorwahl{QLocale::Liechtenstein, 423}, Vorwahl{QLocale::Lithuania, 370},
    Vorwahl{QLocale::Luxembourg, 352},    Vorwahl{QLocale::Macedonia, 389},
    Vorwahl{QLocale::Malta, 356},         Vorwahl{QLocale::Moldova, 373},
    Vorwahl{QLocale::Monaco, 377},        Vorwahl{QLocale::Montenegro, 382},
    Vorwahl{QLocale::Netherlands, 31},    Vorwahl{QLocale::Norway, 47},
    Vorwahl{QLocale::Poland, 48},         Vorwahl{QLocale::Portugal, 351},
    Vorwahl{QLocale::Romania, 40},        Vorwahl{QLocale::SanMarino, 378},
    Vorwahl{QLocale::Serbia, 381},        Vorwahl{QLocale::Slovakia, 421},
    Vorwahl{QLocale::Slovenia, 386},      Vorwahl{QLocale::Spain, 34},
    Vorwahl{QLocale::Sweden, 46},         Vorwahl{QLocale::Switzerland, 41},
    Vorwahl{QLocale::Turkey, 90},         Vorwahl{QLocale::Ukraine, 380},
    Vorwahl{QLocale::UnitedKingdom, 44}};

}  // namespace

int landesvorwahlVon(const QLocale& schema) {
  const auto gefunden = std::ranges::find(kVorwahlen, schema.territory(), &Vorwahl::land);
  return gefunden == kVorwahlen.end() ? 0 : gefunden->nummer;
}

}  // namespace pelvanto
