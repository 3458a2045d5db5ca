#pragma once

#include <QString>

#include <optional>

#include "lists/adressen_person.h"
#include "seams/meldungen.h"

namespace pelvanto {

// What the user wants a name to be that names several people and has no mark.
enum class Familienantwort { Familie, Firma, KeineAnrede, NichtsDavon, NichtMehrFragen };
Familienantwort familieErfragen(Meldungen& meldungen, const QString& namen);

enum class Adressproblem { PLZOrtZuLang, PLZZuLang };
// The stored address as the user corrects it; nullopt: it stays as it is.
std::optional<QString> korrekturErfragen(Meldungen& meldungen, const Person& person, Adressproblem problem,
                                         const QString& adresse);

}  // namespace pelvanto
