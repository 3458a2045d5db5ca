#pragma once

#include <cstddef>
#include <cstdint>

namespace pelvanto::beispiel {

// A small generator with the same sequence on every system, so that every sample folder of a year is the
// same.
class Zufall {
 public:
  explicit Zufall(std::uint64_t saat) : zustand_(saat) {}

  // 0 to grenze - 1.
  std::uint32_t unter(std::uint32_t grenze) {
    zustand_ = zustand_ * 6364136223846793005u + 1442695040888963407u;
    return static_cast<std::uint32_t>((zustand_ >> 33) % grenze);
  }
  std::int32_t zwischen(std::int32_t kleinste, std::int32_t groesste) {
    return kleinste + static_cast<std::int32_t>(unter(static_cast<std::uint32_t>(groesste - kleinste + 1)));
  }
  bool prozent(std::uint32_t anteil) { return unter(100) < anteil; }
  template <typename Liste>
  const auto& aus(const Liste& liste) {
    return liste[unter(static_cast<std::uint32_t>(liste.size()))];
  }

 private:
  std::uint64_t zustand_;
};

}  // namespace pelvanto::beispiel
