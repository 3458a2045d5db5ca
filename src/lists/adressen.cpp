#include "lists/adressen.h"

#include <new>

#include "lists/adressen_felder.h"
#include "lists/adressen_fragen.h"
#include "lists/adressen_kontaktdaten.h"
#include "support/blanks.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

constexpr int kDeutschland = 49;

// Letters within the country go without its prefix.
QString ohneHeimat(const QString& plzOrt, const QString& kennung) {
  const QString text = ohneAeussereBlanks(plzOrt);
  return text.startsWith(kennung) ? ohneAeussereBlanks(text.mid(kennung.size())) : text;
}

}  // namespace

Adressen::Adressen(const Prozesswerte& werte, DatenbankRoutinen& datenbank, Protokoll& protokoll,
                   Meldungen& meldungen, const Gebietsschema& schema, const FunktionenFürINI& ini,
                   const DatenTypen& typen)
    : werte_(werte),
      datenbank_(datenbank),
      protokoll_(protokoll),
      meldungen_(meldungen),
      schema_(schema),
      ini_(ini),
      typen_(typen) {}

int Adressen::HeimatlandVorwahl() const {
  const int vorwahl = schema_.landesvorwahl();
  if (vorwahl != kDeutschland) return vorwahl;
  const qint32 land = typen_.TextInLong(ini_.INILesen(u"Programm"_s, u"Land"_s, {}));
  return land > 0 ? land : vorwahl;
}

AnschriftErgebnis Adressen::AnschriftErstellen(qint32 PersonenID) {
  AnschriftErgebnis ergebnis;
  if (PersonenID < 0) return ergebnis;
  ergebnis.anschrift.IDNummer = PersonenID;
  std::unique_ptr<Verbindung> verbindung;
  if (!datenbank_.DatenbankOeffnen(verbindung, werte_.DatenbankPfad, false, false)) {
    ergebnis.grund = u"Die Datenbank "_s + werte_.DatenbankPfad + u" konnte nicht geöffnet werden"_s;
    return ergebnis;
  }
  const auto abbrechen = [&](const Datenbankfehler& fehler) {
    const QString text =
        fehlerbericht({fehler.nummer, fehler.beschreibung}, u"AnschriftErstellen"_s, u"Adressen"_s);
    protokoll_.fehler(text);
    protokoll_.fehler(u"PersonenID: "_s + QString::number(PersonenID), 4);
    meldungen_.zeigen({text});
    ergebnis = {{}, fehler.beschreibung, {}};
  };
  try {
    erstellen(*verbindung, PersonenID, ergebnis);
  } catch (const Datenbankfehler& fehler) {
    abbrechen(fehler);
  } catch (const std::bad_alloc&) {
    abbrechen(speichermangel());
  }
  return ergebnis;
}

void Adressen::erstellen(Verbindung& verbindung, qint32 id, AnschriftErgebnis& ergebnis) {
  std::optional<Abfrage> zeile;
  bool fehler = false;
  if (!datenbank_.SnapshotOeffnen(verbindung, zeile,
                                  u"SELECT * FROM Namensliste WHERE ID = "_s + QString::number(id), false,
                                  false, fehler)) {
    ergebnis.grund = u"Die Stammdaten der Person konnten nicht gelesen werden (siehe Protokoll)"_s;
    return;
  }
  if (zeile->amEnde()) return;
  Person person = personLesen(id, *zeile, typen_);
  Kontaktdaten kontaktdaten(verbindung, datenbank_, protokoll_, meldungen_, typen_);
  ergebnis.anschrift = bauen(person, kontaktdaten);
  ergebnis.verworfeneWoerter = kontaktdaten.verworfen;
}

Anschrift Adressen::bauen(Person& person, Kontaktdaten& kontaktdaten) {
  const auto berichtigen = [&](Adressproblem problem) {
    kontaktdaten.adresseBerichtigen(person, [&](const QString& adresse) {
      return korrekturErfragen(meldungen_, person, problem, adresse);
    });
  };
  const Namensteile name = nameAnalysieren(person, kontaktdaten);
  const Adressteile adresse = adresseTeilen(person.adresse);
  Adressfelder felder(meldungen_, person);
  felder.nameFuellen(name);
  if (adresse.plzOrt.size() > kLaengsterPLZOrt) berichtigen(Adressproblem::PLZOrtZuLang);
  felder.uebrigesFuellen(name, adresse);

  const Ortsteile ort = ortTeilen(felder.anschrift.PLZOrt, felder.anschrift.Adresse, typen_);
  if (ort.plzZuLang) berichtigen(Adressproblem::PLZZuLang);
  felder.ortFuellen(ort);
  // The postcode keeps the prefix of the country.
  felder.anschrift.PLZOrt = ohneHeimat(felder.anschrift.PLZOrt, laenderkennung(HeimatlandVorwahl()));
  return felder.anschrift;
}

Namensteile Adressen::nameAnalysieren(Person& person, Kontaktdaten& kontaktdaten) {
  if (nenntMehrere(person.namen) && person.merkmale.keines() && !FamilienFrageUebergehen_) {
    merkmalErfragen(person, kontaktdaten);
  }
  return namenZerlegen(person.namen, person.merkmale, person.besondereBriefanrede, typen_, kontaktdaten, [&] {
    meldungen_.zeigen({u"Zeile für Name ist länger als 50 Zeichen und wird deshalb gekürzt!"_s});
  });
}

void Adressen::merkmalErfragen(Person& person, Kontaktdaten& kontaktdaten) {
  const auto setzen = [&](int& merkmal, const QString& spalte) {
    merkmal = 1;
    kontaktdaten.merkmalSetzen(person, spalte);
  };
  switch (familieErfragen(meldungen_, person.namen)) {
    case Familienantwort::Familie:
      return setzen(person.merkmale.familie, u"Familie"_s);
    case Familienantwort::Firma:
      return setzen(person.merkmale.firma, u"Firma"_s);
    case Familienantwort::KeineAnrede:
      return setzen(person.merkmale.keineAnrede, u"keineAnrede"_s);
    case Familienantwort::NichtMehrFragen:
      FamilienFrageUebergehen_ = true;
      return;
    case Familienantwort::NichtsDavon:
      return;
  }
}

}  // namespace pelvanto
