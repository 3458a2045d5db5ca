#pragma once

#include <cstdint>
#include <string>

namespace pelvanto::beispiel {

// IBANs with right check digits, without blanks. `bank`: bank code, `konto`: account number.
std::u16string ibanOesterreich(std::uint32_t bank, std::uint64_t konto);
std::u16string ibanDeutschland(std::uint32_t bank, std::uint64_t konto);
// In groups of four with a blank between them.
std::u16string inGruppen(const std::u16string& iban);

}  // namespace pelvanto::beispiel
