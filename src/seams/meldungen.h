#pragma once

#include <QString>

#include <optional>

namespace pelvanto {

enum class Symbol { Keines, Information, Frage, Ausrufezeichen, Kritisch };
enum class Knoepfe { Ok, JaNein, JaNeinAbbrechen };
enum class Antwort { Ok, Ja, Nein, Abbrechen };

// A message box. An empty title stands for the program's name.
struct Meldung {
  QString text;
  Symbol symbol = Symbol::Keines;
  Knoepfe knoepfe = Knoepfe::Ok;
  QString titel = {};
  bool operator==(const Meldung&) const = default;
};

// A box that asks for a text.
struct Eingabe {
  QString text;
  QString titel;
  QString vorgabe;  // stands in the box at first
  bool operator==(const Eingabe&) const = default;
};

// Message boxes, answered by the user (or by a test).
class Meldungen {
 public:
  virtual ~Meldungen() = default;
  virtual Antwort zeigen(const Meldung& meldung) = 0;
  // The text as the user leaves it; nullopt: cancelled.
  virtual std::optional<QString> eingeben(const Eingabe& eingabe) = 0;
};

}  // namespace pelvanto
