#include "lists/adressen_person.h"

#include <variant>

using namespace Qt::StringLiterals;

namespace pelvanto {

Person personLesen(qint32 id, const Abfrage& zeile, const DatenTypen& typen) {
  const auto text = [&](QStringView feld) { return typen.text(zeile.feld(feld)); };
  const auto kennzeichen = [&](QStringView feld) -> int {
    const GefilterterWert zahl = typen.NullFilter(zeile.feld(feld), u"Integer"_s);
    if (const auto* kurz = std::get_if<qint16>(&zahl)) return *kurz;
    return std::get<qint32>(zahl);
  };
  Person person;
  person.id = id;
  person.namen = text(u"Namen");
  person.adresse = text(u"Adresse");
  person.merkmale = {kennzeichen(u"Familie"), kennzeichen(u"Firma"), kennzeichen(u"KeineAnrede")};
  person.besondereBriefanrede = text(u"BesondereBriefanrede");
  person.telefon = text(u"Telefon");
  person.eMail = text(u"EMail");
  person.faxNummern = text(u"FaxNummern");
  person.keinFax = kennzeichen(u"KeinFax") != 0;
  person.keinMail = kennzeichen(u"KeinMail") != 0;
  person.du = kennzeichen(u"Du") != 0;
  return person;
}

}  // namespace pelvanto
