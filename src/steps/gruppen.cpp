#include "steps/gruppen.h"

using namespace Qt::StringLiterals;

namespace pelvanto {

QString mitgliederVerbund() {
  return u" FROM ((PersonenGruppen"
         " INNER JOIN PersonenGruppenBezeichnungen ON PersonenGruppenBezeichnungen.ID = "
         "PersonenGruppen.GruppenID)"
         " INNER JOIN Namensliste ON Namensliste.ID = PersonenGruppen.PersonenID)"_s;
}

QString bezeichnungIst(const QString& feld, const QString& bezeichnung) {
  return u" WHERE "_s + feld + u" = '"_s + bezeichnung + u"'"_s;
}

int gruppeSuchen(Verbindung& verbindung, const DatenTypen& typen, const QString& bezeichnung) {
  const Abfrage gruppen = verbindung.abfragen(u"SELECT ID FROM PersonenGruppenBezeichnungen"_s +
                                              bezeichnungIst(u"Bezeichnung"_s, bezeichnung));
  return gruppen.amEnde() ? 0 : typen.ganzzahl(gruppen.feld(u"ID"));
}

bool istInGruppe(Verbindung& verbindung, int person, int gruppe) {
  const Abfrage mitgliedschaft =
      verbindung.abfragen(u"SELECT ID FROM PersonenGruppen WHERE PersonenID = "_s + QString::number(person) +
                          u" AND GruppenID = "_s + QString::number(gruppe));
  return !mitgliedschaft.amEnde();
}

}  // namespace pelvanto
