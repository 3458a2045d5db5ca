#pragma once

#include <QString>

#include <initializer_list>
#include <vector>

#include "lists/liste.h"

namespace pelvanto {

// A visible column as the steps describe it.
struct Spaltenmass {
  QString beschriftung;
  double anteil;  // of the list's width less 400 twips
  Ausrichtung ausrichtung = Ausrichtung::Links;
  QString schluessel = {};  // empty: the caption
};

// The hidden column "ID" and these, for a list of this width (twips).
std::vector<Spalte> spaltenFuer(int listenbreite, std::initializer_list<Spaltenmass> masse);
// "Name", "Adresse" and "Telefon", with these shares of the width.
std::vector<Spalte> personenspalten(int listenbreite, double name, double adresse, double telefon);

}  // namespace pelvanto
