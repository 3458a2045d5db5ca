#include "lists/adressen_felder.h"

#include "support/blanks.h"
#include "support/kuerzen.h"

using namespace Qt::StringLiterals;

namespace pelvanto {

QString meldungsanfang(const Person& person) {
  return u"Beim Anlegen des Adressen-Datensatzes für die PersonenID "_s + QString::number(person.id) +
         u"\n\n"_s + person.namen + u"\n\n"_s;
}

QString Adressfelder::gemeldet(const QString& text, int hoechstens, const QString& feld,
                               const QString& zusatz) const {
  if (text.size() > hoechstens) {
    meldungen_.zeigen({meldungsanfang(person_) + u"musste das Feld '"_s + feld + u"' gekürzt werden. "_s +
                           zusatz + u"Bitte prüfen Sie die Stammdatendaten"_s,
                       Symbol::Information});
  }
  return ohneAeussereBlanks(gekuerzt(text, hoechstens));
}

void Adressfelder::nameFuellen(const Namensteile& name) {
  anschrift.IDNummer = person_.id;
  anschrift.Anrede = gemeldet(name.anrede, 30, u"Anrede"_s);
  anschrift.Famname = gemeldet(ohneAeussereBlanks(name.namenszeile), 60, u"FamName"_s);
  anschrift.Vorname = gemeldet(name.vornamen, 40, u"Vorname"_s);
}

void Adressfelder::uebrigesFuellen(const Namensteile& name, const Adressteile& adresse) {
  anschrift.PLZOrt = ohneAeussereBlanks(gekuerzt(adresse.plzOrt, kLaengsterPLZOrt));
  anschrift.Adresse = gemeldet(adresse.strasse, 50, u"strAdresse"_s);
  anschrift.Sehr_geehr = gemeldet(name.briefanrede, 100, u"Sehr_geehr"_s);
  anschrift.Titel = gemeldet(name.titel, 30, u"Titel"_s);
  anschrift.Telefon = gemeldet(person_.telefon, 100, u"Telefon"_s);
  if (!person_.keinFax) anschrift.Fax = gemeldet(person_.faxNummern, 60, u"Fax"_s);
  anschrift.TitelOben = gemeldet(name.titelOben, 40, u"TitelOben"_s);
  if (!person_.keinMail) {
    anschrift.EMail =
        gemeldet(person_.eMail, 120, u"EMail"_s,
                 u"Es werden derzeit nur Mailadressen bis 40 Zeichen übernommen. Achten Sie also darauf, die "
                 u"wichtigeren Adressen am Anfang zu schreiben. "_s);
  }
  const QString& zusatz = name.zusatz.isEmpty() ? adresse.zusatz : name.zusatz;
  anschrift.NamenZusatzZeile = gemeldet(zusatz, 60, u"NamenZusatzZeile"_s);
  anschrift.Du = person_.du;
  anschrift.GanzeAnrede = gekuerzt(ohneAeussereBlanks(anschrift.Anrede + u' ' + anschrift.TitelOben), 70);
  // A part that is empty leaves its blank inside.
  anschrift.GanzerName =
      gemeldet(ohneAeussereBlanks(anschrift.Titel + u' ' + anschrift.Vorname + u' ' + anschrift.Famname), 130,
               u"GanzerName"_s);
}

void Adressfelder::ortFuellen(const Ortsteile& ort) {
  anschrift.PLZ = ort.plz;
  anschrift.Ort = gemeldet(ort.ort, 50, u"Ort"_s);
  anschrift.Straße = gemeldet(ort.strasse, 50, u"Straße"_s);
}

}  // namespace pelvanto
