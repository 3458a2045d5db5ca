#pragma once

#include "steps/umgebung.h"

namespace pelvanto {

// A double click in a list of steps 4 and 5: starts Verbindo with the selected person. `liste` is the list's
// name, for the message of a failure. An empty list does nothing.
void personInVerbindoOeffnen(Umgebung& umgebung, const Liste& liste, const QString& name);

}  // namespace pelvanto
