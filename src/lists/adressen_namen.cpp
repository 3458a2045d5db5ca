#include "lists/adressen_namen.h"

#include "support/blanks.h"
#include "support/kuerzen.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

constexpr int kLaengsteNamenszeile = 50;
constexpr QStringView kAnAlle = u"Sehr geehrte Damen und Herren!";

QString angehaengt(const QString& liste, const QString& wort) {
  return ohneAeussereBlanks(liste + u' ' + wort);
}

// A title in front of a name, with the blank behind it.
QString vorangestellt(const QString& titel) {
  const QString text = ohneAeussereBlanks(titel);
  return text.isEmpty() ? text : text + u' ';
}

// Only the first person of several, where the name is not that of a family, a firm or an office.
QString ersterVonMehreren(const QString& namen) {
  for (const QString& bindewort : {u" u. "_s, u" und "_s}) {
    const qsizetype stelle = namen.indexOf(bindewort);
    if (stelle >= 0) return namen.left(stelle);
  }
  return namen;
}

QString briefanrede(const Namensteile& teile, const QString& besondere) {
  QString besondereOhneBlanks = ohneAeussereBlanks(besondere);
  if (!besondereOhneBlanks.isEmpty()) return besondereOhneBlanks;
  const QString name = vorangestellt(teile.titelOben) + vorangestellt(teile.titel) + teile.namenszeile + u'!';
  if (teile.anrede == u"Herrn") return u"Sehr geehrter Herr "_s + name;
  if (teile.anrede == u"Frau") return u"Sehr geehrte Frau "_s + name;
  if (teile.anrede == u"Familie") return u"Sehr geehrte Familie "_s + teile.namenszeile + u'!';
  return kAnAlle.toString();
}

// A name of one word is nobody's in particular: only a mark of exactly 1 gives it a form of address.
Namensteile einWort(const QString& namen, const Anredemerkmale& merkmale) {
  Namensteile teile;
  if (merkmale.firma == 1) {
    teile.anrede = u"Firma"_s;
  } else if (merkmale.keineAnrede != 1 && merkmale.familie == 1) {
    teile.anrede = u"Familie"_s;
  }
  teile.namenszeile = namen;
  teile.briefanrede = kAnAlle.toString();
  return teile;
}

// Puts the words of a name, one after the other, where they belong.
class Zuordnung {
 public:
  Zuordnung(Woerterbuch& woerterbuch, const std::function<void()>& zeileGekuerzt)
      : woerterbuch_(woerterbuch), zeileGekuerzt_(zeileGekuerzt) {}

  void wort(const QString& wort) {
    const QString klein = wort.toLower();
    const bool generation = klein == u"jun." || klein == u"sen.";
    switch (generation ? Wortart::Unbekannt : woerterbuch_.nachschlagen(wort)) {
      case Wortart::Verworfen:
        return;
      case Wortart::Unbekannt:
        return anNamenszeile(wort);
      case Wortart::Titel:
        teile.titel = angehaengt(teile.titel, wort);
        return;
      case Wortart::TitelOben:
        teile.titelOben = angehaengt(teile.titelOben, wort);
        return;
      case Wortart::Mann:
        return vorname(wort, u"Herrn"_s);
      case Wortart::Frau:
        return vorname(wort, u"Frau"_s);
    }
  }

  Namensteile teile;

 private:
  void vorname(const QString& wort, const QString& anrede) {
    if (teile.anrede.isEmpty()) teile.anrede = anrede;
    teile.vornamen = angehaengt(teile.vornamen, wort);
  }

  void anNamenszeile(const QString& wort) {
    teile.namenszeile = angehaengt(teile.namenszeile, wort);
    if (teile.namenszeile.size() <= kLaengsteNamenszeile) return;
    zeileGekuerzt_();
    teile.namenszeile = gekuerzt(teile.namenszeile, kLaengsteNamenszeile);
  }

  Woerterbuch& woerterbuch_;
  const std::function<void()>& zeileGekuerzt_;
};

}  // namespace

bool nenntMehrere(const QString& namen) { return namen.contains(u" und ") || namen.contains(u" u. "); }

Namensteile namenZerlegen(const QString& namen, const Anredemerkmale& merkmale,
                          const QString& besondereBriefanrede, const DatenTypen& typen,
                          Woerterbuch& woerterbuch, const std::function<void()>& zeileGekuerzt) {
  if (!namen.contains(u' ')) return einWort(namen, merkmale);

  Zuordnung zuordnung(woerterbuch, zeileGekuerzt);
  Namensteile& teile = zuordnung.teile;
  QString rest = ohneAeussereBlanks(merkmale.keines() ? ersterVonMehreren(namen) : namen);
  while (!rest.isEmpty()) {
    const qsizetype komma = rest.indexOf(u',');
    if (komma >= 0) {
      teile.zusatz = ohneAeussereBlanks(rest.mid(komma + 1));
      rest = ohneAeussereBlanks(rest.left(komma));
    }
    if (merkmale.firma != 0 || merkmale.keineAnrede != 0) {
      if (merkmale.firma != 0) teile.anrede = u"Firma"_s;
      teile.namenszeile = rest;
      break;
    }
    if (nenntMehrere(rest) || merkmale.familie == 1) {
      teile.anrede = u"Familie"_s;
      teile.namenszeile = typen.Nummerisolieren(namen, u"links"_s, u" "_s);
      break;
    }
    const qsizetype blank = rest.indexOf(u' ');
    const QString wort = blank < 0 ? rest : rest.left(blank);
    rest = blank < 0 ? QString() : ohneAeussereBlanks(rest.mid(blank + 1));
    zuordnung.wort(wort);
  }
  teile.briefanrede = briefanrede(teile, besondereBriefanrede);
  return teile;
}

}  // namespace pelvanto
