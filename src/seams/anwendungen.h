#pragma once

#include <QString>

#include "seams/dateisystem.h"

namespace pelvanto {

// What `Anwendungen::oeffnen` answers, as the shell does: above this a program was started.
inline constexpr int kOeffnenGelungenAb = 32;
inline constexpr int kKeineAnwendung = 31;

// Other programs, and the desktop they run on.
class Anwendungen {
 public:
  virtual ~Anwendungen() = default;
  // Opens a document as a double click in the file manager does. kKeineAnwendung: no program for this kind of
  // file; any other number up to kOeffnenGelungenAb: the system's reason. `fensterart` is the shell's show
  // command (1: a normal window), where the system knows that.
  virtual int oeffnen(const QString& datei, int fensterart) = 0;
  // Starts a program with one argument and does not wait for it: minimised with the focus, where the system
  // knows that.
  virtual Dateifehler starten(const QString& programm, const QString& argument) = 0;
  // The folder of what lies on the user's desktop; empty where it is not known.
  virtual QString schreibtisch() const = 0;
};

}  // namespace pelvanto
