#include "lists/liste_drucken.h"

namespace pelvanto {

std::vector<DruckSpalte> druckSpalten(const std::vector<Spalte>& /*spalten*/, int /*linkerRand*/,
                                      int /*rechterRand*/) {
  return {};
}

bool Listendruck::SpaltenkoepfeDrucken(const std::vector<DruckSpalte>& /*spalten*/, int /*punkte*/) {
  return false;
}

bool Listendruck::ListeDrucken(const Liste& /*liste*/, const QString& /*titel*/,
                               const QString& /*untertitel*/, bool /*ohneFuenferabstand*/) {
  static_cast<void>(druck_), static_cast<void>(meldungen_), static_cast<void>(protokoll_);
  return false;
}

}  // namespace pelvanto
