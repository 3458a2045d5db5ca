#pragma once

#include <QString>

namespace pelvanto {

enum class Symbol { Keines, Information, Frage, Ausrufezeichen, Kritisch };
enum class Knoepfe { Ok, JaNein };
enum class Antwort { Ok, Ja, Nein };

// A message box. An empty title stands for the program's name.
struct Meldung {
  QString text;
  Symbol symbol = Symbol::Keines;
  Knoepfe knoepfe = Knoepfe::Ok;
  QString titel = {};
  bool operator==(const Meldung&) const = default;
};

// Message boxes, answered by the user (or by a test).
class Meldungen {
 public:
  virtual ~Meldungen() = default;
  virtual Antwort zeigen(const Meldung& meldung) = 0;
};

}  // namespace pelvanto
