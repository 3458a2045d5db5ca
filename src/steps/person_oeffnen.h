#pragma once

#include "lists/liste.h"
#include "steps/umgebung.h"

namespace pelvanto {

// A double click in a list of steps 4 and 5: starts Verbindo with the person of the selected row (-1: none is
// selected). `name` is the list's name, for the message of a failure. An empty list does nothing.
void personInVerbindoOeffnen(Umgebung& umgebung, const Liste& liste, int zeile, const QString& name);

}  // namespace pelvanto
