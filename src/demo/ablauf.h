#pragma once

#include <QString>

#include <functional>
#include <stdexcept>

namespace pelvanto {
class HauptFenster;
}

namespace pelvanto::vorfuehrung {

// The wizard could not be played to its end.
struct Abbruch : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// How many letter addresses there are, and how many boxes have been shown so far.
struct Zwischenstand {
  int adressen = 0;
  int meldungen = 0;
};

// Plays the whole wizard by the window's own buttons: prints the lists of every page and saves them as CSV
// files, copies letter addresses of two lists on the way, and tells each step's result. Pictures of every
// page go to `bilderordner`. Throws Abbruch where a step lets nobody on.
void wizardDurchspielen(HauptFenster& fenster, const QString& bilderordner,
                        const std::function<Zwischenstand()>& zwischenstand);

// Pictures of the box about the program.
void ueberFotografieren(HauptFenster& fenster, const QString& bilderordner);
// A picture of the own account on page 5 with one digit changed; the right IBAN is put back.
void falscheIBANFotografieren(HauptFenster& fenster, const QString& bilderordner);

}  // namespace pelvanto::vorfuehrung
