#pragma once

#include "seams/dateisystem.h"

namespace pelvanto {

// The error with this number and its German description; a number that is not listed gives "Dateifehler".
Dateifehler dateifehlerMitNummer(int nummer);
// The error that a system call left (errno; on Windows GetLastError), as the program numbers it.
Dateifehler dateifehlerAusSystem(unsigned long systemfehler);

}  // namespace pelvanto
