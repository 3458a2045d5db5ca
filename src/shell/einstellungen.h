#pragma once

#include "steps/seiten.h"
#include "support/funktionen_fuer_ini.h"

namespace pelvanto {

// The eleven settings that fill the wizard's text boxes at the start, in the order in which they are read
// and written. They share the settings file with the contact program, in a section of their own.
void einstellungenLesen(const FunktionenFürINI& ini, Seiten& seiten);
// Texts without their outer blanks, also the empty ones.
void einstellungenSpeichern(FunktionenFürINI& ini, Seiten& seiten);

}  // namespace pelvanto
