#pragma once

namespace pelvanto {

// Thrown where the program has to end at once: nothing more is computed or saved. Only `main` and the
// window's event handling catch it, and end the program.
struct ProgrammEnde {};

}  // namespace pelvanto
