#pragma once

#include <QString>

#include <vector>

#include "steps/seiten.h"
#include "steps/umgebung.h"

// What the print buttons do: the left mouse button prints the lists of the page, the right one saves them as
// CSV files on the desktop.
namespace pelvanto {

// A list as it leaves the program, under its heading.
struct Listenausgabe {
  const Liste* liste = nullptr;
  QString titel;
  QString untertitel;
  bool ohneFuenferabstand = true;
};
using Listenausgaben = std::vector<Listenausgabe>;

// The lists of each page in the order of printing, kept before dropped.
Listenausgaben ausgaben1(const Umgebung& umgebung, const Seiten& seiten);
Listenausgaben ausgaben2(const Umgebung& umgebung, const Seiten& seiten);
Listenausgaben ausgaben3(const Umgebung& umgebung, const Seiten& seiten);
Listenausgaben ausgaben3b(const Umgebung& umgebung, const Seiten& seiten);
Listenausgaben ausgaben4(const Umgebung& umgebung, const Seiten& seiten);
Listenausgaben ausgaben5(const Umgebung& umgebung, const Seiten& seiten);
using AusgabenDerSeite = Listenausgaben (*)(const Umgebung& umgebung, const Seiten& seiten);

// The left mouse button on a print button: the button is off and the pointer an hourglass meanwhile.
void listenDrucken(Umgebung& umgebung, Seiten& seiten, Knopf& knopf, AusgabenDerSeite ausgaben);
// The right one: asks `frage` first.
void listenAlsCSVSpeichern(Umgebung& umgebung, Seiten& seiten, const QString& frage,
                           AusgabenDerSeite ausgaben);

}  // namespace pelvanto
