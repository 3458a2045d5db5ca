#pragma once

namespace pelvanto {

// What long work asks of the user interface.
class Oberflaeche {
 public:
  virtual ~Oberflaeche() = default;
  // Lets pending window messages run.
  virtual void nachrichtenVerarbeiten() = 0;
  // Hourglass on or off. Switching on twice needs switching off once.
  virtual void sanduhr(bool an) = 0;
  // Shows how far long work is: `nummer` of `anzahl`; 0 of 0 takes the display away. Repaints at once and
  // lets nothing else through, no clicks and no other messages; while it is shown, neither does
  // nachrichtenVerarbeiten.
  virtual void fortschritt(int nummer, int anzahl) = 0;
};

}  // namespace pelvanto
