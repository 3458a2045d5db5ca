#pragma once

#include <QString>

#include <vector>

#include "lists/liste.h"
#include "seams/meldungen.h"
#include "support/funktionen_drucker.h"
#include "support/protokoll.h"

namespace pelvanto {

// A column on paper.
struct DruckSpalte {
  QString Text;    // the caption, at most 50 characters
  int Breite = 0;  // in the list, twips; 0: not printed
  Ausrichtung ausrichtung = Ausrichtung::Links;
  int X = 0;            // mm; where its texts are placed
  int Druckbreite = 0;  // mm; room for its texts, 0: no limit
  bool operator==(const DruckSpalte&) const = default;
};

// The columns of a list spread over the printed width (mm) in the proportions of the screen, right of
// `linkerRand`.
std::vector<DruckSpalte> druckSpalten(const std::vector<Spalte>& spalten, int linkerRand, int rechterRand);

// Prints result lists: a line for each row, a document for each list.
class Listendruck {
 public:
  Listendruck(FunktionenDrucker& druck, Meldungen& meldungen, Protokoll& protokoll)
      : druck_(druck), meldungen_(meldungen), protokoll_(protokoll) {}

  // The line of captions under the header. Size 0 means 9 points.
  bool SpaltenkoepfeDrucken(const std::vector<DruckSpalte>& spalten, int punkte);
  // True when the whole document went to the printer. Everything else but a missing printer is told.
  bool ListeDrucken(const Liste& liste, const QString& titel, const QString& untertitel,
                    bool ohneFuenferabstand);

 private:
  struct Kopf {
    QString titel, untertitel;
  };
  // False: a page could not be begun. Throws Druckfehler.
  bool alleSeiten(const Liste& liste, const Kopf& kopf, bool ohneFuenferabstand);
  void fehlerMelden(const QString& titel, const Druckfehler& fehler);

  FunktionenDrucker& druck_;
  Meldungen& meldungen_;
  Protokoll& protokoll_;
};

}  // namespace pelvanto
