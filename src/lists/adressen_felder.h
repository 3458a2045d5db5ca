#pragma once

#include <QString>

#include "lists/adressen.h"
#include "lists/adressen_namen.h"
#include "lists/adressen_ort.h"
#include "lists/adressen_person.h"
#include "seams/meldungen.h"

namespace pelvanto {

// Puts the texts of one person's address into their fields, in the order in which the user hears of those
// that had to be cut.
class Adressfelder {
 public:
  Adressfelder(Meldungen& meldungen, const Person& person) : meldungen_(meldungen), person_(person) {}

  // Up to the postcode and town, which may need a correction first.
  void nameFuellen(const Namensteile& name);
  // All others but those that follow from the postcode and town.
  void uebrigesFuellen(const Namensteile& name, const Adressteile& adresse);
  void ortFuellen(const Ortsteile& ort);

  Anschrift anschrift;

 private:
  // The first characters without outer blanks; tells the user where there are more.
  QString gemeldet(const QString& text, int hoechstens, const QString& feld,
                   const QString& zusatz = QString()) const;

  Meldungen& meldungen_;
  const Person& person_;
};

// How every message about one person's address begins.
QString meldungsanfang(const Person& person);

}  // namespace pelvanto
