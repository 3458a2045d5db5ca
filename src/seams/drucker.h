#pragma once

#include <QString>

#include <memory>

namespace pelvanto {

// Thrown by a document. Numbers as log and message boxes show them.
struct Druckfehler {
  int nummer = 0;
  QString beschreibung;  // German, one clause without a full stop
};

// The printer itself has failed: switched off, out of paper, its queue has refused the document.
inline constexpr int kDruckerfehler = 482;

// Always black, upright in weight, Arial or a font of its widths.
struct Druckschrift {
  int punkte = 9;
  bool kursiv = false;
  bool operator==(const Druckschrift&) const = default;
};

// A document on its way to the printer: A4 landscape, 297 x 210 mm, all lengths in mm from the upper left
// corner of the paper. A document that is not ended is thrown away. Every call may throw Druckfehler.
class Druckdokument {
 public:
  virtual ~Druckdokument() = default;
  // By the printer's own font metrics.
  virtual double textbreite(const QString& text, Druckschrift schrift) const = 0;
  virtual double texthoehe(Druckschrift schrift) const = 0;
  // (x, y) is the upper left corner of the text.
  virtual void text(double x, double y, const QString& text, Druckschrift schrift) = 0;
  virtual void linie(double x1, double y1, double x2, double y2) = 0;
  virtual void neueSeite() = 0;
  // Hands the document to the printer.
  virtual void beenden() = 0;
};

// The user's default printer.
class Drucker {
 public:
  virtual ~Drucker() = default;
  // Its name; empty: there is none. Asked anew at every call.
  virtual QString standarddrucker() const = 0;
  // Begins a document with its first page; `name` is shown in the print queue. Throws Druckfehler.
  virtual std::unique_ptr<Druckdokument> dokument(const QString& name) = 0;
};

}  // namespace pelvanto
