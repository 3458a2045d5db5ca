#pragma once

#include <QString>

#include <memory>
#include <optional>

#include "seams/drucker.h"
#include "seams/uhr.h"
#include "support/prozesswerte.h"

namespace pelvanto {

// Where a printed text stands at its x.
enum class Druckausrichtung { Links = 0, Rechts = 1, Mitte = 21 };
// The credit line of the footer: small with "Programmierung: " in front (lists), or larger and alone.
enum class Fussart { Gross = 1, Klein = 3 };

// Prints one document at a time on the default printer, page by page, every page in the same frame. All
// lengths are mm on A4 landscape.
class FunktionenDrucker {
 public:
  FunktionenDrucker(Drucker& drucker, const Uhr& uhr, const Prozesswerte& werte);

  // The default printer's name; any failure of the question means no printer. Shows nothing.
  bool DruckerVorhanden(QString& name) const;
  // Page 1 begins a document named like its title. False: no printer, or a failure other than the printer's
  // general one. After that one the rest of the frame is missing and this is true all the same; the failure
  // comes to light when the document is ended.
  bool DruckSeiteBeginnen(int seite, const QString& titel, const QString& untertitel, Fussart fussart);
  // Height of the printed text, 0 when nothing was printed. `punkte` below 1 keeps the size; `breite` 0 is
  // unlimited, else a longer text ends in "..." (and starts where the whole text would have started). No
  // failure leaves this.
  double TextDrucken(double x, double y, const QString& text, Druckausrichtung ausrichtung, int punkte,
                     bool kursiv, double breite);
  // The same at the left of x, where another text stands `platz` mm from x: what would run into it is printed
  // up to three points smaller, and shortened to its end only where that is not enough.
  double TextDruckenVor(double x, double y, const QString& text, int punkte, double breite, double platz);
  // Width of a text in the document's upright font of this size; 0 without a document. No failure leaves
  // this.
  double Textbreite(const QString& text, int punkte);
  // The next page of the document, still without its frame. Throws Druckfehler.
  void neueSeite();
  // Sends the document to the printer; nothing to do without one. Throws Druckfehler, also the first one that
  // was trapped before: a document that lacks something is never sent. It is gone in any case.
  void dokumentBeenden();
  // Throws away what has not been sent. Answers with the first failure that was trapped in it, if any: none
  // after a DruckSeiteBeginnen that was false means that there is no printer.
  std::optional<Druckfehler> verwerfen();

  // Of the last page.
  int LinkerRand = 0, RechterRand = 0, KopfUnterkante = 0, FussOberkante = 0;

 private:
  void merken(const Druckfehler& fehler);
  QString passend(QString text, Druckschrift schrift, double breite) const;
  void rahmen(int seite, const QString& titel, const QString& untertitel, Fussart fussart);

  Drucker& drucker_;
  const Uhr& uhr_;
  const Prozesswerte& werte_;
  std::unique_ptr<Druckdokument> dokument_;
  std::optional<Druckfehler> ersterFehler_;
  int punkte_ = 9;  // the size that a text without one gets
};

}  // namespace pelvanto
