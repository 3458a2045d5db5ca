#pragma once

#include "steps/seiten.h"
#include "steps/umgebung.h"

// The steps of the wizard. Each rebuilds its page's lists from the list before as it stands, and sets the
// page's counters and buttons by its result. None sees a widget; each is one file.
namespace pelvanto {

void ListeFuellen1(Umgebung& umgebung, Seiten& seiten);             // schritt1.cpp
void ListeFuellen2(Umgebung& umgebung, Seiten& seiten);             // schritt2.cpp
void ListeFuellen3(Umgebung& umgebung, Seiten& seiten);             // schritt3.cpp
void ListeFuellen3b(Umgebung& umgebung, Seiten& seiten);            // schritt3.cpp
void ListeFuellen4(Umgebung& umgebung, Seiten& seiten);             // schritt4.cpp
void DatentraegerDatenSammeln(Umgebung& umgebung, Seiten& seiten);  // schritt5.cpp

// The focus of the field for the total amount has left it: the amount in the currency format, unless it does
// not fit.
void txtGesamtbetrag_LostFocus(Umgebung& umgebung, Seite4& seite);

// The run buttons. Those of steps 1 to 3b are off and show the hourglass while their step runs, also when it
// ends with an exception.
void cmdErgebnisZeigen1_Click(Umgebung& umgebung, Seiten& seiten);
void cmdErgebnisZeigen2_Click(Umgebung& umgebung, Seiten& seiten);
void cmdErgebnisZeigen3_Click(Umgebung& umgebung, Seiten& seiten);
void cmdErgebnisZeigen3b_Click(Umgebung& umgebung, Seiten& seiten);
void cmdErgebnisZeigen4_Click(Umgebung& umgebung, Seiten& seiten);
// The step, then the buttons by its result.
void cmdErgebnisZeigen5_Click(Umgebung& umgebung, Seiten& seiten);
// The payment-file button: own account from the settings file, file, transfer table released, control
// list. It stays off until step 5 has run again.
void cmdDatentraegerErstellen_Click(Umgebung& umgebung, Seiten& seiten);
// Every mail-merge button: copies the persons of `liste`, the button's own one.
void serienbriefeKopieren(Umgebung& umgebung, Knopf& knopf, const Liste& liste);

// Delete key in a list of steps 1 to 3b: removes the selected rows and counts them beside the list.
void markierteZeilenLoeschen(const DatenTypen& typen, Liste& liste, Beschriftung& geloescht,
                             Beschriftung& geloeschtLabel, Beschriftung& ergebnis);

}  // namespace pelvanto
