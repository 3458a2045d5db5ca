// Step 1: the members of the delivery group.
#include <unordered_set>

#include "steps/gruppen.h"
#include "steps/schritte.h"
#include "steps/spalten.h"
#include "steps/texte.h"
#include "steps/ungestoert_lesen.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

struct Mitglieder {
  bool geoeffnet = false;
  bool gruppeAbgefragt = false;
  int gruppen = 0;  // how many have the name
  std::vector<Zeile> zeilen;
  std::vector<int> doppelte;  // persons that have a row already
};

void mitgliederLesen(Verbindung& verbindung, const DatenTypen& typen, const QString& gruppe,
                     Mitglieder& mitglieder) {
  std::unordered_set<int> gesehen;
  Abfrage abfrage = verbindung.abfragen(
      u"SELECT Namensliste.ID, Namensliste.Namen, Namensliste.Adresse, Namensliste.Telefon"_s +
      mitgliederVerbund() + bezeichnungIst(u"PersonenGruppenBezeichnungen.Bezeichnung"_s, gruppe) +
      u" ORDER BY Namensliste.Namen, Namensliste.Adresse"_s);
  for (; !abfrage.amEnde(); abfrage.weiter()) {
    const int id = typen.ganzzahl(abfrage.feld(u"ID"));
    if (!gesehen.insert(id).second) {
      mitglieder.doppelte.push_back(id);
      continue;
    }
    mitglieder.zeilen.push_back({zeilenschluessel(id),
                                 {typen.text(abfrage.feld(u"Namen")), typen.text(abfrage.feld(u"Adresse")),
                                  typen.text(abfrage.feld(u"Telefon"))}});
  }
}

Mitglieder gruppeLesen(Umgebung& umgebung, const QString& gruppe, std::unique_ptr<Verbindung>& verbindung) {
  Mitglieder mitglieder;
  mitglieder.geoeffnet =
      umgebung.datenbank.DatenbankOeffnen(verbindung, umgebung.werte.DatenbankPfad, false, false);
  if (!mitglieder.geoeffnet) return mitglieder;
  std::optional<Abfrage> gruppen;
  bool fehler = false;
  mitglieder.gruppeAbgefragt = umgebung.datenbank.SnapshotOeffnen(
      *verbindung, gruppen,
      u"SELECT ID FROM PersonenGruppenBezeichnungen"_s + bezeichnungIst(u"Bezeichnung"_s, gruppe), false,
      false, fehler);
  if (!mitglieder.gruppeAbgefragt) return mitglieder;
  mitglieder.gruppen = gruppen->anzahl();
  if (mitglieder.gruppen == 1) mitgliederLesen(*verbindung, umgebung.typen, gruppe, mitglieder);
  return mitglieder;
}

// Why the group cannot be listed; empty if it can.
QString hindernis(const Mitglieder& mitglieder, const QString& gruppe) {
  if (!mitglieder.gruppeAbgefragt) return u"Fehler bei der Abfrage ob die Personengruppe existiert."_s;
  if (mitglieder.gruppen == 0) {
    return u"Es existiert keine Personengruppe mit der Bezeichnung "_s + gruppe + u"."_s;
  }
  if (mitglieder.gruppen > 1) {
    return u"Es existieren "_s + QString::number(mitglieder.gruppen) +
           u" Personengruppen mit der Bezeichnung "_s + gruppe + u"."_s;
  }
  return {};
}

void ergebnisZeigen1(Seite1& seite) {
  seite.lblErgebnis1.text = QString::number(seite.lvwListe1.anzahl());
  seite.cmdDrucken1.ein = seite.cmdWeiter1.ein = seite.lvwListe1.anzahl() > 0;
}

}  // namespace

void ListeFuellen1(Umgebung& umgebung, Seiten& seiten) {
  Seite1& seite = seiten.seite1;
  seite.lvwListe1.spaltenSetzen(personenspalten(seite.lvwListe1.breite, 0.3, 0.3, 0.4));
  seite.lvwListe1.leeren();
  umgebung.welt.oberflaeche.sanduhr(true);

  const QString gruppe = ohneAeussereBlanks(seite.txtUnterlieferungGruppe.text);
  Mitglieder mitglieder;
  const bool gelesen =
      ungestoertLesen(umgebung, u"ListeFuellen1"_s, [&](std::unique_ptr<Verbindung>& verbindung) {
        mitglieder = gruppeLesen(umgebung, gruppe, verbindung);
      });

  seite.lvwListe1.leeren();
  if (gelesen && mitglieder.geoeffnet) {
    const QString grund = hindernis(mitglieder, gruppe);
    if (!grund.isEmpty()) {
      umgebung.welt.meldungen.zeigen({grund, Symbol::Kritisch});
      return;
    }
    for (const int id : mitglieder.doppelte) {
      umgebung.protokoll.schreiben(u"Person %1 ist in der Gruppe "_s.arg(id) + gruppe +
                                   u" mehrfach eingetragen, die weitere Zeile wurde übersprungen."_s);
    }
    seite.lvwListe1.hinzufuegen(std::move(mitglieder.zeilen));
  }
  ergebnisZeigen1(seite);
  umgebung.welt.oberflaeche.sanduhr(false);
}

}  // namespace pelvanto
