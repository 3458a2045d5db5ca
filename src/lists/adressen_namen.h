#pragma once

#include <QString>

#include <functional>

#include "payment/daten_typen.h"

namespace pelvanto {

// The marks of a person that decide the form of address. 1 sets one; some rules take any number but 0.
struct Anredemerkmale {
  int familie = 0;
  int firma = 0;
  int keineAnrede = 0;
  bool keines() const { return familie == 0 && firma == 0 && keineAnrede == 0; }
};

// What a word of a name is. Unbekannt: a part of the family name. Verworfen: it could not be looked up.
enum class Wortart { Unbekannt, Titel, TitelOben, Mann, Frau, Verworfen };

// The words that are known as first names and titles.
class Woerterbuch {
 public:
  virtual ~Woerterbuch() = default;
  // Counts the word where it is a first name.
  virtual Wortart nachschlagen(const QString& wort) = 0;
};

// A stored name, taken apart: "Huber Dr. Johann, vulgo Moar". Not cut yet, but for the name line.
struct Namensteile {
  QString anrede;  // "Herrn", "Frau", "Familie", "Firma" or empty
  QString namenszeile;
  QString vornamen;
  QString titel;
  QString titelOben;
  QString zusatz;
  QString briefanrede;
};

// " und " or " u. " stands in the name.
bool nenntMehrere(const QString& namen);

// `zeileGekuerzt` is called each time the name line has lost characters.
Namensteile namenZerlegen(const QString& namen, const Anredemerkmale& merkmale,
                          const QString& besondereBriefanrede, const DatenTypen& typen,
                          Woerterbuch& woerterbuch, const std::function<void()>& zeileGekuerzt);

}  // namespace pelvanto
