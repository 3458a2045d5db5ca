#include "steps/auszahlung.h"

#include <cfloat>

namespace pelvanto {
namespace {

static_assert(FLT_EVAL_METHOD == 0, "doubles must be computed as doubles: wider ones change cents");

std::optional<Waehrung> ausGerundetenCent(double cent) {
  const std::optional<qint64> ganze = rundenAufGeradeZahl(cent);
  if (!ganze) return std::nullopt;
  return Waehrung::ausZehntausendsteln(*ganze).mal(100);
}

}  // namespace

std::optional<Waehrung> anteilGerundetAufGeradeCent(Waehrung gesamt, qint64 basis, qint64 summe) {
  if (summe <= 0) return std::nullopt;
  const std::optional<Waehrung> produkt = gesamt.mal(basis);
  if (!produkt) return std::nullopt;
  const double anteil = produkt->alsDouble() / static_cast<double>(summe);
  return ausGerundetenCent(anteil * 100);
}

std::optional<Waehrung> steuerGerundetAufGeradeCent(Waehrung netto, int satz) {
  return ausGerundetenCent(netto.alsDouble() * satz);
}

}  // namespace pelvanto
