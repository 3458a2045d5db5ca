#include "lists/adressen_ort.h"

#include <algorithm>

#include "support/blanks.h"
#include "support/kuerzen.h"

using namespace Qt::StringLiterals;

namespace pelvanto {
namespace {

constexpr int kLaengstePLZ = 7;
constexpr int kLaengstePLZOhneKennung = 6;
constexpr qsizetype kKuerzesteStrasse = 4;
// A prefix has one or two letters before its "-".
constexpr qsizetype kLaengsteKennung = 2;

QString bisErsteZiffer(const QString& text) {
  const auto* ziffer = std::ranges::find_if(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
  return text.left(ziffer - text.begin());
}

QString vorErstemBlank(const QString& text) {
  const qsizetype blank = text.indexOf(u' ');
  return blank < 0 ? text : text.left(blank);
}

QString nachErstemBlank(const QString& text) { return ohneAeussereBlanks(text.mid(text.indexOf(u' ') + 1)); }

}  // namespace

Adressteile adresseTeilen(const QString& adresse) {
  Adressteile teile;
  const qsizetype komma = adresse.indexOf(u',');
  const QString plzOrt = ohneAeussereBlanks(komma < 0 ? adresse : adresse.left(komma));
  if (komma >= 0) teile.strasse = ohneAeussereBlanks(adresse.mid(komma + 1));
  const qsizetype zweites = teile.strasse.indexOf(u',');
  if (zweites >= 0) {
    const QString zusatz = ohneAeussereBlanks(teile.strasse.mid(zweites + 1));
    if (!TextBereinigen(zusatz, false, u"/"_s).isEmpty()) teile.zusatz = zusatz;
    teile.strasse = ohneAeussereBlanks(teile.strasse.left(zweites));
  }
  const bool mehrereWoerter = plzOrt.contains(u' ');
  teile.plzOrt = mehrereWoerter ? vorErstemBlank(plzOrt) + u' ' + nachErstemBlank(plzOrt) : plzOrt;
  return teile;
}

Ortsteile ortTeilen(const QString& plzOrt, const QString& strasse, const DatenTypen& typen) {
  Ortsteile teile;
  const qsizetype strich = plzOrt.indexOf(u'-');
  if (strich == 0) return teile;
  if (strich > 0 && strich <= kLaengsteKennung) {
    const QString plz = vorErstemBlank(plzOrt);
    teile.plzZuLang = plz.size() > kLaengstePLZ;
    teile.plz = gekuerzt(plz, kLaengstePLZ);
  } else {
    teile.plz = gekuerzt(typen.Nummerisolieren(plzOrt, u"Links"_s, {}), kLaengstePLZOhneKennung);
  }
  // Without a street, or with nothing but a house number, the whole postcode is the first word.
  if (strasse.size() < kKuerzesteStrasse || strasse.contains(u"Nr.")) {
    teile.ort = nachErstemBlank(plzOrt);
    return teile;
  }
  teile.ort = ohneAeussereBlanks(plzOrt.mid(ohneAeussereBlanks(teile.plz).size()));
  teile.strasse = ohneAeussereBlanks(bisErsteZiffer(strasse));
  return teile;
}

QString laenderkennung(int vorwahl) {
  switch (vorwahl) {
    case 32:
      return u"B-"_s;
    case 39:
      return u"I-"_s;
    case 41:
      return u"CH-"_s;
    case 43:
      return u"A-"_s;
    case 49:
      return u"D-"_s;
    default:
      return {};
  }
}

}  // namespace pelvanto
