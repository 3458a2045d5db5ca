#include "sample/verein.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "sample/gruppen.h"
#include "sample/konten.h"

namespace {

using namespace pelvanto::beispiel;

// ISO 13616: the number with its first four characters behind leaves 1.
bool hatRichtigePruefziffern(Text iban) {
  std::erase(iban, u' ');
  std::rotate(iban.begin(), iban.begin() + 4, iban.end());
  unsigned rest = 0;
  for (const char16_t zeichen : iban) {
    const unsigned wert = zeichen >= u'A' ? zeichen - u'A' + 10u : zeichen - u'0';
    rest = (rest * (wert > 9 ? 100 : 10) + wert) % 97;
  }
  return rest == 1;
}

TEST(Konten, HabenRichtigePruefziffern) {
  // Known accounts of textbooks.
  EXPECT_EQ(ibanOesterreich(19043, 234573201), u"AT611904300234573201");
  EXPECT_EQ(ibanDeutschland(37040044, 532013000), u"DE89370400440532013000");
  EXPECT_EQ(inGruppen(u"AT611904300234573201"), u"AT61 1904 3002 3457 3201");
  EXPECT_EQ(inGruppen(u"DE89370400440532013000"), u"DE89 3704 0044 0532 0130 00");
}

class Verein : public ::testing::Test {
 protected:
  bool istIn(std::int32_t person, std::int32_t gruppe) const {
    return std::ranges::any_of(daten_.mitglieder, [&](const Mitgliedschaft& mitglied) {
      return mitglied.person == person && mitglied.gruppe == gruppe;
    });
  }
  std::vector<Mitgliedschaft> lieferungen() const {
    std::vector<Mitgliedschaft> gefunden;
    std::ranges::copy_if(daten_.mitglieder, std::back_inserter(gefunden), [](const Mitgliedschaft& mitglied) {
      return mitglied.gruppe == gruppe::milchlieferanten;
    });
    return gefunden;
  }
  const Person* person(const ZahlOderNull& id) const {
    const auto gefunden = std::ranges::find_if(daten_.personen, [&](const Person& p) { return p.id == id; });
    return gefunden == daten_.personen.end() ? nullptr : &*gefunden;
  }

  VerbindoDaten daten_ = verein(2026);
};

TEST_F(Verein, HatKeineDoppeltenPersonen) {
  EXPECT_EQ(daten_.personen.size(), 300u);
  std::set<std::int32_t> nummern;
  std::set<std::pair<TextOderNull, TextOderNull>> namen;
  for (const Person& p : daten_.personen) {
    EXPECT_TRUE(nummern.insert(p.id).second) << p.id;
    EXPECT_TRUE(namen.insert({p.namen, p.adresse}).second) << p.id;
  }
}

TEST_F(Verein, HatRichtigeKontenBisAufDieGewollten) {
  std::set<Text> falsch;
  for (const Person& p : daten_.personen) {
    if (p.iban && !hatRichtigePruefziffern(*p.iban)) falsch.insert(*p.namen);
  }
  EXPECT_EQ(falsch, std::set<Text>{u"Kurzkonto Otto"});
}

// Everything that a step tells apart occurs among those who get so far.
TEST_F(Verein, HatJedenFallDerAuszahlung) {
  std::map<std::string, int> faelle;
  for (const Mitgliedschaft& lieferung : lieferungen()) {
    const Person* wer = person(lieferung.person);
    if (wer == nullptr) {
      ++faelle["nicht mehr da"];
      continue;
    }
    const bool vorjahr = istIn(wer->id, gruppe::beitragVorjahr), heuer = istIn(wer->id, gruppe::beitragHeuer);
    if (!vorjahr || !heuer) {
      ++faelle[vorjahr ? "nur Vorjahr" : heuer ? "nur heuer" : "nicht bezahlt"];
    } else if (!istIn(wer->id, gruppe::qualitaetsprogramm)) {
      ++faelle["ohne Qualität"];
    } else if (!istIn(wer->id, gruppe::bioBetriebe)) {
      ++faelle["ohne Bio"];
    } else if (lieferung.menge.value_or(0) == 0) {
      ++faelle[lieferung.menge ? "Menge 0" : "Menge Null"];
    } else if (!wer->iban || !wer->bic) {
      ++faelle["Bankverbindung fehlt"];
    } else if (wer->iban->size() < 20 || wer->bic->size() < 8 || wer->bic->size() > 11) {
      ++faelle["Bankverbindung unbrauchbar"];
    } else {
      ++faelle[wer->uidNummer.value_or(u"").size() < 8 ? "13 Prozent" : "10 Prozent"];
      if (*lieferung.menge > 50000) ++faelle["über 50000"];
      if (wer->namen.value_or(u"").size() > 70) ++faelle["langer Name"];
      if (!wer->namen) ++faelle["ohne Namen"];
    }
  }
  for (const char* fall :
       {"nicht mehr da", "nur Vorjahr", "nur heuer", "nicht bezahlt", "ohne Qualität", "ohne Bio", "Menge 0",
        "Menge Null", "Bankverbindung fehlt", "Bankverbindung unbrauchbar", "13 Prozent", "10 Prozent",
        "über 50000", "langer Name", "ohne Namen"}) {
    EXPECT_GT(faelle[fall], 0) << fall;
  }
  EXPECT_GT(faelle["10 Prozent"], 80);
}

TEST_F(Verein, FuehrtDieBeitragsgruppenDesJahres) {
  std::multiset<TextOderNull> namen;
  for (const Gruppe& g : daten_.gruppen) namen.insert(g.bezeichnung);
  EXPECT_EQ(namen.count(u"Mitgliedsbeitrag 2025"), 1u);
  EXPECT_EQ(namen.count(u"Mitgliedsbeitrag 2026"), 1u);
  EXPECT_EQ(namen.count(u"Lieferanten"), 2u);
  EXPECT_EQ(alleGruppen(2031)[6].bezeichnung, u"Mitgliedsbeitrag 2031");
}

}  // namespace
