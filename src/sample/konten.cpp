#include "sample/konten.h"

namespace pelvanto::beispiel {

namespace {

std::u16string mitNullen(std::uint64_t zahl, std::size_t stellen) {
  std::u16string text(stellen, u'0');
  for (std::size_t i = stellen; i-- > 0; zahl /= 10) text[i] = static_cast<char16_t>(u'0' + zahl % 10);
  return text;
}

unsigned restVon97(const std::u16string& text) {
  unsigned rest = 0;
  for (const char16_t zeichen : text) {
    const bool ziffer = zeichen <= u'9';
    rest = ziffer ? (rest * 10 + (zeichen - u'0')) % 97 : (rest * 100 + (zeichen - u'A' + 10u)) % 97;
  }
  return rest;
}

std::u16string iban(const std::u16string& land, const std::u16string& nummer) {
  return land + mitNullen(98 - restVon97(nummer + land + u"00"), 2) + nummer;
}

}  // namespace

std::u16string ibanOesterreich(std::uint32_t bank, std::uint64_t konto) {
  return iban(u"AT", mitNullen(bank, 5) + mitNullen(konto, 11));
}

std::u16string ibanDeutschland(std::uint32_t bank, std::uint64_t konto) {
  return iban(u"DE", mitNullen(bank, 8) + mitNullen(konto, 10));
}

std::u16string inGruppen(const std::u16string& iban) {
  std::u16string text;
  for (std::size_t i = 0; i < iban.size(); ++i) {
    if (i > 0 && i % 4 == 0) text.push_back(u' ');
    text.push_back(iban[i]);
  }
  return text;
}

}  // namespace pelvanto::beispiel
