#include "sample/sonderfaelle.h"

#include "sample/konten.h"

namespace pelvanto::beispiel {

namespace {

constexpr std::uint32_t bankleitzahl = 32000;
constexpr const char16_t* bicLang = u"HOFKAT2LXXX";
constexpr const char16_t* bicKurz = u"MUSTAT2L";

// A member with everything in order; the account follows from the number.
Sonderfall mitglied(std::uint64_t nummer, const char16_t* namen, const char16_t* adresse) {
  Sonderfall fall;
  fall.person.namen = namen;
  fall.person.adresse = adresse;
  fall.person.telefon = u"07224/4711";
  fall.person.uidNummer = u"ATU40218305";
  fall.person.iban = ibanOesterreich(bankleitzahl, 70000 + nummer);
  fall.person.bic = bicLang;
  return fall;
}

void mengen(std::vector<Sonderfall>& faelle) {
  const auto mit = [&](std::uint64_t nummer, const char16_t* namen, ZahlOderNull menge) {
    faelle.push_back(mitglied(nummer, namen, u"4780 Schärding, Innlände 6"));
    faelle.back().menge = menge;
  };
  mit(1, u"Grenzinger Josef", 50000);
  mit(2, u"Großegger Hubert", 50001);
  mit(3, u"Knappeneder Rosa", 49999);
  mit(4, u"Meierhof Agrar GmbH & Co KG", 132480);
  mit(5, u"Kleinlehner Eva", 1);
  mit(6, u"Stillgelegt Franz", 0);
  mit(7, u"Ohnezettel Maria", std::nullopt);
}

void bankdaten(std::vector<Sonderfall>& faelle) {
  const auto mit = [&](std::uint64_t nummer, const char16_t* namen, TextOderNull iban, TextOderNull bic) {
    faelle.push_back(mitglied(nummer, namen, u"4910 Ried im Innkreis, Kirchenplatz 9"));
    faelle.back().person.iban = std::move(iban);
    faelle.back().person.bic = std::move(bic);
  };
  const Text iban = ibanOesterreich(bankleitzahl, 81000);
  mit(10, u"Barzahler Alois", std::nullopt, std::nullopt);
  mit(11, u"Ohnebic Theresia", ibanOesterreich(bankleitzahl, 81001), std::nullopt);
  mit(12, u"Ohneiban Karl", std::nullopt, bicLang);
  mit(13, u"Kurzkonto Otto", iban.substr(0, 19), bicLang);
  mit(14, u"Kurzbic Monika", ibanOesterreich(bankleitzahl, 81002), u"HOFKAT2");
  mit(15, u"Langbic Norbert", ibanOesterreich(bankleitzahl, 81003), u"HOFKAT2LXXXX");
  mit(16, u"Gruppner Sabine", inGruppen(ibanOesterreich(bankleitzahl, 81004)), bicKurz);
  mit(17, u"Bayerl Ludwig", ibanDeutschland(74050000, 815047), u"MUSTDEM1PAS");
  mit(18, u"Blankner Hedwig", ibanOesterreich(bankleitzahl, 81005), u" MUSTAT2L ");
}

void steuer(std::vector<Sonderfall>& faelle) {
  const auto mit = [&](std::uint64_t nummer, const char16_t* namen, TextOderNull uid, bool pauschaliert) {
    faelle.push_back(mitglied(nummer, namen, u"4240 Freistadt, Marktplatz 2"));
    faelle.back().person.uidNummer = std::move(uid);
    faelle.back().person.ustPauschaliert = pauschaliert;
  };
  mit(20, u"Pauschinger Georg", std::nullopt, true);
  mit(21, u"Halbnummer Petra", u"ATU1234", true);
  mit(22, u"Achtstellig Ignaz", u"ATU12345", false);
  mit(23, u"Leernummer Zita", u"", true);
}

void beitraege(std::vector<Sonderfall>& faelle) {
  const auto mit = [&](std::uint64_t nummer, const char16_t* namen, bool vorjahr, bool heuer) {
    faelle.push_back(mitglied(nummer, namen, u"4210 Gallneukirchen, Gusenweg 3"));
    faelle.back().vorjahr = vorjahr;
    faelle.back().heuer = heuer;
  };
  mit(30, u"Vorjahr Anna", true, false);
  mit(31, u"Neuling Florian", false, true);
  mit(32, u"Säumig Erwin", false, false);
  const auto ohneGruppe = [&](std::uint64_t nummer, const char16_t* namen, bool qualitaet, bool bio) {
    faelle.push_back(mitglied(nummer, namen, u"6130 Schwaz, Hub Nr. 114"));
    faelle.back().qualitaet = qualitaet;
    faelle.back().bio = bio;
  };
  ohneGruppe(33, u"Altbauer Engelbert", false, true);
  ohneGruppe(34, u"Neustift Daniela", true, false);
}

void namen(std::vector<Sonderfall>& faelle) {
  const auto mit = [&](std::uint64_t nummer, const char16_t* namen, const char16_t* adresse) {
    faelle.push_back(mitglied(nummer, namen, adresse));
  };
  mit(40, u"D'Angelo Rita", u"9500 Villach, Schulgasse 95");
  mit(41, u"Müller Anton", u"4020 Linz, Am Damm 1");
  mit(42, u"Muller Anton", u"4020 Linz, Am Damm 2");
  mit(43, u"Mullzer Anton", u"4020 Linz, Am Damm 3");
  mit(44, u"Weiß Otto", u"4644 Scharnstein, Almtalweg 63");
  mit(45, u"Weiss Otto", u"4644 Scharnstein, Almtalweg 64");
  mit(46, u"Wei-ß Otto", u"4644 Scharnstein, Almtalweg 65");
  mit(47, u"Černý Aimée", u"4240 Freistadt, Böhmertor 7");
  mit(48, u"Ődön Kálmán", u"7100 Neusiedl am See, Łukaszgasse 1 – Hof „Rosental“");
  mit(49, u"Huber Johann & Maria", u"4113 St. Martin im Mühlkreis, Kirchenplatz 4");
  mit(50, u"\"Zum Öhlinger\" Hofkäserei", u"4190 Bad Leonfelden, Hauptplatz 11");
  mit(51,
      u"von und zu Traunkirchen-Öhlingsdorf Maximilian Ferdinand Leopold Johannes Nepomuk, Gutsverwaltung",
      u"4360 Sankt Georgen am Walde und an der Kleinen Gusen im unteren Mühlviertel, Markt 1, Hinterhaus");
  mit(52, u"  Wagner  Karl ", u"4100  Ottensheim,  Marktplatz  1 ");
  mit(53, u"4-Kanter-Hof Gen.", u"4644 Scharnstein, Almtalweg 57");
  mit(54, u"Bauer Franz\tJun.", u"4400 Steyr,\r\nEnnskai 12");
  faelle.push_back(mitglied(55, u"", u"4320 Perg, Linzer Straße 5"));
  faelle.back().person.namen.reset();
  faelle.push_back(mitglied(56, u"Adresslos Veronika", u""));
  faelle.back().person.adresse.reset();
  faelle.back().person.telefon.reset();
}

}  // namespace

std::vector<Sonderfall> sonderfaelle() {
  std::vector<Sonderfall> faelle;
  mengen(faelle);
  bankdaten(faelle);
  steuer(faelle);
  beitraege(faelle);
  namen(faelle);
  return faelle;
}

}  // namespace pelvanto::beispiel
