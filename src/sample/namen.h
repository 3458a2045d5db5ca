#pragma once

#include <span>
#include <string_view>

namespace pelvanto::beispiel {

struct BekannterVorname {
  std::u16string_view name;
  bool maennlich;
};

struct BekannterOrt {
  std::u16string_view plz;
  std::u16string_view ort;
};

// Words of which the invented people are put together.
std::span<const BekannterVorname> vornamen();
std::span<const std::u16string_view> titel();
std::span<const std::u16string_view> familiennamen();
std::span<const BekannterOrt> orte();
std::span<const std::u16string_view> strassen();
std::span<const std::u16string_view> notizworte();

}  // namespace pelvanto::beispiel
