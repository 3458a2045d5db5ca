#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

#include "database/datenbank_routinen.h"
#include "lists/adressen_namen.h"
#include "lists/adressen_person.h"

namespace pelvanto {

// What the address of one person looks up and changes in the contact data. A change that fails leaves them as
// they are and the address goes on: it is logged, and where it was the user's own answer, the user is told.
class Kontaktdaten : public Woerterbuch {
 public:
  Kontaktdaten(Verbindung& verbindung, DatenbankRoutinen& datenbank, Protokoll& protokoll,
               Meldungen& meldungen, const DatenTypen& typen)
      : verbindung_(verbindung),
        datenbank_(datenbank),
        protokoll_(protokoll),
        meldungen_(meldungen),
        typen_(typen) {}

  Wortart nachschlagen(const QString& wort) override;
  // `merkmal` is the column.
  void merkmalSetzen(const Person& person, const QString& merkmal);
  // `berichtigen` gets the stored address and gives the new one, or nullopt.
  void adresseBerichtigen(const Person& person,
                          const std::function<std::optional<QString>(const QString&)>& berichtigen);

  // Words that could not be looked up, as often as they stand in the name.
  QStringList verworfen;

 private:
  // One column of one person, to be changed.
  std::optional<Tabelle> oeffnen(const Person& person, const QString& feld);
  void zaehlen(Tabelle& vorname, const QString& wort);
  void nichtGespeichert(const Person& person, const QString& was, const QString& grund);

  Verbindung& verbindung_;
  DatenbankRoutinen& datenbank_;
  Protokoll& protokoll_;
  Meldungen& meldungen_;
  const DatenTypen& typen_;
};

}  // namespace pelvanto
