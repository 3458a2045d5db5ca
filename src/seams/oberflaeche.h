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
};

}  // namespace pelvanto
