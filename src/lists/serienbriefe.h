#pragma once

#include <QString>
#include <QStringList>

#include <vector>

#include "lists/adressen.h"
#include "lists/liste.h"
#include "seams/oberflaeche.h"

namespace pelvanto {

// Adds the persons of a list to the address file from which the contact program writes form letters.
class Serienbriefe {
 public:
  Serienbriefe(const Prozesswerte& werte, DatenbankRoutinen& datenbank, Adressen& adressen,
               Protokoll& protokoll, Meldungen& meldungen, Oberflaeche& oberflaeche);

  // Who is in the file already stays as he is. A failure ends the copy with a message; what is saved stays.
  // Only ProgrammEnde leaves it.
  void SerienbriefAdressenKopieren(const Liste& liste);

 private:
  // How far a copy has come.
  struct Verlauf {
    bool begonnen = false;    // the file can be written
    std::size_t fertig = 0;   // persons of the list, from the first, who are in the address file
    QString grund;            // why it ended before its time
    QStringList verworfenes;  // persons with words of their names that are missing in their addresses
  };

  Verlauf kopieren(const std::vector<Zeile>& personen);
  // Answers why the person could not be added.
  QString hinzufuegen(Verbindung& verbindung, const Zeile& person, Verlauf& verlauf);
  void abbruchMelden(const std::vector<Zeile>& personen, const Verlauf& verlauf);
  void verworfenesMelden(const QStringList& verworfenes);

  const Prozesswerte& werte_;
  DatenbankRoutinen& datenbank_;
  Adressen& adressen_;
  Protokoll& protokoll_;
  Meldungen& meldungen_;
  Oberflaeche& oberflaeche_;
};

}  // namespace pelvanto
