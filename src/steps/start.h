#pragma once

#include "steps/umgebung.h"

namespace pelvanto {

// False after the message that the settings file cannot be read, which closes with `folge`. What would be
// done with the defaults instead, such as a payment file without the own account, must not be done.
bool einstellungenLesbar(Umgebung& umgebung, const QString& folge);
// Whether there is a contact database to work on, and it is the one that the contact program uses. False
// after the message why not: then the program ends.
bool datenbankBereit(Umgebung& umgebung);

}  // namespace pelvanto
