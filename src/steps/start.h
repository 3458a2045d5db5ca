#pragma once

#include "steps/umgebung.h"

namespace pelvanto {

// Whether there is a contact database to work on, and it is the one that the contact program uses. False
// after the message why not: then the program ends.
bool datenbankBereit(Umgebung& umgebung);

}  // namespace pelvanto
