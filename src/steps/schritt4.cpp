// Step 4: the total amount is spread over the members in proportion to their milk.
#include <algorithm>

#include "steps/auszahlung.h"
#include "steps/gruppen.h"
#include "steps/schritte.h"
#include "steps/spalten.h"
#include "steps/texte.h"
#include "steps/ungestoert_lesen.h"
#include "support/zahlenformat.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

constexpr int kHoechstmenge = 50000;  // kg that count for the calculation
constexpr int kKuerzesteUID = 8;

// Where the texts of lvwListe4 stand in a row.
enum Feld4 { kName, kAdresse, kGesamt, kBasis, kNetto, kUst };

struct Mitglied {
  int id = 0;
  QString name, adresse, telefon;
  qint32 menge = 0;  // kg
  bool pauschaliert = false;
  QString uidNummer;
};

struct Mengen {
  qint64 gesamt = 0, basis = 0;  // kg
  int ueberHoechstmenge = 0;
};

// Persons who have left the delivery group are not among the answer.
std::vector<Mitglied> mitgliederMitMengeLesen(Umgebung& umgebung, const Seiten& seiten,
                                              std::unique_ptr<Verbindung>& verbindung) {
  const DatenTypen& typen = umgebung.typen;
  const QString abfrageAnfang =
      u"SELECT Namensliste.ID, Namensliste.Namen, Namensliste.Adresse, Namensliste.Telefon, "
      "Namensliste.UstPauschaliert, PersonenGruppen.GrosseGanzeZahl, Namensliste.UIDNummer"_s +
      mitgliederVerbund() +
      bezeichnungIst(u"PersonenGruppenBezeichnungen.Bezeichnung"_s,
                     ohneAeussereBlanks(seiten.seite1.txtUnterlieferungGruppe.text)) +
      u" AND PersonenID = "_s;
  std::vector<Mitglied> mitglieder;
  verbindung = umgebung.datenbank.direktOeffnen(umgebung.werte.DatenbankPfad, true);
  for (const Zeile& zeile : seiten.seite3b.lvwListe3b.zeilen()) {
    const int id = zeile.id();
    const Abfrage person = verbindung->abfragen(abfrageAnfang + QString::number(id));
    if (person.amEnde()) {
      umgebung.protokoll.schreiben(
          u"Person %1 ist nicht mehr in der Gruppe der Mitglieder mit Unterlieferung und wurde "
          "übersprungen."_s.arg(id));
      continue;
    }
    mitglieder.push_back(
        {id, typen.text(person.feld(u"Namen")), typen.text(person.feld(u"Adresse")),
         typen.text(person.feld(u"Telefon")), typen.ganzzahl(person.feld(u"GrosseGanzeZahl")),
         typen.wahrheit(person.feld(u"UstPauschaliert")), typen.text(person.feld(u"UIDNummer"))});
  }
  return mitglieder;
}

void MilchmengeErkannt(Seite4& seite, const Mitglied& mitglied, int basis, const Zahlenzeichen& zeichen) {
  Liste& liste = seite.lvwListe4;
  if (liste.spalten().empty()) {
    liste.spaltenSetzen(spaltenFuer(liste.breite, {{u"Name"_s, 0.3},
                                                   {u"Adresse"_s, 0.3},
                                                   {u"Gesamt"_s, 0.1, Ausrichtung::Rechts},
                                                   {u"Basis"_s, 0.1, Ausrichtung::Rechts},
                                                   {u"Netto"_s, 0.125, Ausrichtung::Rechts},
                                                   {u"Ust."_s, 0.075, Ausrichtung::Rechts, u"Ust"_s}}));
  }
  const bool ohneUID = ohneAeussereBlanks(mitglied.uidNummer).size() < kKuerzesteUID;
  liste.hinzufuegen(zeilenschluessel(mitglied.id),
                    {mitglied.name, mitglied.adresse, Zahlenformat::ganzzahl(mitglied.menge, zeichen),
                     Zahlenformat::ganzzahl(basis, zeichen), QString(), ohneUID ? u"13"_s : u"10"_s});
}

void AusscheidenWeilKeineMilch(Seite4& seite, const Mitglied& mitglied) {
  Liste& liste = seite.lvwAusgeschieden4;
  if (liste.spalten().empty()) liste.spaltenSetzen(personenspalten(liste.breite, 0.3, 0.4, 0.3));
  liste.hinzufuegen(zeilenschluessel(mitglied.id), {mitglied.name, mitglied.adresse, mitglied.telefon});
}

Mengen listenFuellen(Seite4& seite, const std::vector<Mitglied>& mitglieder, const Zahlenzeichen& zeichen) {
  Mengen mengen;
  for (const Mitglied& mitglied : mitglieder) {
    if (mitglied.menge == 0) {
      AusscheidenWeilKeineMilch(seite, mitglied);
      continue;
    }
    const int basis = std::min<int>(mitglied.menge, kHoechstmenge);
    mengen.gesamt += mitglied.menge;
    mengen.basis += basis;
    if (mitglied.menge > kHoechstmenge) ++mengen.ueberHoechstmenge;
    MilchmengeErkannt(seite, mitglied, basis, zeichen);
  }
  return mengen;
}

void zaehlerZeigen4(Seite4& seite) {
  seite.lblErgebnis4.text = QString::number(seite.lvwListe4.anzahl());
  seite.lblAusgeschieden4.text = QString::number(seite.lvwAusgeschieden4.anzahl());
}

void mengenZeigen(Seite4& seite, const Mengen& mengen, Waehrung gesamtbetrag, const Zahlenzeichen& zeichen) {
  seite.lblMengeFuerBerechnung.text = Zahlenformat::ganzzahl(mengen.basis, zeichen);
  seite.lblMengeGesamt.text = Zahlenformat::ganzzahl(mengen.gesamt, zeichen);
  seite.lblErgebnis4Ueber50000.text = QString::number(mengen.ueberHoechstmenge);
  zaehlerZeigen4(seite);
  if (mengen.basis > 0) {
    const double preis = gesamtbetrag.alsDouble() / static_cast<double>(mengen.basis);
    seite.lblPreisProKilo.text = Zahlenformat::dezimal(preis, 3, zeichen) + u" €"_s;
  }
}

struct Aufstellung {
  std::vector<Waehrung> betraege;  // row by row
  Waehrung summe;
};

// nullopt if an amount or the sum does not fit.
std::optional<Aufstellung> betraegeBerechnen(const DatenTypen& typen, const Liste& liste,
                                             Waehrung gesamtbetrag, qint64 mengeFuerBerechnung) {
  Aufstellung aufstellung;
  aufstellung.betraege.reserve(liste.zeilen().size());
  for (const Zeile& zeile : liste.zeilen()) {
    const qint32 basis = typen.TextInLong(zeile.texte[kBasis]);
    const std::optional<Waehrung> betrag =
        anteilGerundetAufGeradeCent(gesamtbetrag, basis, mengeFuerBerechnung);
    const std::optional<Waehrung> summe = betrag ? aufstellung.summe.plus(*betrag) : std::nullopt;
    if (!summe) return std::nullopt;
    aufstellung.betraege.push_back(*betrag);
    aufstellung.summe = *summe;
  }
  return aufstellung;
}

// The step ends here: the rows stand without amounts, and nobody may carry them on.
void abbrechen(Umgebung& umgebung, Seite4& seite, const QString& grund) {
  umgebung.protokoll.fehler(u"ListeFuellen4: "_s + grund);
  zaehlerZeigen4(seite);
  seite.lblVerteilt.text = Zahlenformat::waehrung({}, umgebung.typen.zahlenzeichen());
  seite.cmdWeiter4.ein = false;
  umgebung.welt.meldungen.zeigen({grund, Symbol::Kritisch});
}

QString gesamtbetragZuGross() {
  return u"Der Gesamtbetrag ist zu groß, die Beträge der Mitglieder können nicht berechnet werden. Bitte "
         "prüfen Sie den Gesamtbetrag und die Milchmengen der Mitglieder."_s;
}

void auszahlungVerteilen(Umgebung& umgebung, Seite4& seite, const Mengen& mengen, Waehrung gesamtbetrag,
                         const Zahlenzeichen& zeichen) {
  const bool jemand = seite.lvwListe4.anzahl() > 0;
  if (jemand && mengen.basis <= 0) {
    abbrechen(
        umgebung, seite,
        u"Die Mengen für die Berechnung ergeben zusammen "_s + Zahlenformat::ganzzahl(mengen.basis, zeichen) +
            u" kg. Der Gesamtbetrag kann nur auf eine Summe über 0 kg verteilt werden. Bitte prüfen Sie die "
            "Milchmengen der Mitglieder in Verbindo."_s);
    return;
  }
  const std::optional<Aufstellung> aufstellung =
      betraegeBerechnen(umgebung.typen, seite.lvwListe4, gesamtbetrag, mengen.basis);
  if (!aufstellung) {
    abbrechen(umgebung, seite, gesamtbetragZuGross());
    return;
  }
  for (int i = 0; i < seite.lvwListe4.anzahl(); ++i) {
    const Waehrung betrag = aufstellung->betraege[static_cast<std::size_t>(i)];
    seite.lvwListe4.textSetzen(i, kNetto, Zahlenformat::waehrung(betrag, zeichen));
  }
  seite.cmdDrucken4.ein = seite.cmdSerienbriefe4.ein = seite.cmdSerienbriefe4Ausgeschieden.ein = jemand;
  seite.cmdWeiter4.ein = true;
  seite.lblVerteilt.text = Zahlenformat::waehrung(aufstellung->summe, zeichen);
}

}  // namespace

void ListeFuellen4(Umgebung& umgebung, Seiten& seiten) {
  Seite4& seite = seiten.seite4;
  const std::optional<Waehrung> gesamtbetrag = DatenTypen::BetragLesen(seite.txtGesamtbetrag.text);
  seite.lvwListe4.leeren();
  seite.lvwAusgeschieden4.leeren();
  if (seiten.seite3b.lvwListe3b.anzahl() == 0) return;
  if (!gesamtbetrag) {
    abbrechen(umgebung, seite, gesamtbetragZuGross());
    return;
  }

  std::vector<Mitglied> mitglieder;
  const bool gelesen =
      ungestoertLesen(umgebung, u"ListeFuellen4"_s, [&](std::unique_ptr<Verbindung>& verbindung) {
        mitglieder = mitgliederMitMengeLesen(umgebung, seiten, verbindung);
      });
  if (!gelesen) {
    zaehlerZeigen4(seite);
    seite.cmdWeiter4.ein = false;
    return;
  }

  const Zahlenzeichen zeichen = umgebung.typen.zahlenzeichen();
  const Mengen mengen = listenFuellen(seite, mitglieder, zeichen);
  mengenZeigen(seite, mengen, *gesamtbetrag, zeichen);
  auszahlungVerteilen(umgebung, seite, mengen, *gesamtbetrag, zeichen);
}

void txtGesamtbetrag_LostFocus(Umgebung& umgebung, Seite4& seite) {
  const std::optional<Waehrung> betrag = DatenTypen::BetragLesen(seite.txtGesamtbetrag.text);
  // What does not fit stays as it was typed: the step says so.
  if (betrag) seite.txtGesamtbetrag.text = Zahlenformat::waehrung(*betrag, umgebung.typen.zahlenzeichen());
}

}  // namespace pelvanto
