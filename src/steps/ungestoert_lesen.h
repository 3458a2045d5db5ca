#pragma once

#include <QString>

#include <functional>
#include <memory>

#include "steps/umgebung.h"

namespace pelvanto {

// Reads from the contact database for one step, undisturbed: if another program wrote into the file
// meanwhile, everything is read once more from the start. `lesen` opens its own connection into its argument
// and collects what the step needs, beginning with an empty collection, without a change to the page.
//
// True: `lesen` ran through and the file stayed the same. False: a query failed, or the file changed the
// second time too; the user has been told, and what was collected is worthless.
// `prozedur` is the step's name for log and message.
[[nodiscard]] bool ungestoertLesen(Umgebung& umgebung, const QString& prozedur,
                                   const std::function<void(std::unique_ptr<Verbindung>&)>& lesen);

// Logs an unexpected failure of a step and shows it in a message box. `einzelheit` (the query) may be empty.
void fehlerMelden(Umgebung& umgebung, const Datenbankfehler& fehler, const QString& prozedur,
                  const QString& einzelheit);

}  // namespace pelvanto
