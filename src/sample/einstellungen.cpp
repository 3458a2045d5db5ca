#include "sample/einstellungen.h"

#include <string>

#include "sample/konten.h"

namespace pelvanto::beispiel {

namespace {

// Only characters of Latin-1 are used: in Windows-1252 they have the same codes.
void zeile(std::vector<std::uint8_t>& datei, const std::u16string& text) {
  for (const char16_t zeichen : text) datei.push_back(static_cast<std::uint8_t>(zeichen));
  datei.push_back('\r');
  datei.push_back('\n');
}

std::u16string alsText(int wert) {
  const std::string ziffern = std::to_string(wert);
  return {ziffern.begin(), ziffern.end()};
}

}  // namespace

std::vector<std::uint8_t> einstellungsdatei(int jahr) {
  const std::u16string eigeneIban = inGruppen(ibanOesterreich(34560, 4711815));
  std::vector<std::uint8_t> datei;
  for (const std::u16string& text : {
           std::u16string(u"; Einstellungen von Verbindo - nicht von Hand ändern"),
           std::u16string(u"[Programm]"),
           std::u16string(u"Land=Österreich"),
           std::u16string(u"LetzteSicherung=0"),
           std::u16string(u"Links=120"),
           std::u16string(u"Oben=80"),
           std::u16string(u""),
           std::u16string(u"[Auszahlungen]"),
           std::u16string(u"UnterlieferungGruppe=Milchlieferanten"),
           std::u16string(u"Einzahlungen=Mitgliedsbeitrag"),
           std::u16string(u"GruppeNotwendig=Qualitätsprogramm"),
           std::u16string(u"GruppeNotwendig3b=Bio-Betriebe"),
           std::u16string(u"GesamtBetrag=125.000,00"),
           u"WortlautUeberweisung=Qualitätsbonus " + alsText(jahr - 1) + u" - danke für die gute Milch",
           std::u16string(u"UIDTreuhaender=U4021830"),
           u"EigeneIBAN=" + eigeneIban,
           std::u16string(u"EigeneBIC=HOFKAT2LXXX"),
           std::u16string(u"EigenerName=Milchgemeinschaft Mühlviertel"),
           std::u16string(u"EigeneAdresse=4113 St. Martin, Kirchenplatz 1"),
           std::u16string(u""),
           std::u16string(u"[Serienbrief]"),
           std::u16string(u"Vorlage=Rundschreiben.doc"),
           std::u16string(u"Grußformel=Mit freundlichen Grüßen"),
       }) {
    zeile(datei, text);
  }
  return datei;
}

}  // namespace pelvanto::beispiel
