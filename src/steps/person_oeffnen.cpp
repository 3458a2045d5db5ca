#include "steps/person_oeffnen.h"

namespace pelvanto {

void personInVerbindoOeffnen(Umgebung& /*umgebung*/, const Liste& /*liste*/, const QString& /*name*/) {}

}  // namespace pelvanto
