#pragma once

#include <QString>

#include <stdexcept>

namespace pelvanto {
class HauptFenster;
}

namespace pelvanto::vorfuehrung {

// The wizard could not be played to its end.
struct Abbruch : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Plays the whole wizard by the window's own buttons and prints each step's result. Pictures of every page go
// to `bilderordner`. Throws Abbruch where a step lets nobody on.
void wizardDurchspielen(HauptFenster& fenster, const QString& bilderordner);

}  // namespace pelvanto::vorfuehrung
