#include "payment/kontrollliste.h"

namespace pelvanto {

void Kontrollliste::anbieten(const QString& /*pfad*/, const UeberweisungT& /*tabelle*/,
                             const QString& /*eigeneIBAN*/, const QString& /*eigeneBIC*/) {
  static_cast<void>(druck_), static_cast<void>(meldungen_), static_cast<void>(protokoll_),
      static_cast<void>(typen_);
}

}  // namespace pelvanto
