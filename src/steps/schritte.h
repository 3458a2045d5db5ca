#pragma once

#include "steps/seiten.h"
#include "steps/umgebung.h"

// The steps of the wizard. Each rebuilds its page's lists from the list before as it stands, and sets the
// page's counters and buttons by its result. None sees a widget; each is one file.
namespace pelvanto {

void ListeFuellen1(Umgebung& umgebung, Seiten& seiten);   // schritt1.cpp
void ListeFuellen2(Umgebung& umgebung, Seiten& seiten);   // schritt2.cpp
void ListeFuellen3(Umgebung& umgebung, Seiten& seiten);   // schritt3.cpp
void ListeFuellen3b(Umgebung& umgebung, Seiten& seiten);  // schritt3.cpp
void ListeFuellen4(Umgebung& umgebung, Seiten& seiten);   // schritt4.cpp
void DatentraegerDatenSammeln(Umgebung& umgebung, Seiten& seiten);  // schritt5.cpp

// The focus of the field for the total amount has left it: the amount in the currency format.
void txtGesamtbetrag_LostFocus(Umgebung& umgebung, Seite4& seite);
// The run button of step 5: the step, then the buttons by its result.
void cmdErgebnisZeigen5_Click(Umgebung& umgebung, Seiten& seiten);
// The payment-file button: own account from the settings file, file, message, transfer table released.
void cmdDatentraegerErstellen_Click(Umgebung& umgebung, Seiten& seiten);

// Delete key in a list of steps 1 to 3b: removes the selected rows and counts them beside the list.
void markierteZeilenLoeschen(const DatenTypen& typen, Liste& liste, Beschriftung& geloescht,
                             Beschriftung& geloeschtLabel, Beschriftung& ergebnis);

}  // namespace pelvanto
