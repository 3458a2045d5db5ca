// Step 5: bank details and VAT; the transfer table for the payment file.
#include <array>

#include "steps/auszahlung.h"
#include "steps/schritte.h"
#include "steps/spalten.h"
#include "steps/texte.h"
#include "steps/ungestoert_lesen.h"
#include "support/kuerzen.h"
#include "support/zahlenformat.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

// Lengths in characters: as stored, and as a transfer can hold them.
constexpr int kKuerzesteBIC = 8;
constexpr int kKuerzesteIBAN = 20;
constexpr int kLaengsteBIC = 11;
constexpr int kLaengsteIBAN = 35;
constexpr int kLaengsterText = 70;

// Where net amount and rate stand in a row of lvwListe4.
constexpr int kFeldNetto = 4;
constexpr int kFeldUst = 5;

struct Empfaenger {
  int id = 0;
  QString name, adresse, telefon, iban, bic;  // as stored
  Waehrung netto;
  int satz = 0;
};

struct Posten {
  Empfaenger empfaenger;
  Waehrung steuer, brutto;
};

struct Satzsumme {
  Waehrung netto, steuer;
};

// Everything that the step shows and hands on.
struct Sammlung {
  std::vector<Posten> posten;
  std::vector<Empfaenger> ohneBank;
  Satzsumme zehn, dreizehn;
  int falscheSaetze = 0;
};

bool bankverbindungBrauchbar(const Empfaenger& empfaenger) {
  return empfaenger.bic.size() >= kKuerzesteBIC && empfaenger.iban.size() >= kKuerzesteIBAN &&
         ohneAeussereBlanks(empfaenger.bic).size() <= kLaengsteBIC &&
         ohneBlanks(empfaenger.iban).size() <= kLaengsteIBAN;
}

// As stored where that fits, else without its outer blanks.
QString kundeBIC(const QString& bic) { return bic.size() <= kLaengsteBIC ? bic : ohneAeussereBlanks(bic); }

// Whoever cannot be found is left out, with a line in the log.
std::vector<Empfaenger> empfaengerLesen(Umgebung& umgebung, const Liste& quelle,
                                        std::unique_ptr<Verbindung>& verbindung) {
  std::vector<Empfaenger> empfaenger;
  const DatenTypen& typen = umgebung.typen;
  if (!umgebung.datenbank.DatenbankOeffnen(verbindung, umgebung.werte.DatenbankPfad, false, false)) {
    return empfaenger;
  }
  for (const Zeile& zeile : quelle.zeilen()) {
    const qint32 id = typen.TextInLong(zeile.schluessel.mid(4));
    std::optional<Abfrage> person;
    bool fehler = false;
    if (!umgebung.datenbank.SnapshotOeffnen(
            *verbindung, person,
            u"SELECT ID, Namen, Adresse, Telefon, IBAN, BIC FROM Namensliste WHERE ID = "_s +
                QString::number(id),
            false, true, fehler)) {
      const QString grund = fehler ? u"konnte in der Namensliste nicht gelesen werden"_s
                                   : u"wurde in der Namensliste nicht gefunden"_s;
      umgebung.protokoll.schreiben(u"Person %1 "_s.arg(id) + grund + u" und wurde übersprungen."_s);
      continue;
    }
    empfaenger.push_back({id, typen.text(person->feld(u"Namen")), typen.text(person->feld(u"Adresse")),
                          typen.text(person->feld(u"Telefon")), typen.text(person->feld(u"IBAN")),
                          typen.text(person->feld(u"BIC")), typen.TextInCurrency(zeile.texte[kFeldNetto]),
                          typen.TextInLong(zeile.texte[kFeldUst])});
  }
  return empfaenger;
}

bool dazu(Waehrung& summe, Waehrung betrag) {
  const std::optional<Waehrung> neu = summe.plus(betrag);
  if (neu) summe = *neu;
  return neu.has_value();
}

// False if an amount does not fit.
bool aufnehmen(Sammlung& sammlung, const Empfaenger& empfaenger) {
  if (!bankverbindungBrauchbar(empfaenger)) {
    sammlung.ohneBank.push_back(empfaenger);
    return true;
  }
  const std::optional<Waehrung> steuer = steuerGerundetAufGeradeCent(empfaenger.netto, empfaenger.satz);
  const std::optional<Waehrung> brutto = steuer ? empfaenger.netto.plus(*steuer) : std::nullopt;
  if (!brutto) return false;
  sammlung.posten.push_back({empfaenger, *steuer, *brutto});
  if (empfaenger.satz != 10 && empfaenger.satz != 13) {
    ++sammlung.falscheSaetze;
    return true;
  }
  Satzsumme& summe = empfaenger.satz == 10 ? sammlung.zehn : sammlung.dreizehn;
  return dazu(summe.netto, empfaenger.netto) && dazu(summe.steuer, *steuer);
}

std::optional<Sammlung> aufteilen(const std::vector<Empfaenger>& alle) {
  Sammlung sammlung;
  for (const Empfaenger& empfaenger : alle) {
    if (!aufnehmen(sammlung, empfaenger)) return std::nullopt;
  }
  return sammlung;
}

void BankverbindungOKListe(Liste& liste, const Posten& posten, const Zahlenzeichen& zeichen) {
  if (liste.spalten().empty()) {
    liste.spaltenSetzen(spaltenFuer(liste.breite, {{u"Name"_s, 0.15},
                                                   {u"Adresse"_s, 0.3},
                                                   {u"BIC"_s, 0.075},
                                                   {u"IBAN"_s, 0.075},
                                                   {u"Netto"_s, 0.1, Ausrichtung::Rechts},
                                                   {u"Ust."_s, 0.1, Ausrichtung::Rechts, u"Ust"_s},
                                                   {u"Steuer"_s, 0.1, Ausrichtung::Rechts},
                                                   {u"Brutto"_s, 0.1, Ausrichtung::Rechts}}));
  }
  const Empfaenger& empfaenger = posten.empfaenger;
  liste.hinzufuegen(
      zeilenschluessel(empfaenger.id),
      {empfaenger.name, empfaenger.adresse, ohneAeussereBlanks(empfaenger.bic),
       ohneAeussereBlanks(empfaenger.iban), Zahlenformat::waehrung(empfaenger.netto, zeichen),
       QString::number(empfaenger.satz) + u"%"_s, Zahlenformat::waehrung(posten.steuer, zeichen),
       Zahlenformat::waehrung(posten.brutto, zeichen)});
}

void BankverbindungFehltListe(Liste& liste, const Empfaenger& empfaenger) {
  if (liste.spalten().empty()) liste.spaltenSetzen(personenspalten(liste.breite, 0.3, 0.4, 0.3));
  liste.hinzufuegen(zeilenschluessel(empfaenger.id),
                    {empfaenger.name, empfaenger.adresse, empfaenger.telefon});
}

Ueberweisung alsUeberweisung(const Posten& posten, const QString& verwendungszweck) {
  const Empfaenger& empfaenger = posten.empfaenger;
  const QString id = QString::number(empfaenger.id);
  return {ohneBlanks(empfaenger.iban),
          kundeBIC(empfaenger.bic),
          posten.brutto,
          id,
          gekuerzt(ohneAeussereBlanks(empfaenger.name), kLaengsterText),
          gekuerzt(ohneAeussereBlanks(empfaenger.adresse), kLaengsterText),
          verwendungszweck,
          u"MitgliedID"_s + id};
}

// The nine amounts; nullopt if one of them does not fit.
std::optional<std::array<Waehrung, 9>> summen(const Sammlung& sammlung) {
  const auto plus = [](std::optional<Waehrung> links, std::optional<Waehrung> rechts) {
    return links && rechts ? links->plus(*rechts) : std::nullopt;
  };
  const Satzsumme& zehn = sammlung.zehn;
  const Satzsumme& dreizehn = sammlung.dreizehn;
  const auto brutto10 = plus(zehn.netto, zehn.steuer);
  const auto brutto13 = plus(dreizehn.netto, dreizehn.steuer);
  const auto netto = plus(zehn.netto, dreizehn.netto);
  const auto steuer = plus(zehn.steuer, dreizehn.steuer);
  const auto brutto = plus(brutto10, brutto13);
  if (!netto || !steuer || !brutto) return std::nullopt;
  return std::array{zehn.netto, zehn.steuer, *brutto10, dreizehn.netto, dreizehn.steuer,
                    *brutto13,  *netto,      *steuer,   *brutto};
}

void summenZeigen(Seite5& seite, const std::array<Waehrung, 9>& betraege, const Zahlenzeichen& zeichen) {
  const std::array beschriftungen{&seite.lbl10Netto,   &seite.lbl10Steuer,   &seite.lbl10Brutto,
                                  &seite.lbl12Netto,   &seite.lbl12Steuer,   &seite.lbl12Brutto,
                                  &seite.lblAlleNetto, &seite.lblAlleSteuer, &seite.lblAlleBrutto};
  for (std::size_t i = 0; i < betraege.size(); ++i) {
    beschriftungen[i]->text = Zahlenformat::waehrung(betraege[i], zeichen);
  }
}

void sammlungZeigen(Umgebung& umgebung, Seiten& seiten, const Sammlung& sammlung,
                    const std::array<Waehrung, 9>& betraege) {
  Seite5& seite = seiten.seite5;
  const Zahlenzeichen zeichen = umgebung.typen.zahlenzeichen();
  const QString verwendungszweck =
      gekuerzt(ohneAeussereBlanks(seite.txtWortlautUeberweisung.text), kLaengsterText);
  seite.lvwListe5.leeren();
  seite.lvwAusgeschieden5.leeren();
  UeberweisungT tabelle;
  tabelle.reserve(sammlung.posten.size());
  for (const Posten& posten : sammlung.posten) {
    BankverbindungOKListe(seite.lvwListe5, posten, zeichen);
    tabelle.push_back(alsUeberweisung(posten, verwendungszweck));
  }
  for (const Empfaenger& empfaenger : sammlung.ohneBank) {
    BankverbindungFehltListe(seite.lvwAusgeschieden5, empfaenger);
  }
  seiten.ueberweisungT = std::move(tabelle);
  seite.lblErgebnis5.text = QString::number(seite.lvwListe5.anzahl());
  seite.lblAusgeschieden5.text = QString::number(seite.lvwAusgeschieden5.anzahl());
  seite.cmdSerienbriefe5.ein = seite.lvwListe5.anzahl() > 0;
  summenZeigen(seite, betraege, zeichen);
}

}  // namespace

void DatentraegerDatenSammeln(Umgebung& umgebung, Seiten& seiten) {
  const Liste& quelle = seiten.seite4.lvwListe4;
  if (quelle.anzahl() == 0) return;
  // Until the step has come to its end there is nothing that a file could be made of.
  sammlungZeigen(umgebung, seiten, {}, {});

  std::vector<Empfaenger> empfaenger;
  const bool gelesen =
      ungestoertLesen(umgebung, u"DatentraegerDatenSammeln"_s, [&](std::unique_ptr<Verbindung>& verbindung) {
        empfaenger = empfaengerLesen(umgebung, quelle, verbindung);
      });
  if (!gelesen) return;

  const std::optional<Sammlung> sammlung = aufteilen(empfaenger);
  const auto betraege = sammlung ? summen(*sammlung) : std::nullopt;
  if (!betraege) {
    const QString grund =
        u"Die Beträge sind zu groß, Umsatzsteuer und Bruttobeträge können nicht berechnet "
        "werden. Bitte prüfen Sie den Gesamtbetrag im vorigen Schritt."_s;
    umgebung.protokoll.fehler(u"DatentraegerDatenSammeln: "_s + grund);
    umgebung.welt.meldungen.zeigen({grund, Symbol::Kritisch});
    return;
  }
  for (int i = 0; i < sammlung->falscheSaetze; ++i) {
    umgebung.welt.meldungen.zeigen({u"Ungültiger Steuersatz!"_s, Symbol::Kritisch});
  }
  sammlungZeigen(umgebung, seiten, *sammlung, *betraege);
}

void cmdErgebnisZeigen5_Click(Umgebung& umgebung, Seiten& seiten) {
  DatentraegerDatenSammeln(umgebung, seiten);
  Seite5& seite = seiten.seite5;
  const bool jemand = seite.lvwListe5.anzahl() > 0;
  seite.cmdDrucken5.ein = seite.cmdSerienbriefe5.ein = seite.cmdSerienbriefe5Ausgeschieden.ein = jemand;
  // A table that has been written is gone; the lists of that run do not bring it back.
  seite.cmdDatentraegerErstellen.ein = jemand && seiten.ueberweisungT.has_value();
}

}  // namespace pelvanto
