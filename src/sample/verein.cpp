#include "sample/verein.h"

#include <algorithm>
#include <set>
#include <utility>

#include "sample/gruppen.h"
#include "sample/konten.h"
#include "sample/namen.h"
#include "sample/sonderfaelle.h"
#include "sample/zufall.h"

namespace pelvanto::beispiel {

namespace {

constexpr int zahlDerPersonen = 300;
constexpr std::int32_t ersteId = 1001;

Text zahl(std::int32_t wert) {
  Text text;
  do {
    text.insert(text.begin(), static_cast<char16_t>(u'0' + wert % 10));
    wert /= 10;
  } while (wert > 0);
  return text;
}

class Vereinsgruender {
 public:
  VerbindoDaten gruenden(int jahr);

 private:
  void sondermitglieder();
  void gewoehnlichePersonen();
  void ehemalige();
  void vornamenliste();
  void adressen();

  Person erfinden();
  Text notiz(int worte);
  void aufnehmen(const Sonderfall& fall);
  void mitglied(ZahlOderNull person, ZahlOderNull gruppe, ZahlOderNull menge = std::nullopt) {
    daten_.mitglieder.push_back({person, gruppe, menge});
  }

  VerbindoDaten daten_;
  Zufall zufall_{20260316};
  std::int32_t naechsteId_ = ersteId;
  std::set<std::pair<TextOderNull, TextOderNull>> vergeben_;  // nobody has the name and address of another
};

Text Vereinsgruender::notiz(int worte) {
  Text text;
  for (int i = 0; i < worte; ++i) {
    if (i > 0) text += u' ';
    text += zufall_.aus(notizworte());
  }
  return text;
}

Person Vereinsgruender::erfinden() {
  Person person;
  do {
    const BekannterVorname& vorname = zufall_.aus(vornamen());
    const BekannterOrt& ort = zufall_.aus(orte());
    Text name(zufall_.aus(familiennamen()));
    if (zufall_.prozent(3)) name += u"-" + Text(zufall_.aus(familiennamen()));
    if (zufall_.prozent(6)) name += u" " + Text(zufall_.aus(titel()));
    person.namen = name + u" " + Text(vorname.name);
    person.adresse = Text(ort.plz) + u" " + Text(ort.ort) + u", " + Text(zufall_.aus(strassen())) + u" " +
                     zahl(zufall_.zwischen(1, 160));
  } while (vergeben_.contains({person.namen, person.adresse}));
  if (zufall_.prozent(90)) {
    person.telefon = u"0664 " + zahl(zufall_.zwischen(100, 999)) + u" " + zahl(zufall_.zwischen(10, 99)) +
                     u" " + zahl(zufall_.zwischen(10, 99));
  }
  person.ustPauschaliert = zufall_.prozent(35);
  if (!person.ustPauschaliert) person.uidNummer = u"ATU" + zahl(zufall_.zwischen(10000000, 79999999));
  person.iban = ibanOesterreich(34000 + zufall_.unter(800), 100000 + zufall_.unter(9000000));
  if (zufall_.prozent(30)) person.iban = inGruppen(*person.iban);
  person.bic = zufall_.prozent(80) ? u"HOFKAT2LXXX" : u"MUSTAT2L";
  if (zufall_.prozent(40)) person.notiz = notiz(zufall_.zwischen(1, 60));
  if (zufall_.prozent(2)) person.notiz = notiz(1500);
  if (zufall_.prozent(70)) person.geburtsdatum = zufall_.zwischen(12000, 38000);
  if (zufall_.prozent(60)) person.umsatz = std::int64_t{100} * zufall_.zwischen(0, 9000000);
  if (zufall_.prozent(30)) person.eMail = u"hof" + zahl(naechsteId_) + u"@beispiel.example";
  person.familie = zufall_.prozent(10) ? 1 : 0;
  person.firma = 0;
  if (zufall_.prozent(80)) person.keineAnrede = 0;
  return person;
}

void Vereinsgruender::aufnehmen(const Sonderfall& fall) {
  Person person = fall.person;
  person.id = naechsteId_;
  naechsteId_ += 1 + static_cast<std::int32_t>(zufall_.unter(4) == 0 ? zufall_.unter(5) : 0);
  vergeben_.insert({person.namen, person.adresse});
  mitglied(person.id, gruppe::milchlieferanten, fall.menge);
  if (fall.vorjahr) mitglied(person.id, gruppe::beitragVorjahr, 1);
  if (fall.heuer) mitglied(person.id, gruppe::beitragHeuer, 1);
  if (fall.qualitaet) mitglied(person.id, gruppe::qualitaetsprogramm);
  if (fall.bio) mitglied(person.id, gruppe::bioBetriebe, zufall_.zwischen(1, 99));
  if (zufall_.prozent(50)) mitglied(person.id, gruppe::weihnachtspost);
  if (zufall_.prozent(20)) mitglied(person.id, gruppe::beitragVorvorjahr, 1);
  daten_.personen.push_back(std::move(person));
}

void Vereinsgruender::sondermitglieder() {
  for (const Sonderfall& fall : sonderfaelle()) aufnehmen(fall);
  // Entered twice by mistake: once counts.
  mitglied(ersteId, gruppe::beitragHeuer, 1);
  mitglied(ersteId + 1, gruppe::bioBetriebe);
}

void Vereinsgruender::gewoehnlichePersonen() {
  while (daten_.personen.size() < zahlDerPersonen) {
    if (zufall_.prozent(22)) {  // a contact who delivers no milk
      Person person = erfinden();
      person.id = naechsteId_++;
      vergeben_.insert({person.namen, person.adresse});
      mitglied(person.id, zufall_.prozent(50) ? gruppe::kunden : gruppe::lieferanten);
      if (zufall_.prozent(30)) mitglied(person.id, gruppe::lieferantenNochmals);
      daten_.personen.push_back(std::move(person));
      continue;
    }
    Sonderfall fall;
    fall.person = erfinden();
    fall.menge = zufall_.prozent(2) ? zufall_.zwischen(50001, 140000) : zufall_.zwischen(2500, 49000);
    fall.vorjahr = zufall_.prozent(96);
    fall.heuer = zufall_.prozent(95);
    fall.qualitaet = zufall_.prozent(90);
    fall.bio = zufall_.prozent(75);
    aufnehmen(fall);
  }
}

// Memberships outlive persons and groups.
void Vereinsgruender::ehemalige() {
  for (const std::int32_t weg : {801, 802, 803}) {
    mitglied(weg, gruppe::milchlieferanten, 15000);
    mitglied(weg, gruppe::beitragVorjahr, 1);
    mitglied(weg, gruppe::beitragHeuer, 1);
    mitglied(weg, gruppe::qualitaetsprogramm);
  }
  mitglied(ersteId, 99);
  mitglied(std::nullopt, std::nullopt);
  for (std::int32_t i = 0; i < 5; ++i) mitglied(ersteId + 20 * i, gruppe::vorstand);
}

void Vereinsgruender::vornamenliste() {
  for (const BekannterVorname& vorname : vornamen()) {
    daten_.vornamen.push_back(
        {.vorname = Text(vorname.name), .maennlich = vorname.maennlich, .anzahl = zufall_.zwischen(0, 40)});
  }
  for (const std::u16string_view wort : titel()) {
    const bool grad = wort != u"ÖkR" && wort != u"KommR";
    daten_.vornamen.push_back(
        {.vorname = Text(wort), .titel = true, .titelOben = !grad, .akademischerGrad = grad});
  }
}

void Vereinsgruender::adressen() {
  for (std::size_t i = 60; i < 72; ++i) {
    const Person& person = daten_.personen[i];
    const BekannterOrt& ort = zufall_.aus(orte());
    const std::size_t luecke = person.namen->find(u' ');
    daten_.adressen.push_back(
        {.idNummer = person.id,
         .anrede = u"Familie",
         .vorname = person.namen->substr(luecke + 1),
         .famname = person.namen->substr(0, luecke),
         .plz = Text(ort.plz),
         .ort = Text(ort.ort),
         .strasse = Text(zufall_.aus(strassen())) + u" " + zahl(zufall_.zwischen(1, 99)),
         .du = zufall_.prozent(20)});
  }
}

VerbindoDaten Vereinsgruender::gruenden(int jahr) {
  daten_.gruppen = alleGruppen(jahr);
  sondermitglieder();
  gewoehnlichePersonen();
  ehemalige();
  vornamenliste();
  adressen();
  return std::move(daten_);
}

}  // namespace

VerbindoDaten verein(int jahr) { return Vereinsgruender().gruenden(jahr); }

}  // namespace pelvanto::beispiel
